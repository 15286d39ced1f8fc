#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace quorel::controls {

/// The texts of the cells that were seen last, so that a repaint asks nobody. A page of neighbouring rows
/// never collides with itself.
class CellCache {
  public:
    /// Makes room for that many rows at a time, within reason.
    void reserveRows(std::size_t rows);
    void clear() noexcept;
    void forget(std::size_t row) noexcept;

    [[nodiscard]] const std::u16string* find(std::size_t row, std::size_t column) const noexcept;
    void store(std::size_t row, std::size_t column, std::u16string text);

  private:
    struct Slot {
        std::size_t row = 0;
        std::vector<std::optional<std::u16string>> cells;
    };
    static constexpr std::size_t kFewestRows = 256;
    static constexpr std::size_t kMostRows = 4096;

    std::vector<Slot> slots_;
};

}  // namespace quorel::controls
