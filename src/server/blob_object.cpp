#include "frame/blob.h"
#include "server/QuorelUtility.h"
#include "server/com_class_objects.h"
#include "server/com_server_object.h"

namespace quorel::server {

namespace {

class BlobObject final : public ServerObject<IBlob, frame::Blob> {
  public:
    using ServerObject::ServerObject;

    STDMETHODIMP putref_repObject(IDispatch* value) override {
        return run(&PortableClass::setRepObject, value);
    }
    STDMETHODIMP get_repObject(IDispatch** result) override {
        return answer(result, &PortableClass::repObject);
    }
    STDMETHODIMP setPropertyFromString(BSTR* name, BSTR* v, BSTR* result) override {
        return answer(result, &PortableClass::setPropertyFromString, name, v);
    }
    STDMETHODIMP getPropertyAsString(BSTR* name, BSTR* result) override {
        return answer(result, &PortableClass::getPropertyAsString, name);
    }
    STDMETHODIMP setPropertyFromByteArray(BSTR* name, VARIANT* v, VARIANT* result) override {
        return answer(result, &PortableClass::setPropertyFromByteArray, name, v);
    }
    STDMETHODIMP getPropertyAsByteArray(BSTR* name, VARIANT* result) override {
        return answer(result, &PortableClass::getPropertyAsByteArray, name);
    }
    STDMETHODIMP loadPropertyFromFile(BSTR* name, BSTR* filename, VARIANT* result) override {
        return answer(result, &PortableClass::loadPropertyFromFile, name, filename);
    }
    STDMETHODIMP storePropertyToFile(BSTR* name, BSTR* filename, VARIANT* result) override {
        return answer(result, &PortableClass::storePropertyToFile, name, filename);
    }
    STDMETHODIMP setPropertyFromPicture(BSTR* name, VARIANT* v, VARIANT* result) override {
        return answer(result, &PortableClass::setPropertyFromPicture, name, v);
    }
    STDMETHODIMP getPropertyAsPicture(BSTR* name, VARIANT* result) override {
        return answer(result, &PortableClass::getPropertyAsPicture, name);
    }
    STDMETHODIMP getAsString(VARIANT* v, BSTR* result) override {
        return answer(result, &PortableClass::getAsString, v);
    }
    STDMETHODIMP setAsString(VARIANT* v, BSTR* s, VARIANT* result) override {
        return answer(result, &PortableClass::setAsString, v, s);
    }
    STDMETHODIMP Dec(BSTR* aHex, LONG* result) override { return answer(result, &PortableClass::Dec, aHex); }
    STDMETHODIMP PictureFromBits(VARIANT* v, IPictureDisp** result) override {
        if (result == nullptr)
            return E_POINTER;
        *result = nullptr;
        win32::ComPtr<IDispatch> picture;
        const HRESULT status = answer(picture.out(), &PortableClass::PictureFromBits, v);
        if (FAILED(status) || !picture)
            return status;
        return picture->QueryInterface(__uuidof(IPictureDisp), reinterpret_cast<void**>(result));
    }
    STDMETHODIMP StoreToFile(VARIANT* v, BSTR* filename, VARIANT* result) override {
        return answer(result, &PortableClass::StoreToFile, v, filename);
    }
    STDMETHODIMP LoadFromFile(BSTR* filename, VARIANT* result) override {
        return answer(result, &PortableClass::LoadFromFile, filename);
    }
};

}  // namespace

win32::ComClass blobClass(const automation::ClassRegistry& registry) {
    return offer<BlobObject>(
        registry, __uuidof(::Blob), u"QuorelUtility.Blob",
        u"Moves binary property values between a repository object, texts, files and pictures.");
}

}  // namespace quorel::server
