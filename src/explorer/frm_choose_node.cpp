#include "explorer/frm_choose_node.h"

#include <algorithm>

#include "frame/guarded.h"

namespace quorel::explorer {

using automation::Object;
using ui::Twips;
using namespace ui::literals;

namespace {

constexpr ui::Size kChooserSize{6000_tw, 6000_tw};
constexpr ui::Size kLeastSize{3000_tw, 2250_tw};
constexpr Twips kChooserMargin = 120_tw;
constexpr ui::Size kButton{1200_tw, 375_tw};

}  // namespace

frmChooseNode::frmChooseNode(ui::Desktop& desktop)
    : Form(desktop, u"frmChooseNode"),
      list_(add<controls::ListView>(u"Nodes", desktop)),
      okButton_(add<ui::Button>(u"OK")),
      cancelButton_(add<ui::Button>(u"Cancel")) {
    okButton_.setText(u"OK");
    okButton_.setEnabled(false);
    cancelButton_.setText(u"Cancel");
    setDefaultButton(&okButton_);
    setCancelButton(&cancelButton_);
    okButton_.onClick.connect([this] { OK_Click(); });
    cancelButton_.onClick.connect([this] { hide(); });
    list_.onDoubleClick.connect([this] { OK_Click(); });
    list_.onSelectionChanged.connect(
        [this] { okButton_.setEnabled(static_cast<bool>(list_.selectedObject())); });
    // The dialog reports in the name of the command that shows it.
    list_.onCellError.connect([this](const automation::Error& error) {
        frame::guarded(*this, u"frmExplorer", u"EditToolbar1_Click", [&error] { throw error; });
    });
    onResize.connect([this] { place(); });
    setMinimumClientSize(kLeastSize);
    setClientSize(kChooserSize);
    list_.list().focus();
}

void frmChooseNode::Init(const Object& metaNode, std::u16string_view caption) {
    setText(caption);
    list_.fillWithExtension(metaNode, true);
}

void frmChooseNode::OK_Click() {
    chosen_ = list_.selectedObject();
    if (chosen_)
        hide();
}

void frmChooseNode::place() {
    const ui::Size area = clientSize();
    const Twips buttons = area.height - kChooserMargin - kButton.height;
    list_.setBounds({kChooserMargin, kChooserMargin, std::max(area.width - kChooserMargin * 2, 0_tw),
                     std::max(buttons - kChooserMargin * 2, 0_tw)});
    const Twips cancel = area.width - kChooserMargin - kButton.width;
    cancelButton_.setBounds({cancel, buttons, kButton.width, kButton.height});
    okButton_.setBounds({cancel - kChooserMargin - kButton.width, buttons, kButton.width, kButton.height});
}

}  // namespace quorel::explorer
