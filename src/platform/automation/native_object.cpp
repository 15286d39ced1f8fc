#include "platform/automation/native_object.h"

#include <atomic>

#include "platform/automation/error.h"

namespace quorel::automation {

namespace {
std::atomic<std::int64_t> liveObjects{0};
}

NativeObject::NativeObject() noexcept {
    liveObjects.fetch_add(1, std::memory_order_relaxed);
}

NativeObject::~NativeObject() {
    liveObjects.fetch_sub(1, std::memory_order_relaxed);
}

void NativeObject::end() noexcept {
    // Whoever counts the object once more while it ends must not end it a second time.
    constexpr std::uint32_t kEnding = 1U << 30;
    count_ = kEnding;
    delete this;
}

std::int64_t NativeObject::liveCount() noexcept {
    return liveObjects.load(std::memory_order_relaxed);
}

std::unique_ptr<Enumerator> NativeObject::enumerate() {
    throw Error(error_number::kNotACollection);
}

std::optional<MemberId> NativeObject::resolveExtra(std::u16string_view) {
    return std::nullopt;
}

Value NativeObject::invokeExtra(MemberId, InvokeKind, std::span<Argument>) {
    throw Error(error_number::kMemberNotSupported);
}

}  // namespace quorel::automation
