#include "repository/sqlite/search_engine.h"

#include <algorithm>

#include "platform/automation/error.h"
#include "repository/errors.h"

namespace quorel::repository::sqlite {

namespace {

/// So many things that were found and are no more show that the index is not worth keeping.
constexpr std::size_t kMostStale = 2'000;

/// More characters than these are not what somebody types.
constexpr std::size_t kMostTyped = 1'000;

// The words of the index themselves, which tell how common one is.
constexpr const char* kWordLists =
    "CREATE VIRTUAL TABLE IF NOT EXISTS temp.search_name_word USING fts5vocab (main, search_name, instance);"
    "CREATE VIRTUAL TABLE IF NOT EXISTS temp.search_text_word USING fts5vocab (main, search_text, instance)";

}  // namespace

SearchEngine::SearchEngine(Store& store, Database& database, SearchNotes& notes)
    : database_(database),
      splitter_(database),
      values_(database),
      index_(store, database, notes, splitter_, values_),
      statements_(database) {}

bool SearchEngine::mayRenew(const automation::Error& error) {
    if (error.number() != error_number::kBadFileFormat || wasRenewed_)
        return false;
    wasRenewed_ = true;
    index_.renew();
    return true;
}

int SearchEngine::advance(std::chrono::milliseconds duration) {
    try {
        return index_.advance(duration);
    } catch (const automation::Error& error) {
        if (!mayRenew(error))
            throw;
        return index_.advance(duration);
    }
}

int SearchEngine::prepare(std::chrono::milliseconds duration) {
    const Database::Patience patience(database_, static_cast<int>(duration.count()));
    try {
        return advance(duration);
    } catch (const automation::Error& error) {
        if (error.number() != error_number::kPermissionDenied)
            throw;
        return index_.progress();
    }
}

bool SearchEngine::openIndex() {
    if (!isOpen_ && index_.exists()) {
        database_.run(kWordLists);
        isOpen_ = true;
    }
    return isOpen_;
}

std::vector<SearchHit> SearchEngine::search(std::u16string_view text, std::size_t limit) {
    const bool hasIndex = openIndex();
    SearchQuery query(statements_, splitter_, values_, text.substr(0, kMostTyped), limit);
    try {
        query.run(hasIndex);
    } catch (const automation::Error& error) {
        if (!mayRenew(error))
            throw;
    }
    if (query.stale() > kMostStale)
        index_.renew();
    return query.takeHits();
}

}  // namespace quorel::repository::sqlite
