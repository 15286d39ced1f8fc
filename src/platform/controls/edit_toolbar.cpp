#include "platform/controls/edit_toolbar.h"

#include <algorithm>

#include "platform/ui/glyphs.h"

namespace quorel::controls {

using namespace ui::literals;

namespace {

constexpr ui::Twips kButton = 390_tw;
constexpr ui::Twips kBesideButton = 30_tw;

struct Traits {
    EditCommand command;
    std::u16string_view suffix;
    std::u16string_view text;
    std::u16string_view toolTip;
    ui::KeyChord key;
    ui::glyphs::Shared (*glyph)();
};

constexpr std::array<Traits, kEditCommandCount> kCommands{{
    {EditCommand::New, u".New", u"New", u"New (Ins)", {ui::Key::Insert}, &ui::glyphs::newNode},
    {EditCommand::Delete, u".Delete", u"Delete", u"Delete (Del)", {ui::Key::Delete}, &ui::glyphs::remove},
    {EditCommand::Edit,
     u".Edit",
     u"Edit",
     u"Edit (Alt+Enter)",
     {ui::Key::Enter, ui::Modifiers::Alt},
     &ui::glyphs::edit},
    {EditCommand::Refresh, u".Refresh", u"Refresh", u"Refresh (F5)", {ui::Key::F5}, &ui::glyphs::refresh},
}};

}  // namespace

EditToolbar::EditToolbar(std::u16string_view name) : Panel(name) {
    for (const Traits& traits : kCommands) {
        ui::Button& made = add<ui::Button>(std::u16string(name) += traits.suffix);
        made.setText(traits.text);
        made.setToolTip(traits.toolTip);
        made.setGlyph(traits.glyph());
        made.onClick.connect([this, command = traits.command] { onCommand.raise(command); });
        buttons_[static_cast<std::size_t>(traits.command)] = &made;
    }
}

void EditToolbar::initialise(std::int32_t /*flags*/) {
    for (ui::Button* const each : buttons_)
        each->setEnabled(true);
}

void EditToolbar::setCommandEnabled(EditCommand command, bool enabled) {
    button(command).setEnabled(enabled);
}

bool EditToolbar::isCommandEnabled(EditCommand command) const {
    return buttons_[static_cast<std::size_t>(command)]->isEnabled();
}

bool EditToolbar::runKey(ui::KeyChord chord) {
    const auto* const traits = std::find_if(kCommands.begin(), kCommands.end(),
                                            [chord](const Traits& each) { return each.key == chord; });
    if (traits == kCommands.end())
        return false;
    if (isCommandEnabled(traits->command))
        onCommand.raise(traits->command);
    return true;
}

ui::Twips EditToolbar::neededHeight() noexcept {
    return kButton + kBesideButton * 2;
}

void EditToolbar::boundsChanged() {
    ui::Twips left = kBesideButton;
    for (ui::Button* const each : buttons_) {
        each->setBounds({left, kBesideButton, kButton, kButton});
        left += kButton + kBesideButton;
    }
}

}  // namespace quorel::controls
