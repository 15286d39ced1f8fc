#pragma once

// Late-bound calls in C++, as the samples need them. Failures are thrown as _com_error.

#include <comdef.h>
#include <windows.h>

#include <algorithm>
#include <iterator>
#include <vector>

using IDispatchPtr = _com_ptr_t<_com_IIID<IDispatch, &__uuidof(IDispatch)>>;

/// Starts automation on this thread and ends it.
struct Apartment {
    Apartment() { _com_util::CheckError(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)); }
    ~Apartment() { CoUninitialize(); }
};

inline IDispatchPtr create(const wchar_t* progId) {
    CLSID clsid;
    _com_util::CheckError(CLSIDFromProgID(progId, &clsid));
    IDispatch* object = nullptr;
    _com_util::CheckError(CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                                           reinterpret_cast<void**>(&object)));
    return IDispatchPtr(object, false);
}

/// Calls a method or reads a property.
template <class... Args>
_variant_t call(IDispatch* object, const wchar_t* name, const Args&... arguments) {
    DISPID id = DISPID_UNKNOWN;
    LPOLESTR names = const_cast<LPOLESTR>(name);
    _com_util::CheckError(object->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id));
    std::vector<_variant_t> list{_variant_t(arguments)...};
    std::reverse(list.begin(), list.end());
    DISPPARAMS parameters{list.data(), nullptr, static_cast<UINT>(list.size()), 0};
    _variant_t result;
    _com_util::CheckError(object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT,
                                         DISPATCH_METHOD | DISPATCH_PROPERTYGET, &parameters, &result,
                                         nullptr, nullptr));
    return result;
}

template <class... Args>
IDispatchPtr object(IDispatch* from, const wchar_t* name, const Args&... arguments) {
    return IDispatchPtr(call(from, name, arguments...).pdispVal);
}

/// Set object.name = value
inline void putRef(IDispatch* object, const wchar_t* name, IDispatch* value) {
    DISPID id = DISPID_UNKNOWN;
    LPOLESTR names = const_cast<LPOLESTR>(name);
    _com_util::CheckError(object->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id));
    _variant_t argument(value);
    DISPID named = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{&argument, &named, 1, 1};
    _com_util::CheckError(object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYPUTREF,
                                         &parameters, nullptr, nullptr, nullptr));
}
