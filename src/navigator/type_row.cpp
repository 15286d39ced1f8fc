#include "navigator/type_row.h"

#include "platform/automation/calls.h"

namespace quorel::navigator {

const automation::ClassTable& TypeRow::classTable() const {
    static const automation::ClassTable table =
        automation::ClassTable::of<TypeRow>(u"TypeRow")
            .readOnly(u"name", &TypeRow::name)
            .readOnly(u"Identifier", &TypeRow::identifier)
            .method(u"Prop_", &TypeRow::property, {automation::param(u"name")});
    return table;
}

std::u16string TypeRow::name() const {
    return type_.get(u"name").toString();
}

std::u16string TypeRow::identifier() const {
    return (kind_ == TypeKind::MetaNode ? u"N " : u"L ") + name();
}

automation::Value TypeRow::property(const std::u16string& key) const {
    if (key == u"Instances")
        return type_.get(u"Extension").toObject().get(u"Count");
    return automation::Value(std::u16string(kind_ == TypeKind::MetaNode ? u"Meta node" : u"Meta link"));
}

}  // namespace quorel::navigator
