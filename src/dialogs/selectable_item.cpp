#include "dialogs/selectable_item.h"

#include "platform/automation/text.h"

namespace quorel::dialogs {

const automation::ClassTable& SelectableItem::classTable() const {
    using automation::param;
    static const automation::ClassTable table =
        automation::ClassTable::of<SelectableItem>(u"SelectableItem")
            .readOnly(u"name", &SelectableItem::name)
            .readOnly(u"Identifier", &SelectableItem::key)
            .readOnly(u"Prop_", &SelectableItem::property, {param(u"column")});
    return table;
}

std::u16string SelectableItem::key() const {
    return automation::decimal(number_) + u"ID:";
}

std::u16string SelectableItem::property(const std::u16string& column) const {
    if (!texts_ || column.size() != 1 || column.front() < u'1' || column.front() > u'7')
        return {};
    return (*texts_)[static_cast<std::size_t>(column.front() - u'1')];
}

}  // namespace quorel::dialogs
