#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "platform/automation/object.h"

namespace quorel::controls {

/// Counted references to the row objects, one word each, in large blocks, of which only the first is ever
/// copied as it grows. The lowest bits of a word, which are zero in every instance pointer, tell the binding;
/// objects of at most four bindings can be held (there are two in a process: its own objects and the
/// platform's).
class RowStore {
  public:
    RowStore() = default;
    RowStore(RowStore&& other) noexcept { swap(other); }
    /// The references held before are dropped after the new ones are in place: dropping one may come back.
    RowStore& operator=(RowStore&& other) noexcept {
        RowStore incoming(std::move(other));
        swap(incoming);
        return *this;
    }
    ~RowStore();

    /// The object must not be empty.
    void push(automation::Object&& object) {
        const std::uintptr_t tag = object.binding() == bindings_[0] ? 0 : tagOf(object);
        if (size_ == capacity_)
            grow();
        blocks_.back()[size_ % kBlock] = reinterpret_cast<std::uintptr_t>(object.detach()) | tag;
        ++size_;
    }
    /// Takes the references over; empty ones are left out.
    void append(std::span<automation::Object> objects);
    /// The rows behind it move up.
    void remove(std::size_t row);

    [[nodiscard]] std::size_t size() const noexcept { return size_; }
    [[nodiscard]] automation::Object operator[](std::size_t row) const noexcept {
        const std::uintptr_t word = wordAt(row);
        return automation::Object::share(bindingOf(word), instanceOf(word));
    }
    /// The row of that very object; `size()` if there is none. No member is called.
    [[nodiscard]] std::size_t find(const automation::Object& object) const noexcept;

  private:
    static constexpr std::size_t kBlock = std::size_t{1} << 17U;
    static constexpr std::size_t kSmallest = 256;
    static constexpr std::uintptr_t kTagMask = 3;

    [[nodiscard]] std::uintptr_t& wordAt(std::size_t row) const noexcept {
        return blocks_[row / kBlock][row % kBlock];
    }
    [[nodiscard]] const automation::Binding& bindingOf(std::uintptr_t word) const noexcept {
        return *bindings_[word & kTagMask];
    }
    [[nodiscard]] static void* instanceOf(std::uintptr_t word) noexcept {
        return reinterpret_cast<void*>(word & ~kTagMask);
    }
    [[nodiscard]] std::uintptr_t tagOf(const automation::Object& object);
    void grow();
    void swap(RowStore& other) noexcept;

    std::array<const automation::Binding*, kTagMask + 1> bindings_{};
    std::vector<std::unique_ptr<std::uintptr_t[]>> blocks_;
    std::size_t size_ = 0;
    std::size_t capacity_ = 0;
};

}  // namespace quorel::controls
