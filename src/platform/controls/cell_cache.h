#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "platform/automation/value.h"

namespace quorel::controls {

/// The texts of the cells that were seen last, so that a repaint asks nobody. A page of neighbouring rows
/// never collides with itself.
class CellCache {
  public:
    /// Makes room for that many rows at a time, within reason.
    void reserveRows(std::size_t rows);
    void clear() noexcept;
    void forget(std::size_t row) noexcept;

    /// Good until the cache changes.
    [[nodiscard]] std::optional<std::u16string_view> find(std::size_t row, std::size_t column) const noexcept;
    /// What was stored as the type of that row, good until the row or the cache changes; null when none was.
    [[nodiscard]] const void* typeKey(std::size_t row) const noexcept;
    void storeTypeKey(std::size_t row, const void* key);
    /// `text` is a string.
    void store(std::size_t row, std::size_t column, automation::Value text);

  private:
    struct Slot {
        std::size_t row = 0;
        const void* typeKey = nullptr;
        std::vector<automation::Value> cells;  ///< empty where nothing is known
    };
    [[nodiscard]] Slot& slotFor(std::size_t row);

    static constexpr std::size_t kFewestRows = 256;
    static constexpr std::size_t kMostRows = 4096;

    std::vector<Slot> slots_;
};

}  // namespace quorel::controls
