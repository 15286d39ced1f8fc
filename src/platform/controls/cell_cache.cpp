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

void CellCache::store(std::size_t row, std::size_t column, automation::Value text) {
    if (slots_.empty())
        reserveRows(kFewestRows);
    Slot& slot = slots_[row % slots_.size()];
    if (slot.row != row) {
        slot.row = row;
        slot.cells.clear();
    }
    if (slot.cells.size() <= column)
        slot.cells.resize(column + 1);
    slot.cells[column] = std::move(text);
}

void CellCache::forget(std::size_t row) noexcept {
    if (!slots_.empty() && slots_[row % slots_.size()].row == row)
        slots_[row % slots_.size()].cells.clear();
}

}  // namespace quorel::controls
