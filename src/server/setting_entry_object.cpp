#include "server/QuorelUtility.h"
#include "server/com_class_objects.h"
#include "server/com_server_object.h"
#include "settings/setting_entry.h"

namespace quorel::server {

namespace {

class SettingEntryObject final : public ServerObject<ISettingEntry, settings::SettingEntry> {
  public:
    using ServerObject::ServerObject;

    STDMETHODIMP put_Value(BSTR value) override { return run(&PortableClass::setValue, value); }
    STDMETHODIMP get_Value(BSTR* result) override { return answer(result, &PortableClass::Value); }
    STDMETHODIMP put_Setting(BSTR value) override { return run(&PortableClass::setSetting, value); }
    STDMETHODIMP get_Setting(BSTR* result) override { return answer(result, &PortableClass::Setting); }
    STDMETHODIMP put_EditType(BSTR value) override { return run(&PortableClass::setEditType, value); }
    STDMETHODIMP get_EditType(BSTR* result) override { return answer(result, &PortableClass::EditType); }
    STDMETHODIMP put_EditCategory(BSTR value) override { return run(&PortableClass::setEditCategory, value); }
    STDMETHODIMP get_EditCategory(BSTR* result) override {
        return answer(result, &PortableClass::EditCategory);
    }
    STDMETHODIMP put_EditDescription(BSTR value) override {
        return run(&PortableClass::setEditDescription, value);
    }
    STDMETHODIMP get_EditDescription(BSTR* result) override {
        return answer(result, &PortableClass::EditDescription);
    }
};

}  // namespace

win32::ComClass settingEntryClass(const automation::ClassRegistry& registry) {
    return offer<SettingEntryObject>(registry, __uuidof(::SettingEntry), u"QuorelUtility.SettingEntry",
                                     u"One setting as a plain record.");
}

}  // namespace quorel::server
