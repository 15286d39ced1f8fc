#include "frame/uuid_generator.h"
#include "server/QuorelUtility.h"
#include "server/com_class_objects.h"
#include "server/com_server_object.h"

namespace quorel::server {

namespace {

class UUIDGeneratorObject final : public ServerObject<IUUIDGenerator, frame::UUIDGenerator> {
  public:
    using ServerObject::ServerObject;

    STDMETHODIMP Create(VARIANT* result) override { return answer(result, &PortableClass::Create); }
    STDMETHODIMP Init(BSTR nameSpace, VARIANT* result) override {
        return answer(result, &PortableClass::Init, nameSpace);
    }
    STDMETHODIMP GetUUID(BSTR* result) override { return answer(result, &PortableClass::GetUUID); }
    STDMETHODIMP Deinit(VARIANT* result) override { return answer(result, &PortableClass::Deinit); }
    STDMETHODIMP Destroy(VARIANT* result) override { return answer(result, &PortableClass::Destroy); }
};

}  // namespace

win32::ComClass uuidGeneratorClass(const automation::ClassRegistry& registry) {
    return offer<UUIDGeneratorObject>(registry, __uuidof(::UUIDGenerator), u"QuorelUtility.UUIDGenerator",
                                      u"Makes the identifiers of nodes and links.");
}

}  // namespace quorel::server
