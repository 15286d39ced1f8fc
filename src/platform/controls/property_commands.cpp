// What keys and the context menu do on the lines of a property grid.

#include "platform/controls/cell_text.h"
#include "platform/controls/control_parts.h"
#include "platform/controls/property.h"
#include "platform/controls/property_file.h"
#include "platform/ui/form.h"
#include "platform/ui/menu.h"
#include "platform/ui/plain_controls.h"

namespace quorel::controls {

using ui::Key;
using ui::KeyChord;
using ui::Modifiers;

namespace {

constexpr KeyChord kSearchKey{ui::key('F'), Modifiers::Control};
constexpr KeyChord kRevertKey{ui::key('Z'), Modifiers::Control};
[[nodiscard]] bool opensPicker(KeyChord chord) noexcept {
    return chord == KeyChord{Key::F4} || chord == KeyChord{Key::Down, Modifiers::Alt};
}

constexpr std::u16string_view kHeader = u"Property\tValue\r\n";

}  // namespace

void Property::buildMenu() {
    ui::Menu& menu = list_->contextMenu();
    menu.add(u"Edit", u"&Edit", {Key::F2}).onClick.connect([this] {
        if (const auto line = list_->selectedRow())
            beginEdit(*line);
    });
    menu.add(u"Revert", u"&Revert", kRevertKey).onClick.connect([this] { revertSelected(); });
    menu.add(u"Clear", u"C&lear value", {Key::Delete}).onClick.connect([this] { clearSelected(); });
    menu.add(u"RevertAll", u"Re&vert all").onClick.connect([this] { revertAll(); });
    menu.addSeparator();
    menu.add(u"Load", u"L&oad from file\u2026").onClick.connect([this] { loadSelected(); });
    menu.add(u"Save", u"&Save to file\u2026").onClick.connect([this] { saveSelected(); });
    menu.addSeparator();
    menu.add(u"Copy", u"&Copy", kCopyKey).onClick.connect([this] { copySelected(); });
    menu.add(u"CopyAll", u"Copy &all").onClick.connect([this] { copyAll(); });
    list_->onContextMenu.connect([this] { prepareMenu(); });
}

void Property::prepareMenu() {
    act([this] {
        const Item item = selectedItem();
        const bool editable = item && model_.isEditable(*item);
        const bool binary = item && files_ != nullptr && item->kind() == EditorKind::Binary;
        const ui::Menu& menu = list_->contextMenu();
        menu.find(u"Edit")->setEnabled(editable);
        menu.find(u"Revert")->setEnabled(item && (item->isChanged() || item->refusedText()));
        menu.find(u"RevertAll")->setEnabled(model_.isChanged());
        menu.find(u"Clear")->setEnabled(editable && !isUnset(item->value()));
        menu.find(u"Load")->setVisible(binary);
        menu.find(u"Load")->setEnabled(editable);
        menu.find(u"Save")->setVisible(binary);
        menu.find(u"Save")->setEnabled(binary && item->value().getIf<automation::Bytes>() != nullptr);
        menu.find(u"Copy")->setEnabled(static_cast<bool>(item));
        menu.find(u"CopyAll")->setEnabled(lines_.size() > 0);
    });
}

void Property::keyInList(ui::KeyEvent& event) {
    const std::optional<std::size_t> line = list_->selectedRow();
    event.handled = true;
    if (event.chord == kSearchKey)
        searchBox_->focus();
    else if (event.chord == KeyChord{Key::Enter})
        pressDefault();
    else if (!line || *line >= lines_.size())
        event.handled = false;
    else if (!lines_[*line].item)
        keyOnHeading(event, *line);
    else if (event.chord == KeyChord{Key::F2})
        beginEdit(*line);
    else if (opensPicker(event.chord))
        browseLine(*line);
    else if (event.chord == kCopyKey)
        copySelected();
    else if (event.chord == kRevertKey)
        revertSelected();
    else if (event.chord == KeyChord{Key::Delete})
        clearSelected();
    else if (event.chord == KeyChord{Key::Space})
        act([this, &event] {
            const Item item = selectedItem();
            event.handled = item->kind() == EditorKind::Boolean;
            if (event.handled && model_.isEditable(*item))
                toggleBoolean(item);
        });
    else
        event.handled = false;
}

void Property::keyOnHeading(ui::KeyEvent& event, std::size_t line) {
    const bool folded = lines_.isFolded(lines_[line].category);
    const bool wanted = event.chord == KeyChord{folded ? Key::Right : Key::Left} ||
                        event.chord == KeyChord{Key::F2} || event.chord == KeyChord{Key::Space};
    event.handled = wanted;
    if (wanted)
        act([this, line] { toggleHeading(line); });
}

void Property::pressDefault() {
    ui::Form* const holder = form();
    ui::Button* const button = holder != nullptr ? holder->defaultButton() : nullptr;
    if (button != nullptr && button->isUsable())
        button->userClicked();
}

void Property::keyInSearch(ui::KeyEvent& event) {
    event.handled = true;
    if (event.chord == KeyChord{Key::Escape} && !searchBox_->text().empty()) {
        searchBox_->setText(u"");
        search();
    } else if (event.chord == KeyChord{Key::Down} || event.chord == KeyChord{Key::Enter}) {
        list_->focus();
    } else {
        event.handled = false;
    }
}

void Property::keyInEditor(ui::KeyEvent& event) {
    if (!editing_)
        return;
    const bool lines = editing_->box == linesBox_;
    const KeyChord enter{Key::Enter, lines ? Modifiers::Control : Modifiers::None};
    event.handled = true;
    if (event.chord == KeyChord{Key::Escape}) {
        cancelEdit();
    } else if (event.chord == KeyChord{Key::Tab}) {
        act([this] { editNext(Step::On); });
    } else if (event.chord == KeyChord{Key::Tab, Modifiers::Shift}) {
        act([this] { editNext(Step::Back); });
    } else if (editing_->hasButton && opensPicker(event.chord)) {
        browse();
    } else if (event.chord == enter && !browseButton_->hasFocus()) {
        act([this] {
            if (commit() == PropertyModel::Outcome::Refused)
                showProblem();
            else
                closeEditor();
        });
    } else {
        event.handled = false;
    }
}

void Property::revertSelected() {
    act([this] {
        if (const Item item = selectedItem())
            model_.revert(item);
    });
}

void Property::revertAll() {
    act([this] {
        closeEditor();
        const std::uint64_t generation = model_.generation();
        const std::vector<Item> items = model_.items();
        for (const Item& item : items)
            if (model_.generation() == generation)
                model_.revert(item);
    });
}

void Property::clearSelected() {
    act([this] {
        const Item item = selectedItem();
        if (item && model_.isEditable(*item))
            model_.change(item, {});
    });
}

std::u16string Property::copied(const Item& item) {
    std::u16string text;
    act([&] {
        item->load();
        text = clipboardField(item->name()) + u"\t" + clipboardField(item->text()) + u"\r\n";
    });
    return text;
}

void Property::copySelected() {
    if (const Item item = selectedItem())
        desktop_.setClipboardText(std::u16string(kHeader) + copied(item));
}

void Property::copyAll() {
    std::vector<Item> items;
    for (std::size_t line = 0; line < lines_.size(); ++line)
        if (lines_[line].item)
            items.push_back(lines_[line].item);
    std::u16string text(kHeader);
    for (const Item& item : items)
        text += copied(item);
    desktop_.setClipboardText(text);
}

void Property::loadSelected() {
    act([this] {
        const Item item = selectedItem();
        if (!item || files_ == nullptr || item->kind() != EditorKind::Binary || !model_.isEditable(*item))
            return;
        const auto file = files_->openFile({item->name(), path_, {}});
        if (file && item->isAttached())
            model_.change(item, automation::Bytes{readFile(*file), 0});
    });
}

void Property::saveSelected() {
    act([this] {
        const Item item = selectedItem();
        if (!item || files_ == nullptr)
            return;
        item->load();
        const auto* bytes = item->value().getIf<automation::Bytes>();
        if (bytes == nullptr)
            return;
        const std::vector<std::uint8_t> data = bytes->data;
        if (const auto file = files_->saveFile({item->name(), path_, item->name()}))
            writeFile(*file, data);
    });
}

}  // namespace quorel::controls
