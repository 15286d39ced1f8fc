#include "settings/setting_record.h"

#include "platform/automation/calls.h"
#include "platform/controls/cell_text.h"
#include "settings/setting_names.h"

namespace quorel::settings {

using automation::Object;

void readSettingRecords(const Object& list, std::vector<SettingRecord>& records) {
    for (const Object& link : automation::each(list.call(u"Outgoing_", names::kListHasSetting).toObject())) {
        const Object node = link.get(u"target").toObject();
        const auto text = [&node](std::u16string_view property) {
            return controls::valueText(node.call(u"Prop_", property));
        };
        SettingRecord record;
        record.name = controls::valueText(node.get(u"name"));
        record.value = text(names::kValue);
        record.editType = text(names::kEditType);
        record.editCategory = text(names::kEditCategory);
        record.editDescription = text(names::kEditDescription);
        records.push_back(std::move(record));
    }
}

}  // namespace quorel::settings
