#include "platform/controls/row_store.h"

namespace quorel::controls {

void RowStore::addBlock() {
    blocks_.emplace_back().reserve(kBlock);
}

void RowStore::remove(std::size_t row) {
    const automation::Object gone = std::move(blocks_[row / kBlock][row % kBlock]);
    for (std::size_t next = row + 1; next < size_; ++next)
        blocks_[(next - 1) / kBlock][(next - 1) % kBlock] = std::move(blocks_[next / kBlock][next % kBlock]);
    --size_;
    blocks_.back().pop_back();
    if (blocks_.back().empty())
        blocks_.pop_back();
}

std::size_t RowStore::find(const automation::Object& object) const noexcept {
    const void* const identity = object.identity();
    for (std::size_t row = 0; row < size_; ++row)
        if ((*this)[row].identity() == identity)
            return row;
    return size_;
}

}  // namespace quorel::controls
