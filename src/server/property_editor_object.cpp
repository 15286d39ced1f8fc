#include "dialogs/property_editor.h"
#include "server/QuorelUtility.h"
#include "server/com_class_objects.h"
#include "server/com_server_object.h"

namespace quorel::server {

namespace {

class PropertyEditorObject final : public ServerObject<IPropertyEditor, dialogs::PropertyEditor> {
  public:
    using ServerObject::ServerObject;

    STDMETHODIMP Create(BSTR* Path) override { return run(&PortableClass::Create, Path); }
    STDMETHODIMP Destroy() override { return run(&PortableClass::Destroy); }
    STDMETHODIMP Init(IDispatch** mo) override { return run(&PortableClass::Init, mo); }
    STDMETHODIMP Deinit() override { return run(&PortableClass::Deinit); }
    STDMETHODIMP PopUp(VARIANT_BOOL modal) override { return run(&PortableClass::PopUp, modal); }
    STDMETHODIMP Conceal() override { return run(&PortableClass::Conceal); }
    STDMETHODIMP putref_repObject(IDispatch* value) override {
        return run(&PortableClass::setRepObject, value);
    }
    STDMETHODIMP get_repObject(IDispatch** result) override {
        return answer(result, &PortableClass::repObject);
    }
    STDMETHODIMP get_OK(VARIANT_BOOL* result) override { return answer(result, &PortableClass::OK); }
    STDMETHODIMP get_Cancelled(VARIANT_BOOL* result) override {
        return answer(result, &PortableClass::Cancelled);
    }
    STDMETHODIMP get_CallbackObject(IDispatch** result) override {
        return answer(result, &PortableClass::CallbackObject);
    }
    STDMETHODIMP putref_CallbackObject(IDispatch* value) override {
        return run(&PortableClass::setCallbackObject, value);
    }
    STDMETHODIMP put_Caption(BSTR value) override { return run(&PortableClass::setCaption, value); }
    STDMETHODIMP get_Caption(BSTR* result) override { return answer(result, &PortableClass::Caption); }
    STDMETHODIMP put_ReadOnly(VARIANT_BOOL value) override { return run(&PortableClass::setReadOnly, value); }
    STDMETHODIMP get_ReadOnly(VARIANT_BOOL* result) override {
        return answer(result, &PortableClass::ReadOnly);
    }
};

}  // namespace

win32::ComClass propertyEditorClass(const automation::ClassRegistry& registry) {
    return offer<PropertyEditorObject>(registry, __uuidof(::PropertyEditor), u"QuorelUtility.PropertyEditor",
                                       u"Edits the properties of one repository object.");
}

}  // namespace quorel::server
