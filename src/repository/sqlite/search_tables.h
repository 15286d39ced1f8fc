#pragma once

#include <cstdint>

#include "repository/model.h"
#include "repository/sqlite/database.h"

namespace quorel::repository::sqlite {

/// The tables that every file has: what writers tell the index.
void createSearchNotes(Database& database);

/// Makes the index itself, empty, in place of one that may be there. Within a transaction.
void createSearchIndex(Database& database);
[[nodiscard]] bool hasSearchIndex(Database& database);

/// Rows of the index: nodes by their own numbers, links behind them. Greater numbers are not searched.
inline constexpr std::int64_t kLinkRows = std::int64_t{1} << 40;

[[nodiscard]] constexpr std::int64_t searchRow(Kind kind, ElementId id) noexcept {
    return static_cast<std::int64_t>(id) + (kind == Kind::Link ? kLinkRows : 0);
}
[[nodiscard]] constexpr Kind kindOfSearchRow(std::int64_t row) noexcept {
    return row < kLinkRows ? Kind::Node : Kind::Link;
}
[[nodiscard]] constexpr ElementId elementOfSearchRow(std::int64_t row) noexcept {
    return static_cast<ElementId>(row < kLinkRows ? row : row - kLinkRows);
}

/// Words of up to so many letters are looked up by lists made for them; all that begins with a longer one is
/// put together when it is asked.
inline constexpr std::size_t kListedLetters = 3;

/// Names are found from their beginning by so many bytes of their words.
inline constexpr std::size_t kKeyBytes = 64;

/// Of a name or a value the words in so many bytes from its beginning are found.
inline constexpr std::size_t kSearchedLength = 32'768;

}  // namespace quorel::repository::sqlite
