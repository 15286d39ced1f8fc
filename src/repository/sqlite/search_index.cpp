#include "repository/sqlite/search_index.h"

#include <algorithm>
#include <utility>

#include "repository/sqlite/search_tables.h"

namespace quorel::repository::sqlite {

namespace {

/// The clock is asked after so many elements.
constexpr int kPage = 16;

struct NamedElement {
    ElementId id;
    std::string name;
};

std::vector<NamedElement> elementsOf(Run&& run) {
    std::vector<NamedElement> elements;
    while (run.row())
        elements.push_back({run.id<ElementId>(0), std::string(run.utf8(1).substr(0, kSearchedLength))});
    return elements;
}

}  // namespace

SearchIndex::SearchIndex(Store& store, Database& database, SearchNotes& notes, const WordSplitter& splitter,
                         ShownValues& values)
    : store_(store),
      database_(database),
      notes_(notes),
      splitter_(splitter),
      values_(values),
      oneChange_(
          database,
          "SELECT kind, element FROM search_change WHERE typeof(kind) = 'integer' AND typeof(element) = "
          "'integer' LIMIT 1"),
      removeChange_(database, "DELETE FROM search_change WHERE kind = ?1 AND element = ?2"),
      last_{Statement(database, "SELECT max(id) FROM node"), Statement(database, "SELECT max(id) FROM link")},
      page_{Statement(database, "SELECT id, name FROM node WHERE id > ?1 AND id <= ?2 ORDER BY id LIMIT ?3"),
            Statement(database, "SELECT id, name FROM link WHERE id > ?1 AND id <= ?2 ORDER BY id LIMIT ?3")},
      addKey_(database, "INSERT OR IGNORE INTO search_key (kind, key, id) VALUES (?1, CAST(?2 AS BLOB), ?3)"),
      addName_(database, "INSERT INTO search_name (rowid, text) VALUES (?1, ?2)"),
      addText_(database, "INSERT INTO search_text (rowid, text) VALUES (?1, ?2)") {}

bool SearchIndex::exists() {
    isKnown_ = isKnown_ || hasSearchIndex(database_);
    return isKnown_;
}

ElementId SearchIndex::last(Kind kind) {
    Run run(last_.at(static_cast<std::size_t>(kind)));
    const std::int64_t number = run.row() ? run.integer(0) : 0;
    return static_cast<ElementId>(std::min(number, kLinkRows - 1));
}

int SearchIndex::progress() {
    if (isRenewed_ || !exists())
        return 0;
    const SearchState state = notes_.read();
    std::int64_t done = 0;
    std::int64_t all = 0;
    for (const Kind kind : {Kind::Node, Kind::Link}) {
        const auto last = static_cast<std::int64_t>(this->last(kind));
        done += std::min(static_cast<std::int64_t>(state.upTo(kind)), last);
        all += last;
    }
    constexpr int kAll = 100;
    if (done == all)
        return nextChange() ? kAll - 1 : kAll;
    return static_cast<int>(static_cast<double>(done) * kAll / static_cast<double>(all));
}

int SearchIndex::advance(std::chrono::milliseconds duration) {
    const Clock::time_point end = Clock::now() + duration;
    const int before = progress();
    if (before == 100)
        return before;
    Transaction transaction(store_);
    if (isRenewed_ || !exists())
        createSearchIndex(database_);
    work(end);
    transaction.commit();
    isKnown_ = true;
    isRenewed_ = false;
    return progress();
}

void SearchIndex::work(Clock::time_point end) {
    SearchState state = notes_.read();
    bool isMore = true;
    do {
        isMore = indexChange() || indexNext(Kind::Node, state) || indexNext(Kind::Link, state);
    } while (isMore && Clock::now() < end);
    notes_.write(state);
}

std::optional<SearchIndex::Change> SearchIndex::nextChange() {
    Run run(oneChange_);
    return run.row() ? std::optional(Change{run.integer(0), run.integer(1)}) : std::nullopt;
}

bool SearchIndex::indexChange() {
    const std::optional<Change> change = nextChange();
    if (!change)
        return false;
    Run(removeChange_, change->kind, change->element).finish();
    // What is in a file may be anything.
    if (change->kind < 0 || change->kind > 1 || change->element < 1 || change->element >= kLinkRows)
        return true;
    const Kind kind = change->kind == 0 ? Kind::Node : Kind::Link;
    indexPage(kind, static_cast<ElementId>(change->element - 1), static_cast<ElementId>(change->element));
    return true;
}

std::optional<ElementId> SearchIndex::indexPage(Kind kind, ElementId after, ElementId upTo) {
    std::optional<ElementId> last;
    for (const NamedElement& each :
         elementsOf(Run(page_.at(static_cast<std::size_t>(kind)), after, upTo, kPage))) {
        index(kind, each.id, each.name);
        last = each.id;
    }
    return last;
}

bool SearchIndex::indexNext(Kind kind, SearchState& state) {
    const ElementId upTo = last(kind);
    if (state.upTo(kind) >= upTo)
        return false;
    state.upTo(kind) = indexPage(kind, state.upTo(kind), upTo).value_or(upTo);
    return true;
}

void SearchIndex::index(Kind kind, ElementId id, std::string_view name) {
    const std::int64_t row = searchRow(kind, id);
    const std::string key = keyOf(splitter_, name).substr(0, kKeyBytes);
    text_ = name;
    if (!key.empty()) {
        Run(addKey_, kind, key, id).finish();
        Run(addName_, row, text_).finish();
    }
    const std::size_t nameSize = text_.size();
    values_.each(kind, id, [this](const std::u16string&, std::string_view value) {
        text_.append("\n").append(value);
        return true;
    });
    if (text_.size() != nameSize)
        Run(addText_, row, text_).finish();
}

}  // namespace quorel::repository::sqlite
