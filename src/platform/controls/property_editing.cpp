// The editor over a cell: opening, taking and leaving it.

#include <algorithm>
#include <utility>

#include "platform/controls/property.h"
#include "platform/controls/property_layout.h"
#include "platform/ui/check_box.h"
#include "platform/ui/combo_box.h"
#include "platform/ui/form.h"
#include "platform/ui/plain_controls.h"

namespace quorel::controls {

using automation::Object;
using ui::Twips;

namespace {

constexpr std::int32_t kLinesShown = 5;
constexpr std::size_t kValueColumn = 1;

[[nodiscard]] bool hasLines(std::u16string_view text) {
    return text.find_first_of(u"\r\n") != std::u16string_view::npos;
}

}  // namespace

bool Property::hasButton(PropertyItem& item, EditorKind kind) const {
    switch (kind) {
        case EditorKind::File:
        case EditorKind::Directory:
        case EditorKind::Binary:
            return files_ != nullptr;
        case EditorKind::Colour:
            return pickers_ != nullptr;
        case EditorKind::Date:
            return pickers_ != nullptr && !isTimeOfDay(item.dataType());
        default:
            return false;
    }
}

ui::Control& Property::boxFor(PropertyItem& item, EditorKind kind, std::u16string_view text) {
    if (kind == EditorKind::Boolean)
        return *checkBox_;
    if (kind == EditorKind::Enumeration && !item.choices().empty())
        return *choiceBox_;
    if (kind == EditorKind::MultiLine || (kind == EditorKind::Text && hasLines(text)))
        return *linesBox_;
    return *textBox_;
}

void Property::beginEdit(std::size_t line) {
    act([this, line] {
        if (line >= lines_.size())
            return;
        const Item item = lines_[line].item;
        if (editing_ && editing_->item == item)
            return;
        endEdit();
        if (!item) {
            toggleHeading(line);
            return;
        }
        if (!lines_.lineOf(item) || !model_.isEditable(*item))
            return;
        list_->selectRow(lines_.lineOf(item));
        showDescription();
        const EditorKind kind = item->kind();
        const bool wanted = model_.beginEdit(item);
        if (wanted && !isEditing() && lines_.lineOf(item))
            openEditor(item, kind);
    });
}

/// The value of the line that was selected already is edited by a click on it.
void Property::clickedCell(ui::CellIndex cell) {
    if (cell.column != kValueColumn || cell.row >= lines_.size())
        return;
    const Item item = lines_[cell.row].item;
    if (item && item == selectedBefore_ && !isEditing())
        beginEdit(cell.row);
}

void Property::fillBox(PropertyItem& item, const Editing& editing) {
    const std::u16string& text = editing.begunWith;
    if (editing.box == checkBox_) {
        const ui::CheckValue value = text == u"True" ? ui::CheckValue::Checked : ui::CheckValue::Unchecked;
        checkBox_->setValue(isUnset(item.value()) ? ui::CheckValue::Grayed : value);
        checkBox_->setText(text);
    } else if (editing.box == choiceBox_) {
        choiceBox_->setItems(item.choices());
        choiceBox_->setText(text);
    } else {
        auto& box = static_cast<ui::TextBox&>(*editing.box);
        textBox_->setReadOnly(editing.kind == EditorKind::Binary);
        box.setText(&box == linesBox_ ? withWindowsLines(text) : text);
    }
}

void Property::openEditor(const Item& item, EditorKind kind) {
    const std::u16string text = item->text();
    ui::Control& box = boxFor(*item, kind, text);
    const auto handle =
        automation::make<PropertyEditorHandle>(box, [this](const std::u16string& given) { typed(given); });
    editing_ = Editing{item, kind, &box, handle, text, hasButton(*item, kind)};
    fillBox(*item, *editing_);
    box.setEnabled(true);
    box.setToolTip(u"");
    if (const auto line = lines_.lineOf(item))
        list_->ensureVisible(ui::CellIndex{*line, kValueColumn});
    placeEditor();
    // Not before it has its width: a narrow box would scroll to the end of its text and stay there.
    if (&box == textBox_ || &box == linesBox_)
        static_cast<ui::TextBox&>(box).selectAll();
    Object property(item);
    const auto alive = std::weak_ptr(alive_);
    model_.events.onPropertyControlCreated.raise(property, Object(handle));
    if (alive.expired() || !editing_ || editing_->handle != handle)
        return;
    box.focus();
    showProblem();
}

void Property::placeEditor() {
    if (!editing_)
        return;
    const std::optional<std::size_t> line = lines_.lineOf(editing_->item);
    const std::optional<ui::Rect> seen = line ? list_->cellBounds({*line, kValueColumn}) : std::nullopt;
    // An editor whose cell is scrolled away keeps its text and waits.
    editing_->box->setVisible(seen.has_value());
    browseButton_->setVisible(seen && editing_->hasButton);
    message_->setVisible(seen && !message_->text().empty());
    if (!seen)
        return;
    const ui::Rect cell = *seen;
    const Twips lineHeight = desktop_.textSize(u"Xg").height;
    const ui::Rect& list = list_->bounds();
    const std::int32_t width = std::max(cell.width.value, 1);
    const std::int32_t length = desktop_.textSize(message_->text()).width.value;
    const std::int32_t messageLines = message_->text().empty() ? 0 : 1 + length / width;
    const EditorLayout layout =
        layoutEditor(cell, list, lineHeight,
                     {editing_->box == linesBox_ ? kLinesShown : 1, editing_->hasButton, messageLines});
    editing_->box->setBounds(layout.box);
    browseButton_->setBounds(layout.button);
    message_->setBounds(layout.message);
}

/// Without a message the label is gone.
void Property::showProblem() {
    if (!editing_)
        return;
    const Item item = editing_->item;
    const bool pristine = !editing_->touched;
    const std::u16string problem =
        pristine ? item->message() : PropertyModel::problemWith(*item, editing_->box->text());
    if (!editing_ || editing_->item != item)
        return;
    message_->setText(problem);
    placeEditor();
}

void Property::typed(const std::u16string& text) {
    act([this, text] {
        if (!editing_ || editing_->kind == EditorKind::Binary)
            return;
        editing_->touched = true;
        if (editing_->box == checkBox_) {
            checkBox_->setChecked(text == u"True");
            checkBox_->setText(text);
            commit();
        } else if (editing_->box->text() != text) {
            editing_->box->setText(text);
        }
        showProblem();
    });
}

PropertyModel::Outcome Property::commit() {
    if (!editing_)
        return PropertyModel::Outcome::Unchanged;
    if (!std::exchange(editing_->touched, false))
        return editing_->item->refusedText() ? PropertyModel::Outcome::Refused
                                             : PropertyModel::Outcome::Unchanged;
    return model_.enter(editing_->item, editing_->box->text());
}

void Property::endEdit() {
    act([this] {
        commit();
        closeEditor();
    });
}

void Property::cancelEdit() {
    if (!editing_)
        return;
    const Item item = editing_->item;
    closeEditor();
    act([&item] { item->takeRefusalBack(); });
}

void Property::closeEditor() {
    if (!editing_)
        return;
    const Editing closed = *std::exchange(editing_, std::nullopt);
    closed.handle->close();
    message_->setText(u"");
    ui::Form* const holder = form();
    const ui::Control* const focused = holder != nullptr ? holder->focusedControl() : nullptr;
    if (focused == closed.box || focused == browseButton_)
        list_->focus();
    closed.box->setVisible(false);
    browseButton_->setVisible(false);
    message_->setVisible(false);
}

/// The focus has left one part of the editor; it stays open while another part has it.
void Property::editorLost() {
    desktop_.post([this, alive = std::weak_ptr(alive_)] {
        if (alive.expired() || !editing_)
            return;
        const ui::Form* const holder = form();
        const ui::Control* const focused = holder != nullptr ? holder->focusedControl() : nullptr;
        if (focused != editing_->box && focused != browseButton_)
            endEdit();
    });
}

void Property::editNext(Step step) {
    if (!editing_)
        return;
    const Item item = editing_->item;
    const PropertyModel::Outcome outcome = commit();
    if (outcome == PropertyModel::Outcome::Refused) {
        showProblem();
        return;
    }
    closeEditor();
    const std::optional<std::size_t> from = lines_.lineOf(item);
    if (!from)
        return;
    const auto count = static_cast<std::ptrdiff_t>(lines_.size());
    const std::ptrdiff_t by = static_cast<std::ptrdiff_t>(step);
    for (auto line = static_cast<std::ptrdiff_t>(*from) + by; line >= 0 && line < count; line += by) {
        const Item next = lines_[static_cast<std::size_t>(line)].item;
        if (next && model_.isEditable(*next)) {
            beginEdit(static_cast<std::size_t>(line));
            return;
        }
    }
}

void Property::browse() {
    act([this] {
        if (!editing_ || !editing_->hasButton)
            return;
        const Item item = editing_->item;
        const auto alive = std::weak_ptr(alive_);
        if (editing_->kind == EditorKind::Binary) {
            endEdit();
            loadSelected();
            return;
        }
        // The dialog keeps the thread's messages going: a copy, for the editor may close meanwhile.
        const Editing editing = *editing_;
        const std::optional<std::u16string> chosen = ask(editing);
        if (!chosen || alive.expired() || !editing_ || editing_->handle != editing.handle)
            return;
        typed(*chosen);
        endEdit();
    });
}

/// From the line itself: its editor opens first.
void Property::browseLine(std::size_t line) {
    beginEdit(line);
    browse();
}

std::optional<std::u16string> Property::ask(const Editing& editing) {
    if (editing.kind == EditorKind::Colour)
        return askForColour(editing);
    return editing.kind == EditorKind::Date ? askForDay(editing) : askForPath(editing);
}

std::optional<std::u16string> Property::askForColour(const Editing& editing) {
    const ParsedValue parsed = parseValue({EditorKind::Colour, {}, {}}, editing.box->text());
    const std::int32_t* const bits = parsed.value ? parsed.value->getIf<std::int32_t>() : nullptr;
    const auto chosen = pickers_->pickColour(bits != nullptr && *bits >= 0 ? *bits : 0);
    return chosen ? std::optional(editText(EditorKind::Colour, *chosen)) : std::nullopt;
}

std::optional<std::u16string> Property::askForDay(const Editing& editing) {
    const std::u16string text = editing.box->text();
    const std::optional<shell::Day> chosen = pickers_->pickDay(dayOf(text));
    return chosen ? std::optional(withDay(text, *chosen)) : std::nullopt;
}

std::optional<std::u16string> Property::askForPath(const Editing& editing) {
    const bool isFolder = editing.kind == EditorKind::Directory;
    const std::u16string text = editing.box->text();
    const shell::FileDialogs::Request request{editing.item->name(), isFolder && !text.empty() ? text : path_,
                                              isFolder ? std::u16string() : text};
    return isFolder ? files_->chooseFolder(request) : files_->openFile(request);
}

void Property::toggleBoolean(const Item& item) {
    item->load();
    const bool* const now = item->value().getIf<bool>();
    model_.change(item, now == nullptr || !*now);
}

}  // namespace quorel::controls
