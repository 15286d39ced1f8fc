#include "platform/controls/file_selector.h"

#include <algorithm>

#include "platform/ui/form.h"
#include "platform/ui/glyphs.h"

namespace quorel::controls {

using automation::Value;
using ui::Twips;
using namespace ui::literals;

namespace {
constexpr Twips kSelectorPadding = 120_tw;
constexpr Twips kBeforeBox = 90_tw;
constexpr Twips kButtonGap = 45_tw;
}  // namespace

FileSelector::FileSelector(std::u16string_view name, ui::Desktop& desktop, shell::FileDialogs* dialogs)
    : Panel(std::u16string(name) + u".View"),
      desktop_(desktop),
      selection_(automation::make<FileSelection>(dialogs)),
      caption_(&add<ui::Label>(std::u16string(name) + u".Message")),
      box_(&add<ui::TextBox>(name)),
      button_(&add<ui::Button>(std::u16string(name) + u".Browse")) {
    button_->setText(u"Browse…");
    button_->setToolTip(u"Browse…");
    button_->setGlyph(ui::glyphs::open());
    button_->setVisible(selection_->canBrowse());
    box_->onChange.connect([this] {
        selection_->SetAttribute(u"FilePath", box_->text());
        onChange.raise();
    });
    box_->onLostFocus.connect([this] { onEntered.raise(); });
    button_->onClick.connect([this] { browse(); });
}

void FileSelector::SetAttribute(std::u16string_view name, const Value& value) {
    selection_->SetAttribute(std::u16string(name), value);
    showAttributes();
}

Value FileSelector::GetAttribute(std::u16string_view name) const {
    return selection_->GetAttribute(std::u16string(name));
}

void FileSelector::setCaptionWidth(Twips width) {
    captionWidth_ = width;
    boundsChanged();
}

void FileSelector::showAttributes() {
    caption_->setText(selection_->text(u"Message"));
    box_->setText(selection_->text(u"FilePath"));
}

void FileSelector::browse() {
    // The dialog serves the whole thread: meanwhile the host may end the window, or only this control of it.
    const auto form = keepFormAlive();
    const std::weak_ptr<const bool> alive = alive_;
    const automation::Ref<FileSelection> selection = selection_;
    try {
        const std::u16string before = selection->text(u"FilePath");
        if (!selection->Browse() || alive.expired())
            return;
        showAttributes();
        if (selection->text(u"FilePath") != before)
            onChange.raise();
        if (!alive.expired())
            onEntered.raise();
    } catch (...) {
        if (!alive.expired())
            onFailure.raise(automation::currentError());
    }
}

void FileSelector::boundsChanged() {
    const Twips width = bounds().width;
    const Twips height = std::min(bounds().height, neededHeight());
    const Twips boxLeft = std::clamp(captionWidth_.value_or(width / 3), 0_tw, std::max(width, 0_tw));
    const Twips boxRight = selection_->canBrowse() ? width - height - kButtonGap : width;
    caption_->setBounds({0_tw, kSelectorPadding / 2, std::max(boxLeft - kBeforeBox, 0_tw),
                         std::max(bounds().height - kSelectorPadding / 2, 0_tw)});
    box_->setBounds({boxLeft, 0_tw, std::max(boxRight - boxLeft, 0_tw), height});
    button_->setBounds({std::max(width - height, 0_tw), 0_tw, height, height});
}

Twips FileSelector::neededHeight() const {
    return desktop_.textSize(u"Xg").height + kSelectorPadding;
}

}  // namespace quorel::controls
