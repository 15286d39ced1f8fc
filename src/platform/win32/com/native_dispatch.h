#pragma once

// How others see the library's own objects: one IDispatch wrapper per native object, made when it first
// leaves and gone when the last outside reference goes.

#include <oaidl.h>
#include <windows.h>

#include "platform/automation/class_table.h"
#include "platform/automation/native_object.h"
#include "platform/win32/com/com_ptr.h"

namespace quorel::win32 {

/// What a wrapper does, whatever interface it is seen by. A server class derives from `DualDispatch` with its
/// published interface; everything else is wrapped as a plain IDispatch.
class NativeDispatch {
  public:
    explicit NativeDispatch(automation::NativeObject& native) noexcept;
    NativeDispatch(const NativeDispatch&) = delete;
    NativeDispatch& operator=(const NativeDispatch&) = delete;

    /// False once the last reference went, while somebody took another on the way.
    [[nodiscard]] bool isConnected() const noexcept { return native_ != nullptr; }
    [[nodiscard]] automation::NativeObject& native() const noexcept { return *native_; }
    /// The wrapper as others hold it; not counted.
    [[nodiscard]] virtual IDispatch* dispatch() noexcept = 0;
    /// The published interface, or the null identifier.
    [[nodiscard]] virtual const GUID& interfaceId() const noexcept = 0;
    /// The description of the published interface, or null when there is none.
    [[nodiscard]] virtual ComPtr<ITypeInfo> typeInfo() const noexcept = 0;

  protected:
    virtual ~NativeDispatch();

    ULONG addReference() noexcept { return ++count_; }
    ULONG releaseReference() noexcept;
    HRESULT query(REFIID iid, void** result) noexcept;
    HRESULT idsOfNames(LPOLESTR* names, UINT count, DISPID* ids) noexcept;
    HRESULT invokeById(DISPID id, WORD flags, DISPPARAMS& parameters, VARIANT* result,
                       EXCEPINFO* failure) noexcept;

  private:
    void disconnect() noexcept;

    automation::Object keep_;
    automation::NativeObject* native_;
    ULONG count_ = 0;
};

/// The seven slots that every automation interface begins with, answered by the native class's table, for
/// `Interface` derived from IDispatch. The interface's own slots are left to the class that derives from
/// this.
template <class Interface>
class DualDispatch : public NativeDispatch, public Interface {
  public:
    using NativeDispatch::NativeDispatch;

    STDMETHODIMP QueryInterface(REFIID iid, void** result) final { return query(iid, result); }
    STDMETHODIMP_(ULONG) AddRef() final { return addReference(); }
    STDMETHODIMP_(ULONG) Release() final { return releaseReference(); }

    STDMETHODIMP GetTypeInfoCount(UINT* count) final {
        if (count == nullptr)
            return E_POINTER;
        *count = typeInfo() ? 1 : 0;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT index, LCID, ITypeInfo** info) final {
        if (info == nullptr)
            return E_POINTER;
        *info = nullptr;
        if (index != 0)
            return DISP_E_BADINDEX;
        *info = typeInfo().detach();
        return *info != nullptr ? S_OK : E_NOTIMPL;
    }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) final {
        return idsOfNames(names, count, ids);
    }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO* failure, UINT*) final {
        return parameters != nullptr ? invokeById(id, flags, *parameters, result, failure) : E_POINTER;
    }

    [[nodiscard]] IDispatch* dispatch() noexcept final { return static_cast<Interface*>(this); }
};

/// The one wrapper of an object, made when there is none; not counted.
[[nodiscard]] NativeDispatch& wrapperOf(automation::NativeObject& native);

/// Makes the wrapper of one object; the first reference is added by the caller.
using WrapperFactory = NativeDispatch* (*)(automation::NativeObject& native);

/// From now on objects of this class are wrapped by `factory`. To be called before the first of them leaves.
void wrapClassWith(const automation::ClassTable& table, WrapperFactory factory);

/// The native object behind a wrapper of this module's, else null.
[[nodiscard]] automation::NativeObject* nativeBehind(IDispatch* dispatch) noexcept;

/// Wrappers, enumerations and locks of this module that somebody outside holds.
void countOutside(long change) noexcept;
[[nodiscard]] long outsideCount() noexcept;

}  // namespace quorel::win32
