#include "dialogs/frm_name_edit.h"

#include <algorithm>

#include "dialogs/name_edit_layout.h"
#include "platform/ui/plain_controls.h"

namespace quorel::dialogs {

using namespace ui::literals;

namespace {
constexpr ui::Twips kFirstWidth = 5400_tw;
/// A longer question is cut rather than let the window grow out of the screen.
constexpr std::int32_t kMostQuestionLines = 12;
constexpr std::size_t kMostMeasured = 2000;
}  // namespace

frmNameEdit::frmNameEdit(ui::Desktop& desktop)
    : Form(desktop, u"frmNameEdit"),
      lblName_(add<ui::Label>(u"lblName")),
      nameBox_(add<ui::TextBox>(u"NameBox")),
      okButton_(add<ui::Button>(u"OK")),
      cancelButton_(add<ui::Button>(u"Cancel")) {
    setText(u"Name");
    lblName_.setText(u"&Name:");
    okButton_.setText(u"OK");
    cancelButton_.setText(u"Cancel");
    setDefaultButton(&okButton_);
    setCancelButton(&cancelButton_);
    okButton_.onClick.connect([this] { OK_Click(); });
    cancelButton_.onClick.connect([this] { Cancel_Click(); });
    onLoad.connect([this] { ok_ = false; });
    onQueryUnload.connect([this](bool&) { ok_ = false; });
    onResize.connect([this] { place(); });
    setClientSize({kFirstWidth, 0_tw});
    fit();
}

void frmNameEdit::Init(std::u16string_view caption, std::u16string_view name, std::u16string_view question) {
    setText(caption);
    setEditName(name);
    setQuestion(question);
}

void frmNameEdit::PopUp() {
    nameBox_.focus();
    nameBox_.selectAll();
    show(ui::Modality::Modal);
}

const std::u16string& frmNameEdit::EditName() const noexcept {
    return nameBox_.text();
}

void frmNameEdit::setEditName(std::u16string_view name) {
    nameBox_.setText(name);
}

void frmNameEdit::setQuestion(std::u16string_view question) {
    lblName_.setText(question);
    fit();
}

void frmNameEdit::OK_Click() {
    ok_ = true;
    hide();
}

void frmNameEdit::Cancel_Click() {
    ok_ = false;
    hide();
}

std::int32_t frmNameEdit::questionLines() const {
    const std::int32_t width = std::max(questionWidth(clientSize().width).value, 1);
    std::u16string_view rest = std::u16string_view(lblName_.text()).substr(0, kMostMeasured);
    std::int32_t lines = 0;
    while (lines < kMostQuestionLines) {
        const std::size_t end = rest.find(u'\n');
        // Words break before the edge, so a wrapped paragraph is given a little more than its bare width.
        const std::int32_t length = desktop().textSize(rest.substr(0, end)).width.value;
        lines += length <= width ? 1 : (length + length / 10 + width - 1) / width;
        if (end == std::u16string_view::npos)
            break;
        rest.remove_prefix(end + 1);
    }
    return std::min(lines, kMostQuestionLines);
}

void frmNameEdit::fit() {
    const ui::Size least = leastNameEditSize(desktop().textSize(u"Xg").height, questionLines());
    setMinimumClientSize(least);
    setClientSize({clientSize().width, least.height});
    place();
}

void frmNameEdit::place() {
    const NameEditLayout layout =
        layoutNameEdit(clientSize(), desktop().textSize(u"Xg").height, questionLines());
    lblName_.setBounds(layout.question);
    nameBox_.setBounds(layout.nameBox);
    okButton_.setBounds(layout.ok);
    cancelButton_.setBounds(layout.cancel);
}

}  // namespace quorel::dialogs
