#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include "repository/sqlite/search_notes.h"
#include "repository/sqlite/search_values.h"
#include "repository/sqlite/words.h"
#include "repository/store.h"

namespace quorel::repository::sqlite {

/// Brings the search index up to date: first what was changed, then the elements it has never seen, in the
/// order of their numbers, nodes before links. It only ever adds; whoever finds something in it looks whether
/// it is still so.
class SearchIndex {
  public:
    SearchIndex(Store& store, Database& database, SearchNotes& notes, const WordSplitter& splitter,
                ShownValues& values);

    /// Works for about that long in one transaction. How far it is: 100 when nothing is missing.
    int advance(std::chrono::milliseconds duration);
    [[nodiscard]] int progress();
    /// The next `advance` makes the index anew: it is damaged, or has become full of what is gone.
    void renew() noexcept { isRenewed_ = true; }
    /// Whether there is something to look in.
    [[nodiscard]] bool exists();

  private:
    using Clock = std::chrono::steady_clock;

    void work(Clock::time_point end);
    [[nodiscard]] bool indexChange();
    [[nodiscard]] bool indexNext(Kind kind, SearchState& state);
    /// Some elements from behind `after` on; the last of them, none when there is none.
    std::optional<ElementId> indexPage(Kind kind, ElementId after, ElementId upTo);
    void index(Kind kind, ElementId id, std::string_view name);
    struct Change {
        std::int64_t kind, element;
    };
    [[nodiscard]] std::optional<Change> nextChange();
    [[nodiscard]] ElementId last(Kind kind);

    Store& store_;
    Database& database_;
    SearchNotes& notes_;
    const WordSplitter& splitter_;
    ShownValues& values_;
    Statement oneChange_, removeChange_;
    std::array<Statement, 2> last_, page_;
    Statement addKey_, addName_, addText_;
    bool isRenewed_ = false;
    bool isKnown_ = false;  ///< there is an index
    std::string text_;
};

}  // namespace quorel::repository::sqlite
