#include "platform/controls/row_store.h"

#include <algorithm>
#include <utility>

#include "platform/automation/error.h"

namespace quorel::controls {

RowStore::~RowStore() {
    for (std::size_t row = 0; row < size_; ++row)
        bindingOf(wordAt(row)).release(instanceOf(wordAt(row)));
}

void RowStore::append(std::span<automation::Object> objects) {
    while (!objects.empty()) {
        if (size_ == capacity_)
            grow();
        const auto fitting = objects.first(std::min(objects.size(), capacity_ - size_));
        std::uintptr_t* next = &blocks_.back()[size_ % kBlock];
        std::uintptr_t* const start = next;
        for (automation::Object& object : fitting) {
            const std::uintptr_t tag = object.binding() == bindings_[0] || !object ? 0 : tagOf(object);
            if (const auto word = reinterpret_cast<std::uintptr_t>(object.detach()))
                *next++ = word | tag;
        }
        size_ += static_cast<std::size_t>(next - start);
        objects = objects.subspan(fitting.size());
    }
}

std::uintptr_t RowStore::tagOf(const automation::Object& object) {
    for (std::size_t tag = 0; tag < bindings_.size(); ++tag) {
        if (bindings_[tag] == nullptr)
            bindings_[tag] = object.binding();
        if (bindings_[tag] == object.binding())
            return tag;
    }
    throw automation::Error(automation::error_number::kInternal);
}

void RowStore::grow() {
    if (capacity_ >= kBlock) {
        blocks_.push_back(std::make_unique_for_overwrite<std::uintptr_t[]>(kBlock));
        capacity_ += kBlock;
        return;
    }
    const std::size_t larger = std::max(kSmallest, capacity_ * 8);
    auto grown = std::make_unique_for_overwrite<std::uintptr_t[]>(larger);
    if (blocks_.empty())
        blocks_.emplace_back();
    std::copy_n(blocks_[0].get(), size_, grown.get());
    blocks_[0] = std::move(grown);
    capacity_ = larger;
}

void RowStore::swap(RowStore& other) noexcept {
    bindings_.swap(other.bindings_);
    blocks_.swap(other.blocks_);
    std::swap(size_, other.size_);
    std::swap(capacity_, other.capacity_);
}

void RowStore::remove(std::size_t row) {
    const std::uintptr_t gone = wordAt(row);
    const automation::Object dropped = automation::Object::adopt(bindingOf(gone), instanceOf(gone));
    for (std::size_t next = row + 1; next < size_; ++next)
        wordAt(next - 1) = wordAt(next);
    --size_;
    if (size_ > 0 && size_ % kBlock == 0) {
        blocks_.pop_back();
        capacity_ -= kBlock;
    }
}

std::size_t RowStore::find(const automation::Object& object) const noexcept {
    const void* const identity = object.identity();
    for (std::size_t row = 0; row < size_; ++row)
        if (bindingOf(wordAt(row)).identity(instanceOf(wordAt(row))) == identity)
            return row;
    return size_;
}

}  // namespace quorel::controls
