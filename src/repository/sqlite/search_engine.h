#pragma once

#include <chrono>
#include <memory>
#include <string_view>
#include <vector>

#include "repository/search_hit.h"
#include "repository/sqlite/search_index.h"
#include "repository/sqlite/search_query.h"

namespace quorel::repository::sqlite {

/// The full-text search of one connection: its index and what looks in it.
class SearchEngine {
  public:
    SearchEngine(Store& store, Database& database, SearchNotes& notes);

    /// See `Store`. An index that is damaged is made anew, once.
    int prepare(std::chrono::milliseconds duration);
    [[nodiscard]] std::vector<SearchHit> search(std::u16string_view text, std::size_t limit);

  private:
    [[nodiscard]] int advance(std::chrono::milliseconds duration);
    [[nodiscard]] bool openIndex();
    [[nodiscard]] bool mayRenew(const automation::Error& error);

    Database& database_;
    WordSplitter splitter_;
    ShownValues values_;
    SearchIndex index_;
    SearchStatements statements_;
    bool isOpen_ = false;      ///< the lists of words can be asked
    bool wasRenewed_ = false;  ///< because it was damaged
};

}  // namespace quorel::repository::sqlite
