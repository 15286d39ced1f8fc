#include "frame/attempt.h"
#include "matrix/frm_matrix_browser.h"
#include "platform/automation/calls.h"
#include "platform/ui/menu.h"

namespace quorel::matrix {

using automation::Object;

void frmMatrixBrowser::buildMenus() {
    ui::MenuItem& repository = menuBar().add(u"mnuRepository", u"&Repository");
    repository.add(u"mnuSelect", u"&Select...").onClick.connect([this] { mnuSelect_Click(); });
    repository.add(u"mnuShowMetamodel", u"Show &metamodel").onClick.connect([this] {
        mnuShowMetamodel_Click();
    });
    ui::MenuItem& go = menuBar().add(u"mnuGo", u"&Go");
    go.add(u"mnuBack", u"&Back", {ui::Key::Left, ui::Modifiers::Alt}).onClick.connect([this] {
        mnuBack_Click();
    });
    go.add(u"mnuForward", u"&Forward", {ui::Key::Right, ui::Modifiers::Alt}).onClick.connect([this] {
        mnuForward_Click();
    });
    // The mouse's buttons.
    onNavigate.connect([this](ui::Navigation where) {
        where == ui::Navigation::Back ? mnuBack_Click() : mnuForward_Click();
    });
    showTravel();
}

/// The popups' entries stand below the lists' own.
void frmMatrixBrowser::buildListMenus() {
    const auto add = [this](controls::ListView& list, std::u16string_view entry,
                            std::u16string_view caption) {
        list.list().contextMenu().add(entry, caption).onClick.connect([this, entry] {
            if (const auto menus = menuForm_)
                menus->userChose(entry);
        });
    };
    sourceInstanceList_.list().contextMenu().addSeparator();
    add(sourceInstanceList_, u"mnuEdit", kEditCaption);
    add(sourceInstanceList_, u"mnuNavigate", kNavigateCaption);
    targetInstanceList_.list().contextMenu().addSeparator();
    add(targetInstanceList_, u"mnuEditTargetNode", kEditCaption);
}

void frmMatrixBrowser::mnuSelect_Click() {
    procedure(u"mnuSelect_Click", [this] {
        const Object manager = repositoryManager_;
        if (!IsObjectSet(manager))
            return;
        const Object chosen = manager.call(u"SelectDialog").toObject();
        if (IsObjectSet(chosen))
            SetRepository(chosen.get(u"Repository").toObject());
    });
}

void frmMatrixBrowser::mnuBack_Click() {
    procedure(u"mnuBack_Click", [this] { travelTo(visited_.goBack()); });
}

void frmMatrixBrowser::mnuForward_Click() {
    procedure(u"mnuForward_Click", [this] { travelTo(visited_.goForward()); });
}

void frmMatrixBrowser::travelTo(const Object& node) {
    if (!node)
        return;
    travelling_ = true;
    SetSelection(node);
    travelling_ = false;
    showTravel();
}

void frmMatrixBrowser::showTravel() {
    menuBar().find(u"mnuBack")->setEnabled(visited_.canGoBack());
    menuBar().find(u"mnuForward")->setEnabled(visited_.canGoForward());
}

}  // namespace quorel::matrix
