#include "navigator/search_row.h"

#include "platform/automation/calls.h"
#include "platform/automation/text.h"

namespace quorel::navigator {

const automation::ClassTable& SearchRow::classTable() const {
    static const automation::ClassTable table =
        automation::ClassTable::of<SearchRow>(u"SearchRow")
            .readOnly(u"name", &SearchRow::name)
            .readOnly(u"Identifier", &SearchRow::identifier)
            .method(u"Prop_", &SearchRow::property, {automation::param(u"name")});
    return table;
}

automation::Object SearchRow::object() const {
    return result_.get(u"Object").toObject();
}

std::u16string SearchRow::name() const {
    return result_.get(u"name").toString();
}

std::u16string SearchRow::identifier() const {
    return automation::decimal(place_);
}

std::u16string SearchRow::property(const std::u16string& key) const {
    if (key == u"Kind")
        return result_.get(u"Kind").toString();
    if (key == u"Type")
        return result_.get(u"TypeName").toString();
    const std::u16string property = result_.get(u"PropertyName").toString();
    return property.empty() ? property : property + u": " + result_.get(u"Text").toString();
}

}  // namespace quorel::navigator
