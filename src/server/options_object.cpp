#include "server/QuorelUtility.h"
#include "server/com_class_objects.h"
#include "server/com_server_object.h"
#include "settings/options.h"

namespace quorel::server {

namespace {

class OptionsObject final : public ServerObject<IOptions, settings::Options> {
  public:
    using ServerObject::ServerObject;

    STDMETHODIMP Create() override { return run(&PortableClass::Create); }
    STDMETHODIMP get_Settings(ISettings** result) override {
        if (result == nullptr)
            return E_POINTER;
        *result = nullptr;
        win32::ComPtr<IDispatch> store;
        const HRESULT status = answer(store.out(), &PortableClass::Settings);
        if (FAILED(status) || !store)
            return status;
        return store->QueryInterface(__uuidof(ISettings), reinterpret_cast<void**>(result));
    }
    STDMETHODIMP Destroy() override { return run(&PortableClass::Destroy); }
    STDMETHODIMP Init(IDispatch** aRepInfo, BSTR* applicationTitle, BSTR* category) override {
        return run(&PortableClass::Init, aRepInfo, applicationTitle, category);
    }
    STDMETHODIMP InitForm() override { return run(&PortableClass::InitForm); }
    STDMETHODIMP Deinit() override { return run(&PortableClass::Deinit); }
    STDMETHODIMP PopUp() override { return run(&PortableClass::PopUp); }
    STDMETHODIMP Conceal() override { return run(&PortableClass::Conceal); }
};

}  // namespace

win32::ComClass optionsClass(const automation::ClassRegistry& registry) {
    return offer<OptionsObject>(registry, __uuidof(::Options), u"QuorelUtility.Options",
                                u"A modal dialog that edits the settings of one category.");
}

}  // namespace quorel::server
