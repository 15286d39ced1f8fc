#include "dialogs/name_edit.h"
#include "server/QuorelUtility.h"
#include "server/com_class_objects.h"
#include "server/com_server_object.h"

namespace quorel::server {

namespace {

class NameEditObject final : public ServerObject<INameEdit, dialogs::NameEdit> {
  public:
    using ServerObject::ServerObject;

    STDMETHODIMP Create() override { return run(&PortableClass::Create); }
    STDMETHODIMP Destroy() override { return run(&PortableClass::Destroy); }
    STDMETHODIMP PopUp() override { return run(&PortableClass::PopUp); }
    STDMETHODIMP Conceal() override { return run(&PortableClass::Conceal); }
    STDMETHODIMP Caption(BSTR* val) override { return run(&PortableClass::Caption, val); }
    STDMETHODIMP Question(BSTR* val) override { return run(&PortableClass::Question, val); }
    STDMETHODIMP get_name(BSTR* result) override { return answer(result, &PortableClass::name); }
    STDMETHODIMP put_name(BSTR value) override { return run(&PortableClass::setName, value); }
    STDMETHODIMP IsOk(VARIANT_BOOL* result) override { return answer(result, &PortableClass::IsOk); }
};

}  // namespace

win32::ComClass nameEditClass(const automation::ClassRegistry& registry) {
    return offer<NameEditObject>(registry, __uuidof(::NameEdit), u"QuorelUtility.NameEdit",
                                 u"Asks the user for one name.");
}

}  // namespace quorel::server
