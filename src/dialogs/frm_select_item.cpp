#include "dialogs/frm_select_item.h"

#include "dialogs/item_collection.h"
#include "dialogs/select_item_layout.h"
#include "frame/attempt.h"
#include "frame/window_placement.h"
#include "platform/automation/error.h"
#include "platform/automation/text.h"
#include "platform/ui/plain_controls.h"

namespace quorel::dialogs {

using automation::Object;
using automation::Ref;
using namespace ui::literals;

namespace {

constexpr ui::Size kFirstSize{7200_tw, 5400_tw};
constexpr std::u16string_view kTextKey = u"LinkName";  // of a list's rows' own names

[[nodiscard]] const SelectableItem& itemOf(const Object& row) {
    return static_cast<const SelectableItem&>(*row.native());
}

}  // namespace

frmSelectItem::frmSelectItem(const frame::Environment& environment)
    : Form(environment.desktop, u"frmSelectItem"),
      environment_(environment),
      statement_(add<ui::Label>(u"Statement")),
      list_(add<controls::ListView>(u"List", environment.desktop)),
      listView_(add<controls::ListView>(u"ListView", environment.desktop)),
      checkAll_(add<ui::Button>(u"CheckAll")),
      checkNone_(add<ui::Button>(u"CheckNone")),
      count_(add<ui::Label>(u"Count")),
      okButton_(add<ui::Button>(u"OK")),
      cancelButton_(add<ui::Button>(u"Cancel")) {
    setText(u"caption");
    statement_.setText(u"statement");
    okButton_.setText(u"OK");
    cancelButton_.setText(u"Cancel");
    checkAll_.setText(u"Check &all");
    checkNone_.setText(u"Check &none");
    list_.list().setTitled(false);
    listView_.setVisible(false);
    checkAll_.setVisible(false);
    checkNone_.setVisible(false);
    for (controls::ListView* const list : {&list_, &listView_}) {
        list->addColumn(u"", kTextKey, 0_tw);
        list->list().onKeyDown.connect([this](ui::KeyEvent& event) { keyInList(event); });
        list->onCountChanged.connect([this] {
            if (isVisible())
                tellCount();
        });
    }
    setDefaultButton(&okButton_);
    setCancelButton(&cancelButton_);
    okButton_.onClick.connect([this] { OK_Click(); });
    cancelButton_.onClick.connect([this] { Cancel_Click(); });
    checkAll_.onClick.connect([this] { listView_.checkAll(true); });
    checkNone_.onClick.connect([this] { listView_.checkAll(false); });
    listView_.onDoubleClick.connect([this] { ListView_DblClick(); });
    listView_.onCheck.connect([this] { tellCount(); });
    onLoad.connect([this] {
        cancelled_ = true;
        procedure(u"Form_Load", [this] {
            if (const auto placement = frame::readWindowPlacement(environment_.settings, name(), {}))
                frame::place(*this, *placement);
        });
    });
    onQueryUnload.connect([this](bool&) { cancelled_ = true; });
    onUnload.connect([this] { procedure(u"Form_Unload", [this] { savePlacement(); }); });
    onResize.connect([this] { place(); });
    setClientSize(kFirstSize);
    fit();
}

frmSelectItem::~frmSelectItem() {
    listView_.setChecks(nullptr);
}

void frmSelectItem::PopUp() {
    procedure(u"PopUp", [this] {
        wasShown_ = true;
        tellCount();
        shownList().list().focus();
        show(ui::Modality::Modal);
    });
}

void frmSelectItem::Conceal() {
    procedure(u"Conceal", [this] {
        hide();
        savePlacement();
    });
}

void frmSelectItem::Destroy() noexcept {
    counter_ = 0;
    checked_ = 0;
    for (controls::ListView* const list : {&list_, &listView_})
        frame::attempt([list] { list->empty(); });
}

// The host's items.
// ------------------------------------------------------------------------

void frmSelectItem::setStatement(std::u16string_view text) {
    statement_.setText(text);
    fit();
}

void frmSelectItem::AsListView(bool checkBoxes) {
    asListView_ = true;
    checkBoxes_ = checkBoxes;
    list_.setVisible(false);
    listView_.setVisible(true);
    listView_.setChecks(checkBoxes ? this : nullptr);
    checkAll_.setVisible(checkBoxes);
    checkNone_.setVisible(checkBoxes);
    fit();
}

void frmSelectItem::AddColumn(std::u16string_view name, std::int32_t width) {
    const std::u16string key = columns_ == 0 ? std::u16string(kTextKey) : automation::decimal(columns_);
    listView_.addColumn(name, key, ui::Twips{std::max(width, 0)});
    ++columns_;
}

void frmSelectItem::AddItem(const SelectableItem::Texts& texts, const Object& object) {
    const Ref<SelectableItem> item =
        SelectableItem::make(counter_, asListView_ ? texts : SelectableItem::Texts{texts.front()}, object);
    if (__builtin_add_overflow(counter_, 1, &counter_))
        throw automation::Error(automation::error_number::kOverflow);
    shownList().addObject(item);
}

Object frmSelectItem::Selection() const {
    if (!asListView_ || !checkBoxes_) {
        const Object selected = shownList().selectedObject();
        return selected ? itemOf(selected).object() : Object();
    }
    std::vector<Object> objects;
    for (std::size_t place = 0; place < listView_.count(); ++place) {
        const Object row = listView_.objectAt(place);
        if (itemOf(row).isChecked())
            objects.push_back(itemOf(row).object());
    }
    return automation::make<ItemCollection>(std::move(objects));
}

bool frmSelectItem::isChecked(const Object& row) const {
    return itemOf(row).isChecked();
}

void frmSelectItem::setChecked(const Object& row, bool checked) {
    auto& item = static_cast<SelectableItem&>(*row.native());
    if (item.isChecked() != checked)
        checked_ += checked ? 1 : -1;
    item.setChecked(checked);
}

// What the user does.
// ------------------------------------------------------------------------

void frmSelectItem::OK_Click() {
    procedure(u"OK_Click", [this] {
        cancelled_ = false;
        hide();
        savePlacement();
    });
}

void frmSelectItem::Cancel_Click() {
    procedure(u"Cancel_Click", [this] {
        cancelled_ = true;
        hide();
        savePlacement();
    });
}

void frmSelectItem::ListView_DblClick() {
    if (!checkBoxes_)
        OK_Click();
}

void frmSelectItem::keyInList(ui::KeyEvent& event) {
    if (event.handled || event.chord != ui::KeyChord{ui::Key::Enter})
        return;
    event.handled = true;
    OK_Click();
}

// The window.
// ------------------------------------------------------------------------

void frmSelectItem::tellCount() {
    const std::u16string all = automation::decimal(static_cast<std::int64_t>(shownList().count()));
    count_.setText(checkBoxes_ ? automation::decimal(static_cast<std::int64_t>(checked_)) + u" of " + all +
                                     u" checked"
                               : all + (all == u"1" ? u" item" : u" items"));
}

void frmSelectItem::savePlacement() {
    if (!wasShown_)
        return;
    const frame::WindowPlacement former = frame::readWindowPlacement(environment_.settings, name(), {})
                                              .value_or(frame::WindowPlacement{.size = kFirstSize});
    frame::writeWindowPlacement(environment_.settings, name(), frame::placementOf(*this, former), {});
}

ui::Twips frmSelectItem::statementHeight() const {
    return desktop()
        .labelSize(statement_.text(), statement_.font(), statementWidth(clientSize().width))
        .height;
}

void frmSelectItem::fit() {
    const ui::Twips line = desktop().textSize(u"Xg").height;
    setMinimumClientSize(leastSelectItemSize(line, statementHeight(), checkBoxes_));
    place();
}

void frmSelectItem::place() {
    const ui::Twips line = desktop().textSize(u"Xg").height;
    const SelectItemLayout layout = layoutSelectItem(clientSize(), line, statementHeight(), checkBoxes_);
    statement_.setBounds(layout.statement);
    list_.setBounds(layout.list);
    listView_.setBounds(layout.list);
    checkAll_.setBounds(layout.checkAll);
    checkNone_.setBounds(layout.checkNone);
    count_.setBounds(layout.count);
    okButton_.setBounds(layout.ok);
    cancelButton_.setBounds(layout.cancel);
}

}  // namespace quorel::dialogs
