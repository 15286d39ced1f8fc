#pragma once

#include <unknwn.h>
#include <windows.h>

#include <atomic>
#include <tuple>
#include <utility>

#include "platform/win32/com/com_ptr.h"

namespace quorel::win32 {

/// Base of every object that answers as the listed interfaces and no other: finds them, counts, ends with its
/// last reference. It is born with one, which `makeCom` hands out. Counting is safe among threads.
///
///     class Items final : public ComObject<IEnumVARIANT> { ... };
///     const ComPtr<Items> items = makeCom<Items>(...);
template <class... Interfaces>
class ComObject : public Interfaces... {
  public:
    ComObject(const ComObject&) = delete;
    ComObject& operator=(const ComObject&) = delete;

    STDMETHODIMP QueryInterface(REFIID iid, void** result) override {
        if (result == nullptr)
            return E_POINTER;
        *result = nullptr;
        if (iid == __uuidof(IUnknown))
            *result = static_cast<std::tuple_element_t<0, std::tuple<Interfaces*...>>>(this);
        else
            static_cast<void>(((iid == __uuidof(Interfaces) && give<Interfaces>(*result)) || ...));
        if (*result == nullptr)
            return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++count_; }
    STDMETHODIMP_(ULONG) Release() override {
        const ULONG left = --count_;
        if (left == 0)
            delete this;
        return left;
    }

  protected:
    ComObject() noexcept = default;
    virtual ~ComObject() = default;

    [[nodiscard]] ULONG references() const noexcept { return count_; }

  private:
    template <class Interface>
    bool give(void*& result) noexcept {
        result = static_cast<Interface*>(this);
        return true;
    }

    std::atomic<ULONG> count_{1};
};

/// A new object with its first reference. Throws what its constructor throws.
template <class Class, class... Arguments>
[[nodiscard]] ComPtr<Class> makeCom(Arguments&&... arguments) {
    return ComPtr<Class>::adopt(new Class(std::forward<Arguments>(arguments)...));
}

}  // namespace quorel::win32
