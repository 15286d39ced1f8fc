#include "navigator/model_page.h"

#include "platform/automation/calls.h"
#include "platform/automation/text.h"

namespace quorel::navigator {

using automation::Object;
using namespace ui::literals;

namespace {

constexpr ui::Twips kTypeNameWidth = 2400_tw, kKindWidth = 1050_tw, kCountWidth = 1050_tw;

}  // namespace

ModelPage::ModelPage(std::u16string_view name, ui::Desktop& desktop)
    : Panel(name),
      desktop_(desktop),
      typesCaption_(&add<ui::Label>(u"TypesCaption")),
      types_(&add<controls::ListView>(u"Types", desktop)),
      splitter_(&add<ui::Splitter>(u"TypesSplitter", ui::Orientation::Vertical)),
      instancesCaption_(&add<ui::Label>(u"InstancesCaption")),
      instances_(&add<controls::ListView>(u"Instances", desktop)) {
    typesCaption_->setText(u"T&ypes");
    instancesCaption_->setText(u"&Instances");
    types_->list().setToolTip(u"Select a type to see its instances");
    instances_->list().setToolTip(u"Enter edits the properties, Ctrl+F filters, Ctrl+C copies");
    splitter_->onMove.connect([this](ui::Twips left) { setShare(shareAt(bounds().size(), left)); });
}

void ModelPage::addTypes(const Object& collection, TypeKind kind) {
    for (const Object& type : automation::each(collection))
        if (type)
            types_->addObject(automation::make<TypeRow>(type, kind));
}

void ModelPage::fill(const Object& repository) {
    empty();
    types_->addColumn(u"Name", u"LinkName", kTypeNameWidth);
    types_->addColumn(u"Kind", u"Kind", kKindWidth);
    types_->addColumn(u"Instances", u"Instances", kCountWidth);
    addTypes(repository.get(u"MetaNodes").toObject(), TypeKind::MetaNode);
    addTypes(repository.get(u"MetaLinks").toObject(), TypeKind::MetaLink);
    if (types_->count() > 0)
        types_->setSelectedObject(types_->objectAt(0));
    showInstances();
}

void ModelPage::refresh(const Object& repository) {
    const Object type = types_->selectedObject();
    const Object instance = selectedInstance();
    fill(repository);
    if (!type)
        return;
    types_->setSelectedObject(type);
    showInstances();
    if (instance)
        instances_->setSelectedObject(instance);
}

void ModelPage::showInstances() {
    const automation::Ref<TypeRow> row = selectedRow();
    hasBinaryProperty_ = false;
    if (!row) {
        instances_->empty();
        return;
    }
    if (row->kind() == TypeKind::MetaNode)
        instances_->fillWithExtension(row->type(), true);
    else
        instances_->fillWithLinks(row->type(), true);
    readBinaryProperty(row->type());
}

void ModelPage::readBinaryProperty(const Object& type) {
    for (const Object& property : automation::each(type.get(u"Properties").toObject()))
        if (automation::equalsIgnoringCase(property.get(u"datatype").toString(), u"Binary"))
            hasBinaryProperty_ = true;
}

void ModelPage::empty() {
    hasBinaryProperty_ = false;
    types_->empty();
    instances_->empty();
}

automation::Ref<TypeRow> ModelPage::selectedRow() const {
    return automation::Ref<TypeRow>(dynamic_cast<TypeRow*>(types_->selectedObject().native()));
}

Object ModelPage::selectedType() const {
    const automation::Ref<TypeRow> row = selectedRow();
    return row ? row->type() : Object();
}

std::u16string ModelPage::typesText() const {
    return countedText(u"Types", *types_);
}

std::u16string ModelPage::instancesText() const {
    return countedText(u"Instances", *instances_);
}

void ModelPage::setShare(std::int32_t share) {
    share_ = share;
    boundsChanged();
}

void ModelPage::boundsChanged() {
    const ModelLayout layout = layoutModel(bounds().size(), desktop_.textSize(u"Xg").height, share_);
    typesCaption_->setBounds(layout.typesCaption);
    types_->setBounds(layout.types);
    splitter_->setBounds(layout.splitter);
    instancesCaption_->setBounds(layout.instancesCaption);
    instances_->setBounds(layout.instances);
}

std::u16string countedText(std::u16string_view what, const controls::ListView& list) {
    std::u16string text(what);
    text.append(u": ");
    if (list.shownCount() != list.count())
        text.append(automation::decimal(static_cast<std::int64_t>(list.shownCount()))).append(u" of ");
    return text.append(automation::decimal(static_cast<std::int64_t>(list.count())));
}

}  // namespace quorel::navigator
