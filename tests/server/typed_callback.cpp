#include "tests/server/typed_callback.h"

#include <stdexcept>

#include "tests/server/server_dll.h"

namespace quorel::server::testing {

TypedCallback::TypedCallback() {
    win32::ComPtr<ITypeLib> library;
    if (FAILED(::LoadTypeLibEx(beside(L"server_test.exe").c_str(), REGKIND_NONE, library.out())) ||
        FAILED(library->GetTypeInfoOfGuid(__uuidof(IPropertyEvents), description_.out())))
        throw std::runtime_error("the test program has lost its type library");
}

HRESULT TypedCallback::take(const EventArguments& arguments) {
    log.emplace_back(arguments.event);
    return act ? act(arguments) : S_OK;
}

STDMETHODIMP TypedCallback::QueryInterface(REFIID iid, void** result) {
    return ComObject::QueryInterface(iid == IID_IDispatch ? __uuidof(IPropertyEvents) : iid, result);
}

STDMETHODIMP TypedCallback::CreatePropertyControl(IDispatch** property, VARIANT_BOOL* handled) {
    return take({L"CreatePropertyControl", property, handled});
}

STDMETHODIMP TypedCallback::PropertyControlCreated(IDispatch** property, IDispatch* control) {
    return take({L"PropertyControlCreated", property, nullptr, control});
}

STDMETHODIMP TypedCallback::NewProperty(IDispatch** property) {
    return take({L"NewProperty", property});
}

STDMETHODIMP TypedCallback::PropertyDeleted(IDispatch** property) {
    return take({L"PropertyDeleted", property});
}

STDMETHODIMP TypedCallback::PropertyChanged(IDispatch** property, BSTR* oldText, BSTR* newText, VARIANT,
                                            VARIANT_BOOL* cancel) {
    return take({L"PropertyChanged", property, cancel, nullptr, oldText, newText});
}

STDMETHODIMP TypedCallback::PropertyValidate(IDispatch** property, VARIANT, VARIANT, VARIANT_BOOL* valid) {
    return take({L"PropertyValidate", property, valid});
}

STDMETHODIMP TypedCallback::GetTypeInfoCount(UINT* count) {
    *count = 1;
    return S_OK;
}

STDMETHODIMP TypedCallback::GetTypeInfo(UINT, LCID, ITypeInfo** result) {
    *result = win32::ComPtr<ITypeInfo>(description_).detach();
    return S_OK;
}

STDMETHODIMP TypedCallback::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
    return description_->GetIDsOfNames(names, count, ids);
}

STDMETHODIMP TypedCallback::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters,
                                   VARIANT* result, EXCEPINFO* failure, UINT* argument) {
    return description_->Invoke(static_cast<IPropertyEvents*>(this), id, flags, parameters, result, failure,
                                argument);
}

HRESULT failWith(HRESULT status, const wchar_t* description, const wchar_t* source) {
    win32::ComPtr<ICreateErrorInfo> made;
    if (SUCCEEDED(::CreateErrorInfo(made.out()))) {
        made->SetDescription(const_cast<wchar_t*>(description));
        made->SetSource(const_cast<wchar_t*>(source));
        ::SetErrorInfo(0, made.as<IErrorInfo>().get());
    }
    return status;
}

}  // namespace quorel::server::testing
