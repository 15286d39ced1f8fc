#include "settings/setting_entry.h"

namespace quorel::settings {

const automation::ClassTable& SettingEntry::classTable() const {
    static const automation::ClassTable table =
        automation::ClassTable::of<SettingEntry>(u"SettingEntry")
            .property(u"Value", &SettingEntry::Value, &SettingEntry::setValue)
            .property(u"Setting", &SettingEntry::Setting, &SettingEntry::setSetting)
            .property(u"EditType", &SettingEntry::EditType, &SettingEntry::setEditType)
            .property(u"EditCategory", &SettingEntry::EditCategory, &SettingEntry::setEditCategory)
            .property(u"EditDescription", &SettingEntry::EditDescription, &SettingEntry::setEditDescription);
    return table;
}

}  // namespace quorel::settings
