#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include "platform/automation/object.h"

namespace quorel::controls {

/// References to the row objects, in blocks, so that growing to a million never copies one.
class RowStore {
  public:
    RowStore() = default;
    RowStore(RowStore&& other) noexcept
        : blocks_(std::move(other.blocks_)), size_(std::exchange(other.size_, 0)) {
        other.blocks_.clear();
    }
    /// The references held before are dropped after the new ones are in place: dropping one may come back.
    RowStore& operator=(RowStore&& other) noexcept {
        RowStore incoming(std::move(other));
        blocks_.swap(incoming.blocks_);
        std::swap(size_, incoming.size_);
        return *this;
    }

    void push(automation::Object&& object) {
        if (size_ % kBlock == 0)
            addBlock();
        blocks_.back().push_back(std::move(object));
        ++size_;
    }
    /// The rows behind it move up.
    void remove(std::size_t row);

    [[nodiscard]] std::size_t size() const noexcept { return size_; }
    [[nodiscard]] const automation::Object& operator[](std::size_t row) const noexcept {
        return blocks_[row / kBlock][row % kBlock];
    }
    /// The row of that very object; `size()` if there is none. No member is called.
    [[nodiscard]] std::size_t find(const automation::Object& object) const noexcept;

  private:
    static constexpr std::size_t kBlock = 4096;
    void addBlock();

    std::vector<std::vector<automation::Object>> blocks_;
    std::size_t size_ = 0;
};

}  // namespace quorel::controls
