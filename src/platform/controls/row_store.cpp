#include "platform/controls/row_store.h"

#include <utility>

#include "platform/automation/error.h"

namespace quorel::controls {

RowStore::~RowStore() {
    for (std::size_t row = 0; row < size_; ++row)
        bindingOf(wordAt(row)).release(instanceOf(wordAt(row)));
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

void RowStore::addBlock() {
    blocks_.push_back(std::make_unique_for_overwrite<std::uintptr_t[]>(kBlock));
}

void RowStore::swap(RowStore& other) noexcept {
    bindings_.swap(other.bindings_);
    blocks_.swap(other.blocks_);
    std::swap(size_, other.size_);
}

void RowStore::remove(std::size_t row) {
    const std::uintptr_t gone = wordAt(row);
    const automation::Object dropped = automation::Object::adopt(bindingOf(gone), instanceOf(gone));
    for (std::size_t next = row + 1; next < size_; ++next)
        wordAt(next - 1) = wordAt(next);
    --size_;
    if (size_ % kBlock == 0)
        blocks_.pop_back();
}

std::size_t RowStore::find(const automation::Object& object) const noexcept {
    const void* const identity = object.identity();
    for (std::size_t row = 0; row < size_; ++row)
        if (bindingOf(wordAt(row)).identity(instanceOf(wordAt(row))) == identity)
            return row;
    return size_;
}

}  // namespace quorel::controls
