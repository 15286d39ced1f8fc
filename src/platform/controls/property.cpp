#include "platform/controls/property.h"

#include <algorithm>
#include <utility>

#include "platform/automation/text.h"
#include "platform/controls/cell_text.h"
#include "platform/controls/control_parts.h"
#include "platform/controls/property_layout.h"
#include "platform/ui/check_box.h"
#include "platform/ui/combo_box.h"
#include "platform/ui/form.h"
#include "platform/ui/plain_controls.h"

namespace quorel::controls {

using automation::Object;
using ui::Twips;
using namespace ui::literals;

namespace {

constexpr Twips kLeastColumn = 600_tw;
constexpr ui::Colour kRefusedText{176, 0, 0};
constexpr ui::Colour kLockedText{96, 96, 96};
/// Of a sum of ten parts of 255 each.
constexpr int kBright = 1275;
constexpr std::u16string_view kUnfoldedMark = u"\u2212 ";
constexpr std::u16string_view kFoldedMark = u"+ ";

/// "#RRGGBB"; system colours are shown as text only.
[[nodiscard]] std::optional<ui::Colour> shownColour(std::u16string_view text) {
    const ParsedValue parsed = parseValue({EditorKind::Colour, {}, {}}, text);
    const std::int32_t* const bits = parsed.value ? parsed.value->getIf<std::int32_t>() : nullptr;
    if (bits == nullptr || *bits < 0)
        return std::nullopt;
    return ui::Colour{static_cast<std::uint8_t>(*bits & 0xFF), static_cast<std::uint8_t>(*bits >> 8 & 0xFF),
                      static_cast<std::uint8_t>(*bits >> 16 & 0xFF)};
}

}  // namespace

Property::Property(std::u16string_view name, ui::Desktop& desktop, shell::FileDialogs* files,
                   shell::ValuePickers* pickers)
    : Panel(suffixed(name, u".View")),
      desktop_(desktop),
      files_(files),
      pickers_(pickers),
      searchBox_(&add<ui::TextBox>(suffixed(name, u".Search"))),
      textBox_(&add<ui::TextBox>(suffixed(name, u".Text"))),
      linesBox_(&add<ui::TextBox>(suffixed(name, u".Lines"))),
      checkBox_(&add<ui::CheckBox>(suffixed(name, u".Check"))),
      choiceBox_(&add<ui::ComboBox>(suffixed(name, u".Choice"))),
      browseButton_(&add<ui::Button>(suffixed(name, u".Browse"))),
      message_(&add<ui::Label>(suffixed(name, u".Message"))),
      list_(&add<ui::VirtualList>(name)),
      title_(&add<ui::Label>(suffixed(name, u".Title"))),
      description_(&add<ui::Label>(suffixed(name, u".Description"))) {
    searchBox_->setCueText(u"Search properties");
    linesBox_->setMultiLine(true);
    browseButton_->setText(u"\u2026");
    message_->setBackground(ui::Colour{255, 228, 225});
    for (ui::Control* const editor :
         {static_cast<ui::Control*>(textBox_), static_cast<ui::Control*>(linesBox_),
          static_cast<ui::Control*>(checkBox_), static_cast<ui::Control*>(choiceBox_),
          static_cast<ui::Control*>(browseButton_), static_cast<ui::Control*>(message_)}) {
        editor->setVisible(false);
        editor->setRaised(true);
    }
    for (ui::TextBox* const box : {textBox_, linesBox_})
        box->onChange.connect([this, box] { typed(box->text()); });
    checkBox_->onClick.connect([this] { typed(checkBox_->isChecked() ? u"True" : u"False"); });
    choiceBox_->onClick.connect([this] { typed(choiceBox_->text()); });
    browseButton_->onClick.connect([this] { browse(); });
    for (ui::Control* const editor :
         {static_cast<ui::Control*>(textBox_), static_cast<ui::Control*>(linesBox_),
          static_cast<ui::Control*>(checkBox_), static_cast<ui::Control*>(choiceBox_),
          static_cast<ui::Control*>(browseButton_)}) {
        editor->onKeyDown.connect([this](ui::KeyEvent& event) { keyInEditor(event); });
        editor->onLostFocus.connect([this] { editorLost(); });
    }
    searchBox_->onKeyDown.connect([this](ui::KeyEvent& event) { keyInSearch(event); });
    searchBox_->onChange.connect([this] { search(); });
    list_->setSource(this);
    list_->onKeyDown.connect([this](ui::KeyEvent& event) { keyInList(event); });
    list_->onSelect.connect([this] {
        selectedBefore_ = std::exchange(selected_, selectedItem());
        showDescription();
    });
    list_->onCellClick.connect([this](ui::CellIndex cell) { clickedCell(cell); });
    list_->onCellsMoved.connect([this] { placeEditor(); });
    list_->onActivate.connect([this] {
        if (const auto line = list_->selectedRow())
            beginEdit(*line);
    });
    list_->onFind.connect(
        [this](const std::u16string& text, std::size_t start, std::optional<std::size_t>& found) {
            act([&] { found = find(text, start); });
        });
    list_->onColumnResize.connect([this](std::size_t) {
        nameWidth_ = list_->columns()[0].width;
        placeEditor();
    });
    model_.onShownChanged.connect([this] {
        list_->rowsChanged();
        showDescription();
    });
    buildMenu();
    placeColumns();
}

Property::~Property() {
    list_->setSource(nullptr);
}

Twips Property::neededHeight() const {
    return neededPropertyHeight(lines_.size(), desktop_.textSize(u"Xg").height);
}

void Property::initialise() {
    release();
    lines_ = PropertyLines();
    searchBox_->setText(u"");
}

void Property::build() {
    const auto form = keepFormAlive();
    closeEditor();
    model_.build();
    failureReported_ = false;
    rearrange();
}

void Property::release() {
    const auto form = keepFormAlive();
    closeEditor();
    lines_.clear();
    failureReported_ = false;
    model_.release();
}

void Property::close() {
    release();
    path_.clear();
}

void Property::setRepObject(Object object) {
    const auto form = keepFormAlive();
    closeEditor();
    failureReported_ = false;
    model_.setObject(std::move(object));
}

void Property::setReadOnly(bool readOnly) {
    if (readOnly)
        closeEditor();
    model_.setReadOnly(readOnly);
}

void Property::apply() {
    const auto form = keepFormAlive();
    commit();
    closeEditor();
    model_.apply();
}

void Property::rearrange() {
    const Item selected = selectedItem();
    lines_.arrange(model_);
    list_->rowsChanged();
    list_->selectRow(lines_.lineOf(selected));
    showDescription();
}

Property::Item Property::selectedItem() const {
    const std::optional<std::size_t> line = list_->selectedRow();
    return line && *line < lines_.size() ? lines_[*line].item : Item();
}

void Property::toggleHeading(std::size_t line) {
    lines_.toggle(lines_[line].category);
    rearrange();
    list_->selectRow(line);
}

void Property::search() {
    act([this] {
        endEdit();
        lines_.setSearch(searchBox_->text());
        rearrange();
    });
}

std::optional<std::size_t> Property::find(std::u16string_view text, std::size_t start) {
    const std::u16string wanted = automation::foldCase(text);
    const PropertyLines lines = lines_;
    for (std::size_t step = 0; step < lines.size(); ++step) {
        const std::size_t line = (start + step) % lines.size();
        const Item& item = lines[line].item;
        if (automation::foldCase(item ? item->name() : lines[line].category).starts_with(wanted))
            return line;
    }
    return std::nullopt;
}

// What the list shows.
// ------------------------------------------------------------------------

std::u16string Property::headingText(const std::u16string& category) const {
    return suffixed(lines_.isFolded(category) ? kFoldedMark : kUnfoldedMark, displayText(category));
}

/// The mark is for those who do not see that the value is bold.
std::u16string Property::nameText(PropertyItem& item) {
    std::u16string text = displayText(item.name());
    if (item.isChanged() || item.refusedText())
        text += u" *";
    return text;
}

std::u16string Property::valueOf(PropertyItem& item) {
    item.load();
    std::u16string text = displayText(item.text());
    if (!item.message().empty())
        text.append(u"   ! ").append(displayText(item.message()));
    return text;
}

std::u16string Property::cellText(std::size_t line, std::size_t column) {
    if (line >= lines_.size())
        return {};
    const Item item = lines_[line].item;
    if (!item)
        return column == 0 ? headingText(lines_[line].category) : std::u16string();
    try {
        return column == 0 ? nameText(*item) : valueOf(*item);
    } catch (...) {
        cellFailed(automation::currentError());
        return std::u16string(kUnreadableMark);
    }
}

std::u16string Property::cellToolTip(std::size_t line, std::size_t column) {
    if (line >= lines_.size() || !lines_[line].item)
        return {};
    const Item item = lines_[line].item;
    try {
        if (column == 0)
            return item->description();
        if (!item->message().empty())
            return item->message();
        return item->isChanged() ? u"Was: " + displayText(editText(item->kind(), item->original()))
                                 : std::u16string();
    } catch (...) {
        return {};  // what cannot be told here is reported where it is shown
    }
}

bool Property::isLocked(PropertyItem& item) const {
    try {
        return !model_.isEditable(item);
    } catch (...) {
        return true;  // the same failure is reported when the user begins to edit
    }
}

/// A colour is shown as itself, its text in black or white.
void Property::showColour(PropertyItem& item, ui::CellLook& look) {
    if (!item.isLoaded() || item.refusedText() || item.kind() != EditorKind::Colour)
        return;
    const std::optional<ui::Colour> colour = shownColour(item.text());
    if (!colour)
        return;
    look.background = colour;
    const int brightness = colour->red * 3 + colour->green * 6 + colour->blue;
    look.text = brightness > kBright ? ui::Colour{0, 0, 0} : ui::Colour{255, 255, 255};
}

ui::CellLook Property::cellLook(std::size_t line, std::size_t column) {
    if (line >= lines_.size() || !lines_[line].item)
        return {};
    const Item item = lines_[line].item;
    ui::CellLook look;
    look.bold = column != 0 && item->isChanged();
    if (!item->message().empty())
        look.text = kRefusedText;
    else if (column != 0 && isLocked(*item))
        look.text = kLockedText;
    if (column != 0)
        showColour(*item, look);
    return look;
}

bool Property::isGroup(std::size_t line) {
    return line < lines_.size() && !lines_[line].item;
}

void Property::cellFailed(const automation::Error& error) {
    if (std::exchange(failureReported_, true))
        return;
    desktop_.post([this, error, generation = model_.generation(), alive = std::weak_ptr(alive_)] {
        if (alive.expired())
            return;
        const auto form = keepFormAlive();
        if (generation == model_.generation())
            onFailure.raise(error);
    });
}

void Property::showDescription() {
    const Item item = selectedItem();
    if (!item) {
        title_->setText(u"");
        description_->setText(u"");
        return;
    }
    try {
        const std::u16string title = item->name() + u" (" + item->dataType() + u")";
        const std::u16string text = item->message().empty() ? item->description() : item->message();
        if (item != selectedItem())
            return;
        title_->setText(title);
        description_->setText(text);
    } catch (...) {
        cellFailed(automation::currentError());
    }
}

void Property::boundsChanged() {
    place();
}

void Property::place() {
    const PropertyLayout layout = layoutProperty(bounds().size(), desktop_.textSize(u"Xg").height);
    searchBox_->setBounds(layout.searchBox);
    list_->setBounds(layout.list);
    title_->setBounds(layout.title);
    description_->setBounds(layout.description);
    placeColumns();
    placeEditor();
}

void Property::placeColumns() {
    const Twips room = std::max(list_->bounds().width - kScrollBarRoom, kLeastColumn * 2);
    const Twips name = nameWidth_ > 0_tw ? std::min(nameWidth_, room - kLeastColumn) : room * 2 / 5;
    list_->setColumns({{u"Property", name}, {u"Value", room - name}});
}

}  // namespace quorel::controls
