#include "frame/attempt.h"
#include "platform/automation/calls.h"
#include "sixpane/frm_six_pane.h"

namespace quorel::sixpane {

using automation::Object;

void frmSixPane::buildMenus() {
    ui::MenuItem& repository = menuBar().add(u"mnuRepository", u"&Repository");
    repository.add(u"mnuSelect", u"&Select\u2026").onClick.connect([this] { mnuSelect_Click(); });
    repository.add(u"mnuShowMetamodel", u"Show &Metamodel").onClick.connect([this] {
        mnuShowMetamodel_Click();
    });
    repository.addSeparator();
    repository.add(u"mnuClose", u"&Close").onClick.connect([this] { userClosed(); });

    ui::MenuItem& edit = menuBar().add(u"mnuEdit", u"&Edit");
    edit.add(u"mnuEditDynamic", u"Edit &Metamodel").onClick.connect([this] { mnuEditDynamic_Click(); });

    ui::MenuItem& view = menuBar().add(u"mnuView", u"&View");
    view.add(u"mnuRefresh", u"&Refresh", {ui::Key::F5}).onClick.connect([this] { mnuRefresh_Click(); });
    view.add(u"mnuProperties", u"&Properties", {ui::Key::Enter, ui::Modifiers::Alt}).onClick.connect([this] {
        mnuProperties_Click();
    });
    view.addSeparator();
    view.add(u"mnuResetLayout", u"Reset &Layout").onClick.connect([this] { mnuResetLayout_Click(); });
}

void frmSixPane::mnuSelect_Click() {
    procedure(u"mnuSelect_Click", [this] {
        if (!IsObjectSet(repositoryManager_))
            return;
        // The chosen repository is only tested: the panes end up empty until the host populates them again.
        if (!IsObjectSet(repositoryManager_.call(u"SelectDialog").toObject()))
            return;
        Deinit();
        Init();
    });
}

void frmSixPane::mnuRefresh_Click() {
    procedure(u"mnuRefresh_Click", [this] {
        std::array<Object, kPaneCount> selected;
        for (std::size_t i = 0; i < kPaneCount; ++i)
            selected[i] = panes_[i]->selectedObject();
        // What was selected may be gone, and then cannot even tell its identifier.
        const auto select = [&](Pane which) {
            frame::attempt([&] { pane(which).setSelectedObject(selected[indexOf(which)]); });
        };
        fillTypePanes();
        for (const Pane which : {Pane::SourceMetaNode, Pane::TargetMetaNode, Pane::MetaLink})
            select(which);
        fillNodes(Pane::SourceNode, Pane::SourceMetaNode);
        fillLinks();
        fillNodes(Pane::TargetNode, Pane::TargetMetaNode);
        for (const Pane which : {Pane::SourceNode, Pane::Link, Pane::TargetNode})
            select(which);
    });
}

void frmSixPane::mnuProperties_Click() {
    procedure(u"mnuProperties_Click", [this] {
        constexpr std::array<ObjectKind, kPaneCount> kKinds{ObjectKind::MetaNode, ObjectKind::Node,
                                                            ObjectKind::MetaLink, ObjectKind::Link,
                                                            ObjectKind::MetaNode, ObjectKind::Node};
        for (std::size_t i = 0; i < kPaneCount; ++i) {
            if (!panes_[i]->list().hasFocus())
                continue;
            if (const Object object = panes_[i]->selectedObject())
                DisplayObject(object, kKinds[i]);
            return;
        }
    });
}

void frmSixPane::mnuResetLayout_Click() {
    splits_ = Splits{};
    place();
}

}  // namespace quorel::sixpane
