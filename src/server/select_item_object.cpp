#include "dialogs/select_item.h"
#include "server/QuorelUtility.h"
#include "server/com_class_objects.h"
#include "server/com_server_object.h"

namespace quorel::server {

namespace {

class SelectItemObject final : public ServerObject<ISelectItem, dialogs::SelectItem> {
  public:
    using ServerObject::ServerObject;

    STDMETHODIMP Create() override { return run(&PortableClass::Create); }
    STDMETHODIMP Destroy() override { return run(&PortableClass::Destroy); }
    STDMETHODIMP PopUp() override { return run(&PortableClass::PopUp); }
    STDMETHODIMP Conceal() override { return run(&PortableClass::Conceal); }
    STDMETHODIMP put_Statement(BSTR value) override { return run(&PortableClass::setStatement, value); }
    STDMETHODIMP put_Caption(BSTR value) override { return run(&PortableClass::setCaption, value); }
    STDMETHODIMP get_Selection(IDispatch** result) override {
        return answer(result, &PortableClass::Selection);
    }
    STDMETHODIMP IsOk(VARIANT_BOOL* result) override { return answer(result, &PortableClass::IsOk); }
    STDMETHODIMP AsListView(VARIANT_BOOL checkboxes) override {
        return run(&PortableClass::AsListView, checkboxes);
    }
    STDMETHODIMP AddColumn(BSTR* name, LONG width) override {
        return run(&PortableClass::AddColumn, name, width);
    }
    STDMETHODIMP AddItem(BSTR* str, IDispatch** ob, BSTR prop1, BSTR prop2, BSTR prop3, BSTR prop4,
                         BSTR prop5, BSTR prop6, BSTR prop7) override {
        return run(&PortableClass::AddItem, str, ob, prop1, prop2, prop3, prop4, prop5, prop6, prop7);
    }
};

}  // namespace

win32::ComClass selectItemClass(const automation::ClassRegistry& registry) {
    return offer<SelectItemObject>(registry, __uuidof(::SelectItem), u"QuorelUtility.SelectItem",
                                   u"A modal dialog that offers items of the host for choice.");
}

}  // namespace quorel::server
