#include "dialogs/node_edit.h"
#include "matrix/frm_matrix_browser.h"
#include "platform/automation/calls.h"
#include "platform/controls/cell_text.h"

namespace quorel::matrix {

using automation::Object;

void frmMatrixBrowser::EditSourceNode(const Object& edited) {
    procedure(u"EditSourceNode", [&] {
        const Object node = edited;
        const auto dialog = std::make_shared<dialogs::NodeEdit>(environment_);
        dialog->load();
        nodeEdit_ = dialog;
        dialog->Property1().initialise();
        dialog->Property1().setPath(Path);
        dialog->Property1().setMetaObject(node.get(u"Parent").toObject());
        dialog->Property1().build();
        dialog->SetNode(node);
        placeOverThis(*dialog);
        // The host may have ended the browser while it was asked, or may do so while the user edits.
        if (!isLoaded())
            return;
        dialog->show(ui::Modality::Modal);
        dialog->unload();
        if (isLoaded())
            SourceMetaNodeList_Click(controls::valueText(node.get(u"Parent").toObject().get(u"name")));
    });
}

/// Left, top, width and height.
void frmMatrixBrowser::placeOverThis(ui::Form& dialog) const {
    if (hasPosition())
        dialog.setPosition({bounds().left, bounds().top});
    dialog.setClientSize(clientSize());
}

void frmMatrixBrowser::closeNodeEdit() {
    if (const auto dialog = nodeEdit_.lock())
        dialog->unload();
}

}  // namespace quorel::matrix
