#include "server/QuorelUtility.h"
#include "server/com_class_objects.h"
#include "server/com_server_object.h"
#include "settings/settings.h"

namespace quorel::server {

namespace {

class SettingsObject final : public ServerObject<ISettings, settings::Settings> {
  public:
    using ServerObject::ServerObject;

    STDMETHODIMP Create() override { return run(&PortableClass::Create); }
    STDMETHODIMP Init(BSTR* applicationTitle, BSTR* category, IDispatch** appREPInfo) override {
        return run(&PortableClass::Init, applicationTitle, category, appREPInfo);
    }
    STDMETHODIMP Deinit() override { return run(&PortableClass::Deinit); }
    STDMETHODIMP Destroy() override { return run(&PortableClass::Destroy); }
    STDMETHODIMP GetEntry(BSTR aSettingSpec, BSTR* avalue, BSTR aDefault, VARIANT_BOOL* result) override {
        return answer(result, &PortableClass::GetEntry, aSettingSpec, avalue, aDefault);
    }
    STDMETHODIMP hasEntry(BSTR aSettingSpec, VARIANT_BOOL* result) override {
        return answer(result, &PortableClass::hasEntry, aSettingSpec);
    }
    STDMETHODIMP SetEntry(BSTR aSettingSpec, BSTR* avalue, VARIANT_BOOL* result) override {
        return answer(result, &PortableClass::SetEntry, aSettingSpec, avalue);
    }
    STDMETHODIMP initSetting(BSTR aSettingSpec, BSTR* aDefault, BSTR* anEditType, BSTR* anEditCategory,
                             BSTR* anEditDescription, VARIANT_BOOL* result) override {
        return answer(result, &PortableClass::initSetting, aSettingSpec, aDefault, anEditType, anEditCategory,
                      anEditDescription);
    }
    STDMETHODIMP getSettings(IDispatch** result) override {
        return answer(result, &PortableClass::getSettings);
    }
    STDMETHODIMP SearchLinkedObject(IDispatch** repObject, BSTR* Link, VARIANT_BOOL* outgoing, BSTR* prop,
                                    VARIANT* Value, IDispatch** result) override {
        return answer(result, &PortableClass::SearchLinkedObject, repObject, Link, outgoing, prop, Value);
    }
};

}  // namespace

win32::ComClass settingsClass(const automation::ClassRegistry& registry) {
    return offer<SettingsObject>(
        registry, __uuidof(::Settings), u"QuorelUtility.Settings",
        u"Settings of one category: values kept per user, descriptions kept in the repository.");
}

}  // namespace quorel::server
