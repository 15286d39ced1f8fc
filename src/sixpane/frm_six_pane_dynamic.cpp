#include "platform/automation/calls.h"
#include "sixpane/frm_dyn_meta_object.h"
#include "sixpane/frm_six_pane.h"

namespace quorel::sixpane {

using automation::Object;

bool frmSixPane::EditMetaObject(bool asClass, DynamicMetaObject& edited) {
    const auto dialog = std::make_shared<frmDynMetaObject>(desktop());
    dialog->setMetaObjectName(edited.name);
    dialog->setIsPersistent(edited.isPersistent);
    dialog->setDescription(edited.description);
    if (asClass)
        dialog->AsMetaClass();
    else
        dialog->AsMetaAssoc();
    if (!ask(dialog) || !dialog->IsOk())
        return false;
    edited = {dialog->MetaObjectName(), dialog->IsPersistent(), dialog->Description()};
    return true;
}

void frmSixPane::mnuEditDynamic_Click() {
    procedure(u"mnuEditDynamic_Click", [this] {
        ui::MenuItem& entry = *menuBar().find(u"mnuEditDynamic");
        editsMetamodel_ = !entry.isChecked();
        entry.setChecked(editsMetamodel_);
        CheckDynamic();
    });
}

void frmSixPane::CheckDynamic() {
    for (ui::MenuItem* const entry : metamodelEntries_)
        entry->setVisible(editsMetamodel_);
}

void frmSixPane::Dynamic_Click(std::size_t index) {
    procedure(u"Dynamic_Click", [&] {
        switch (index) {
            case 0:
            case 4:
                newMetaClass();
                break;
            case 1:
                deleteMetaObject(Pane::SourceMetaNode, u"DeleteDynamicMetaClass");
                break;
            case 2:
                newMetaAssoc();
                break;
            case 3:
                deleteMetaObject(Pane::MetaLink, u"DeleteDynamicMetaAssoc");
                break;
            case 5:
                deleteMetaObject(Pane::TargetMetaNode, u"DeleteDynamicMetaClass");
                break;
            default:
                break;
        }
    });
}

void frmSixPane::newMetaClass() {
    DynamicMetaObject wanted;
    if (!EditMetaObject(true, wanted))
        return;
    const Object repository = repository_;
    const Object metaNode =
        repository.call(u"MakeDynamicMetaClass", wanted.name, wanted.description).toObject();
    setPersistent(metaNode, wanted.isPersistent);
    if (repository != repository_)
        return;
    pane(Pane::SourceMetaNode).addObject(metaNode);
    pane(Pane::TargetMetaNode).addObject(metaNode);
}

void frmSixPane::newMetaAssoc() {
    DynamicMetaObject wanted;
    if (!EditMetaObject(false, wanted))
        return;
    const Object source = pane(Pane::SourceMetaNode).selectedObject();
    const Object target = pane(Pane::TargetMetaNode).selectedObject();
    if (!source || !target)
        return;
    const Object repository = repository_;
    const std::u16string composed =
        source.get(u"name").toString() + u"." + wanted.name + u"." + target.get(u"name").toString();
    const Object metaLink = repository.call(u"MakeDynamicMetaAssoc", composed, wanted.description).toObject();
    setPersistent(metaLink, wanted.isPersistent);
    if (repository == repository_)
        pane(Pane::MetaLink).addObject(metaLink);
}

void frmSixPane::setPersistent(const Object& metaObject, bool isPersistent) {
    // The meta object has been made: its list shows it even if this fails.
    procedure(u"Dynamic_Click", [&] { metaObject.put(u"IsPersistent", isPersistent); });
}

void frmSixPane::deleteMetaObject(Pane metaObjects, std::u16string_view member) {
    const Object metaObject = pane(metaObjects).selectedObject();
    if (metaObject && metaObject.get(u"IsDynamic").toBoolean()) {
        const std::u16string name = metaObject.get(u"name").toString();
        if (isLoaded())
            Object(repository_).call(member, name);
    }
    if (!isLoaded())
        return;
    for (const Pane which : {Pane::SourceMetaNode, Pane::TargetMetaNode, Pane::MetaLink, Pane::SourceNode,
                             Pane::TargetNode, Pane::Link})
        pane(which).empty();
    Populate();
}

}  // namespace quorel::sixpane
