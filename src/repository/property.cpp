#include "repository/property.h"

#include "repository/meta_object.h"

namespace quorel::repository {

const automation::ClassTable& Property::classTable() const {
    static const automation::ClassTable table = automation::ClassTable::of<Property>(u"Property")
                                                    .property(u"Value", &Property::value, &Property::setValue)
                                                    .withId(automation::MemberId::Default)
                                                    .readOnly(u"name", &Property::name)
                                                    .readOnly(u"datatype", &Property::dataType)
                                                    .readOnly(u"Description", &Property::description)
                                                    .readOnly(u"Values", &Property::values)
                                                    .readOnly(u"Category", &Property::category)
                                                    .readOnly(u"Parent", &Property::parent);
    return table;
}

std::u16string ElementProperty::dataType() const {
    return std::u16string(dataTypeName(slot_->record.type));
}

automation::Value ElementProperty::values() const {
    return valuesOf(slot_->record);
}

}  // namespace quorel::repository
