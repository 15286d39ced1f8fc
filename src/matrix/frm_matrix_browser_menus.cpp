#include <algorithm>
#include <array>

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
    buildPaneMenu();
    showTravel();
}

/// Four of the five lists have no caption whose access key could lead to them.
void frmMatrixBrowser::buildPaneMenu() {
    struct Pane {
        std::u16string_view entry, caption;
        controls::ListView& list;
        ui::Key key;
    };
    ui::MenuItem& view = menuBar().add(u"mnuView", u"&View");
    for (const Pane& pane :
         {Pane{u"mnuMetaNodes", u"Meta &nodes", sourceMetaNodeList_, ui::key('1')},
          Pane{u"mnuInstances", u"&Instances", sourceInstanceList_, ui::key('2')},
          Pane{u"mnuIncoming", u"In&coming meta links", metaLinkListIncoming_, ui::key('3')},
          Pane{u"mnuOutgoing", u"&Outgoing meta links", metaLinkListOutgoing_, ui::key('4')},
          Pane{u"mnuTargets", u"&Target instances", targetInstanceList_, ui::key('5')}})
        view.add(pane.entry, pane.caption, {pane.key, ui::Modifiers::Control})
            .onClick.connect([&list = pane.list] { list.list().focus(); });
    view.addSeparator();
    view.add(u"mnuNextPane", u"Ne&xt list", {ui::Key::F6}).onClick.connect([this] { goToPane(1); });
    view.add(u"mnuPreviousPane", u"&Previous list", {ui::Key::F6, ui::Modifiers::Shift})
        .onClick.connect([this] { goToPane(-1); });
}

/// Its rows or its filter.
bool frmMatrixBrowser::hasFocus(controls::ListView& list) const {
    for (const ui::Control* at = focusedControl(); at != nullptr; at = at->parent())
        if (at == &list)
            return true;
    return false;
}

void frmMatrixBrowser::goToPane(int step) {
    const std::array<controls::ListView*, 5> panes{&sourceMetaNodeList_, &sourceInstanceList_,
                                                   &metaLinkListIncoming_, &metaLinkListOutgoing_,
                                                   &targetInstanceList_};
    const auto at = std::find_if(panes.begin(), panes.end(), [this](auto* list) { return hasFocus(*list); });
    // From elsewhere the first step leads into the grid.
    const int count = static_cast<int>(panes.size());
    const int from = at != panes.end() ? static_cast<int>(at - panes.begin()) : (step > 0 ? -1 : count);
    panes[static_cast<std::size_t>((from + step + count) % count)]->list().focus();
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
