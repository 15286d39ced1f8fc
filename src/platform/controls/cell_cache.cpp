#include "platform/controls/cell_cache.h"

#include <algorithm>
#include <bit>
#include <utility>

namespace quorel::controls {

void CellCache::reserveRows(std::size_t rows) {
    const std::size_t wanted = std::bit_ceil(std::clamp(rows, kFewestRows, kMostRows));
    if (wanted <= slots_.size())
        return;
    // A row may belong elsewhere in a larger table.
    slots_.clear();
    slots_.resize(wanted);
}

void CellCache::clear() noexcept {
    slots_.clear();
}

std::optional<std::u16string_view> CellCache::find(std::size_t row, std::size_t column) const noexcept {
    if (slots_.empty())
        return std::nullopt;
    const Slot& slot = slots_[row % slots_.size()];
    const bool known = slot.row == row && column < slot.cells.size();
    return known ? slot.cells[column].text() : std::nullopt;
}

CellCache::Slot& CellCache::slotFor(std::size_t row) {
    if (slots_.empty())
        reserveRows(kFewestRows);
    Slot& slot = slots_[row % slots_.size()];
    if (slot.row != row) {
        slot.row = row;
        slot.typeKey = nullptr;
        slot.cells.clear();
    }
    return slot;
}

const void* CellCache::typeKey(std::size_t row) const noexcept {
    if (slots_.empty())
        return nullptr;
    const Slot& slot = slots_[row % slots_.size()];
    return slot.row == row ? slot.typeKey : nullptr;
}

void CellCache::storeTypeKey(std::size_t row, const void* key) {
    slotFor(row).typeKey = key;
}

void CellCache::store(std::size_t row, std::size_t column, automation::Value text) {
    Slot& slot = slotFor(row);
    if (slot.cells.size() <= column)
        slot.cells.resize(column + 1);
    slot.cells[column] = std::move(text);
}

void CellCache::forget(std::size_t row) noexcept {
    if (slots_.empty() || slots_[row % slots_.size()].row != row)
        return;
    Slot& slot = slots_[row % slots_.size()];
    slot.typeKey = nullptr;
    slot.cells.clear();
}

}  // namespace quorel::controls
