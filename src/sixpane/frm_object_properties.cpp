#include "sixpane/frm_object_properties.h"

#include <algorithm>
#include <utility>

#include "platform/controls/cell_text.h"
#include "platform/ui/menu.h"
#include "platform/ui/plain_controls.h"

namespace quorel::sixpane {

using ui::Twips;
using namespace ui::literals;

namespace {

constexpr Twips kRowsMargin = 135_tw;
constexpr Twips kCloseWidth = 1200_tw;
constexpr Twips kClosePadding = 135_tw;
constexpr Twips kNameColumn = 2100_tw;
constexpr Twips kScrollBarRoom = 330_tw;
constexpr ui::Size kPropertiesSize{6600_tw, 4800_tw};
constexpr ui::Size kLeastSize{3000_tw, 2100_tw};
constexpr ui::KeyChord kCopyKey{ui::key('C'), ui::Modifiers::Control};

}  // namespace

frmObjectProperties::frmObjectProperties(ui::Desktop& desktop)
    : Form(desktop, u"frmObjectProperties"),
      list_(add<ui::VirtualList>(u"PropertyList")),
      close_(add<ui::Button>(u"CloseButton")) {
    setText(u"Properties");
    close_.setText(u"Close");
    setDefaultButton(&close_);
    setCancelButton(&close_);
    close_.onClick.connect([this] { hide(); });
    list_.setSource(this);
    list_.onKeyDown.connect([this](ui::KeyEvent& event) { keyDown(event); });
    list_.contextMenu().add(u"Copy", u"&Copy", kCopyKey).onClick.connect([this] { copy(); });
    onResize.connect([this] { place(); });
    setMinimumClientSize(kLeastSize);
    setClientSize(kPropertiesSize);
    const Twips valueWidth = kPropertiesSize.width - kRowsMargin * 2 - kNameColumn - kScrollBarRoom;
    list_.setColumns({{u"Property", kNameColumn}, {u"Value", valueWidth}});
}

frmObjectProperties::~frmObjectProperties() {
    list_.setSource(nullptr);
}

void frmObjectProperties::PopUp(std::vector<ObjectRow> rows) {
    rows_ = std::move(rows);
    list_.rowsChanged();
    if (!rows_.empty())
        setText(rows_.front().value + u" - Properties");
    list_.focus();
    show(ui::Modality::Modal);
}

std::u16string frmObjectProperties::cellText(std::size_t row, std::size_t column) {
    if (row >= rows_.size())
        return {};
    return controls::displayText(column == 0 ? rows_[row].name : rows_[row].value);
}

void frmObjectProperties::place() {
    const ui::Size client = clientSize();
    const Twips buttonHeight = desktop().textSize(u"Xg").height + kClosePadding;
    const Twips buttonTop = client.height - kRowsMargin - buttonHeight;
    list_.setBounds({kRowsMargin, kRowsMargin, client.width - kRowsMargin * 2, buttonTop - kRowsMargin * 2});
    close_.setBounds({client.width - kRowsMargin - kCloseWidth, buttonTop, kCloseWidth, buttonHeight});
}

void frmObjectProperties::keyDown(ui::KeyEvent& event) {
    if (event.chord != kCopyKey)
        return;
    copy();
    event.handled = true;
}

void frmObjectProperties::copy() {
    const std::optional<std::size_t> selected = list_.selectedRow();
    std::u16string text = u"Property\tValue\r\n";
    for (std::size_t row = 0; row < rows_.size(); ++row)
        if (!selected || *selected == row)
            text.append(controls::clipboardField(rows_[row].name))
                .append(u"\t")
                .append(controls::clipboardField(rows_[row].value))
                .append(u"\r\n");
    desktop().setClipboardText(text);
}

}  // namespace quorel::sixpane
