#include "platform/win32/com/type_keys.h"

#include <dispex.h>

#include <array>
#include <atomic>
#include <cstdint>

#include "platform/win32/com/com_ptr.h"

namespace quorel::win32 {

namespace {

constexpr std::size_t kRemembered = 8;

/// Type informations that were seen last, each with its key. A held description cannot be freed and another
/// be made at its address, so an equal address is an equal type for as long as it is remembered; a key is a
/// number that is given out once. For one thread, the first that asks: others prove nothing.
struct Remembered {
    std::array<ITypeInfo*, kRemembered> infos{};
    std::array<std::uintptr_t, kRemembered> keys{};
    std::size_t oldest = 0;
    std::uintptr_t lastKey = 0;
    std::atomic<DWORD> owner{0};
};

constinit Remembered remembered;

const void* asKey(std::uintptr_t number) noexcept {
    return reinterpret_cast<const void*>(number);
}

bool isOwner() noexcept {
    const DWORD thread = ::GetCurrentThreadId();
    DWORD owner = remembered.owner.load(std::memory_order_relaxed);
    return owner == thread || (owner == 0 && remembered.owner.compare_exchange_strong(owner, thread));
}

const void* remember(IDispatch& dispatch, ITypeInfo* info) noexcept {
    const std::uintptr_t key = ComPtr<IDispatch>(&dispatch).as<IDispatchEx>() ? 0 : ++remembered.lastKey;
    ITypeInfo*& slot = remembered.infos[remembered.oldest];
    ComPtr<ITypeInfo>::adopt(slot).reset();
    slot = info;
    remembered.keys[remembered.oldest] = key;
    remembered.oldest = (remembered.oldest + 1) % kRemembered;
    return asKey(key);
}

}  // namespace

const void* typeKeyOf(IDispatch& dispatch) noexcept {
    ITypeInfo* info = nullptr;
    if (!isOwner() || FAILED(dispatch.GetTypeInfo(0, LOCALE_USER_DEFAULT, &info)) || info == nullptr)
        return nullptr;
    for (std::size_t i = 0; i < kRemembered; ++i) {
        if (remembered.infos[i] == info) {
            info->Release();
            return asKey(remembered.keys[i]);
        }
    }
    return remember(dispatch, info);
}

}  // namespace quorel::win32
