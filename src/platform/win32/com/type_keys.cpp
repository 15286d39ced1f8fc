#include "platform/win32/com/type_keys.h"

#include <dispex.h>

#include <array>
#include <cstdint>

#include "platform/win32/com/com_ptr.h"

namespace quorel::win32 {

namespace {

constexpr std::size_t kRemembered = 8;

/// Type informations that were seen last, each with its key. A held description cannot be freed and another
/// be made at its address, so an equal address is an equal type for as long as it is remembered; a key is a
/// number that is given out once.
struct Remembered {
    std::array<ITypeInfo*, kRemembered> infos{};
    std::array<std::uintptr_t, kRemembered> keys{};
    std::size_t oldest = 0;
};

thread_local Remembered remembered;

const void* asKey(std::uintptr_t number) noexcept {
    return reinterpret_cast<const void*>(number);
}

std::uintptr_t newKey() noexcept {
    static LONG64 last = 0;
    return static_cast<std::uintptr_t>(::InterlockedIncrement64(&last));
}

const void* remember(IDispatch& dispatch, ComPtr<ITypeInfo> info) noexcept {
    const std::uintptr_t key = ComPtr<IDispatch>(&dispatch).as<IDispatchEx>() ? 0 : newKey();
    ITypeInfo*& slot = remembered.infos[remembered.oldest];
    ComPtr<ITypeInfo>::adopt(slot).reset();
    slot = info.detach();
    remembered.keys[remembered.oldest] = key;
    remembered.oldest = (remembered.oldest + 1) % kRemembered;
    return asKey(key);
}

}  // namespace

const void* typeKeyOf(IDispatch& dispatch) noexcept {
    ComPtr<ITypeInfo> info;
    if (FAILED(dispatch.GetTypeInfo(0, LOCALE_USER_DEFAULT, info.out())) || !info)
        return nullptr;
    for (std::size_t i = 0; i < kRemembered; ++i) {
        if (remembered.infos[i] == info.get())
            return asKey(remembered.keys[i]);
    }
    return remember(dispatch, std::move(info));
}

}  // namespace quorel::win32
