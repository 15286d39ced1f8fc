#pragma once

#include <oaidl.h>
#include <windows.h>

#include <functional>
#include <string>
#include <vector>

#include "platform/win32/com/com_object.h"
#include "tests/server/property_events.h"

namespace quorel::server::testing {

/// The events' arguments by reference; those that an event does not have are null.
struct EventArguments {
    const wchar_t* event;
    IDispatch** property;
    VARIANT_BOOL* flag = nullptr;
    IDispatch* control = nullptr;
    BSTR* oldText = nullptr;
    BSTR* newText = nullptr;
};

/// The callback of a host that is compiled against an interface of its own: the platform's dispatcher calls
/// the methods with typed arguments, as that host's type library describes them.
class TypedCallback final : public win32::ComObject<IPropertyEvents> {
  public:
    using Act = std::function<HRESULT(const EventArguments&)>;

    TypedCallback();

    /// Runs in every event; its failure is the event's.
    Act act;
    std::vector<std::wstring> log;

    STDMETHODIMP QueryInterface(REFIID iid, void** result) override;

    STDMETHODIMP CreatePropertyControl(IDispatch** property, VARIANT_BOOL* handled) override;
    STDMETHODIMP PropertyControlCreated(IDispatch** property, IDispatch* control) override;
    STDMETHODIMP NewProperty(IDispatch** property) override;
    STDMETHODIMP PropertyDeleted(IDispatch** property) override;
    STDMETHODIMP PropertyChanged(IDispatch** property, BSTR* oldText, BSTR* newText, VARIANT value,
                                 VARIANT_BOOL* cancel) override;
    STDMETHODIMP PropertyValidate(IDispatch** property, VARIANT oldValue, VARIANT newValue,
                                  VARIANT_BOOL* valid) override;

    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo** result) override;
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO* failure, UINT* argument) override;

  private:
    HRESULT take(const EventArguments& arguments);

    win32::ComPtr<ITypeInfo> description_;
};

/// What a compiled method does to fail: tells why and answers `status`.
HRESULT failWith(HRESULT status, const wchar_t* description, const wchar_t* source);

}  // namespace quorel::server::testing
