#include "repository/sqlite/search_query.h"

#include <algorithm>
#include <bit>
#include <utility>

#include "repository/sqlite/search_tables.h"
#include "repository/sqlite/utf8.h"

namespace quorel::repository::sqlite {

namespace {

/// Behind every word that begins so: the greatest character.
constexpr std::string_view kLastCharacter = "\xF4\x8F\xBF\xBF";
/// Putting the rows of more words than these together would take longer than looking at what shorter
/// beginnings of them find.
constexpr std::int64_t kCommon = 12'000;
/// After so many rows that were not wanted they are put together nevertheless.
constexpr std::size_t kPatientRows = 4'000;

/// What of a value is shown, in bytes: so many before the first word found, so many in all.
constexpr std::size_t kShownBefore = 40;
constexpr std::size_t kShown = 160;

/// `place`, or the beginning of the character that it is in.
std::size_t characterAt(std::string_view utf8, std::size_t place) noexcept {
    while (place > 0 && place < utf8.size() && continuesCharacter(utf8[place]))
        --place;
    return std::min(place, utf8.size());
}

/// One line of the value with the place in it.
std::u16string excerpt(std::string_view value, std::size_t place) {
    const std::size_t from = place <= kShownBefore ? 0 : characterAt(value, place - kShownBefore);
    const std::size_t to = characterAt(value, std::min(value.size(), from + kShown));
    std::u16string line = loaded(value.substr(from, to - from));
    for (char16_t& unit : line)
        unit = unit < u' ' ? u' ' : unit;
    return (from > 0 ? u"\u2026" : u"") + line + (to < value.size() ? u"\u2026" : u"");
}

std::string trimmed(std::string_view utf8) {
    constexpr std::string_view kSpace = " \t\r\n";
    const std::size_t from = utf8.find_first_not_of(kSpace);
    if (from == std::string_view::npos)
        return {};
    return std::string(utf8.substr(from, utf8.find_last_not_of(kSpace) - from + 1));
}

std::size_t indexOfKind(Kind kind) noexcept {
    return static_cast<std::size_t>(kind);
}

}  // namespace

SearchStatements::SearchStatements(Database& database)
    : types(database, "SELECT id, kind, name FROM meta_object ORDER BY kind, id"),
      byIdentifier{Statement(database, "SELECT id FROM node WHERE identifier = ?1"),
                   Statement(database, "SELECT id FROM link WHERE identifier = ?1")},
      element{Statement(database, "SELECT type, name FROM node WHERE id = ?1"),
              Statement(database, "SELECT type, name FROM link WHERE id = ?1")},
      key(database,
          "SELECT id FROM search_key WHERE kind = ?1 AND key >= CAST(?2 AS BLOB) AND key <= CAST(?3 AS BLOB) "
          "ORDER BY key, id"),
      rows{
          Statement(database,
                    "SELECT rowid FROM search_name WHERE search_name MATCH ?1 AND rowid > ?2 ORDER BY rowid"),
          Statement(
              database,
              "SELECT rowid FROM search_text WHERE search_text MATCH ?1 AND rowid > ?2 ORDER BY rowid")},
      begun{
          Statement(database,
                    "SELECT count(*) FROM (SELECT 1 FROM temp.search_name_word WHERE term >= ?1 AND term <= "
                    "?2 LIMIT ?3)"),
          Statement(database,
                    "SELECT count(*) FROM (SELECT 1 FROM temp.search_text_word WHERE term >= ?1 AND term <= "
                    "?2 LIMIT ?3)")} {}

SearchQuery::SearchQuery(SearchStatements& statements, const WordSplitter& splitter, ShownValues& values,
                         std::u16string_view text, std::size_t limit)
    : statements_(statements),
      splitter_(splitter),
      values_(values),
      text_(trimmed(stored(text))),
      sought_(splitter, text_),
      limit_(limit) {}

void SearchQuery::run(bool hasIndex) {
    const bool hasWords = !sought_.words().empty();
    if (hasWords)
        findTypes();
    for (const bool exact : {true, false}) {
        for (const Kind kind : {Kind::Node, Kind::Link})
            if (hasIndex && hasWords)
                findKeys(kind, exact);
        if (exact && !text_.empty())
            findIdentifiers();
    }
    if (hasIndex && hasWords) {
        findRows(Table::Names);
        findRows(Table::Texts);
    }
}

void SearchQuery::findTypes() {
    std::vector<std::pair<int, SearchHit>> found;
    for (Run run(statements_.types); run.row();) {
        std::string key;
        std::uint32_t words = 0;
        splitter_.each(run.utf8(2), [&](std::string_view folded, std::size_t) {
            key.append(key.empty() ? "" : " ").append(folded);
            words |= sought_.begun(folded);
            return true;
        });
        if (words != sought_.all())
            continue;
        const int rank = key == sought_.key() ? 0 : key.starts_with(sought_.key()) ? 1 : 2;
        const Kind kind = run.integer(1) == 0 ? Kind::Node : Kind::Link;
        found.emplace_back(rank, SearchHit{kind, run.id<MetaId>(0), {}, run.text(2), u"", u""});
    }
    std::stable_sort(found.begin(), found.end(),
                     [](const auto& left, const auto& right) { return left.first < right.first; });
    for (auto& [rank, hit] : found)
        if (!isFull())
            hits_.push_back(std::move(hit));
}

void SearchQuery::findIdentifiers() {
    for (const Kind kind : {Kind::Node, Kind::Link}) {
        Run run(statements_.byIdentifier.at(indexOfKind(kind)), text_);
        if (!run.row() || isFull() || !found_.insert(searchRow(kind, run.id<ElementId>(0))).second)
            continue;
        const auto id = run.id<ElementId>(0);
        if (const std::optional<Current> element = current(kind, id))
            hits_.push_back({kind, element->type, id, loaded(element->name), u"Identifier", loaded(text_)});
    }
}

std::optional<SearchQuery::Current> SearchQuery::current(Kind kind, ElementId id) {
    Run run(statements_.element.at(indexOfKind(kind)), id);
    if (!run.row())
        return std::nullopt;
    return Current{run.id<MetaId>(0), std::string(run.utf8(1))};
}

void SearchQuery::add(Kind kind, ElementId id, const Current& element) {
    if (found_.insert(searchRow(kind, id)).second)
        hits_.push_back({kind, element.type, id, loaded(element.name), u"", u""});
}

void SearchQuery::findKeys(Kind kind, bool exact) {
    const std::string key = sought_.key().substr(0, kKeyBytes);
    const bool isCut = key.size() == kKeyBytes;
    const std::string from = exact || isCut ? key : key + '\0';
    const std::string upTo = exact ? key : key + '\xFF';
    for (Run run(statements_.key, kind, from, upTo); !isFull() && run.row();) {
        const auto id = run.id<ElementId>(0);
        const std::optional<Current> element = current(kind, id);
        const std::string now = element ? keyOf(splitter_, element->name) : std::string();
        if (exact ? now == sought_.key() : now.starts_with(sought_.key()) && !now.empty())
            add(kind, id, *element);
        else if (!now.starts_with(key))
            ++stale_;
    }
}

bool SearchQuery::isCommon(Table table, const std::string& word) {
    std::string last = word;
    last += kLastCharacter;
    Run run(statements_.begun.at(static_cast<std::size_t>(table)), word, last, kCommon);
    return run.row() && run.integer(0) >= kCommon;
}

// The words are letters and digits alone, so nothing in them has a meaning of its own between quotes.
std::string SearchQuery::expressionFor(Table table, bool& isExact) {
    const bool mayCut = !isExact;
    isExact = true;
    std::string expression;
    for (const std::string& word : sought_.words()) {
        std::string_view wanted = word;
        if (const std::string_view listed = beginning(word, kListedLetters);
            mayCut && listed.size() < word.size() && isCommon(table, word)) {
            wanted = listed;
            isExact = false;
        }
        expression.append(expression.empty() ? "\"" : " AND \"").append(wanted).append("\"*");
    }
    return expression;
}

void SearchQuery::findRows(Table table) {
    std::int64_t behind = -1;
    bool isExact = false;
    std::string expression = isFull() ? std::string() : expressionFor(table, isExact);
    if (!isFull() && !findRows(table, expression, isExact, behind)) {
        isExact = true;
        expression = expressionFor(table, isExact);
        static_cast<void>(findRows(table, expression, isExact, behind));
    }
}

bool SearchQuery::findRows(Table table, const std::string& expression, bool isExact, std::int64_t& behind) {
    std::size_t unwanted = 0;
    for (Run run(statements_.rows.at(static_cast<std::size_t>(table)), expression, behind);
         !isFull() && run.row();) {
        behind = run.integer(0);
        if (!addIfWanted(table, behind) && ++unwanted > kPatientRows && !isExact)
            return false;
    }
    return true;
}

bool SearchQuery::addIfWanted(Table table, std::int64_t row) {
    if (found_.contains(row))
        return true;
    const Kind kind = kindOfSearchRow(row);
    const ElementId id = elementOfSearchRow(row);
    const std::optional<Current> element = current(kind, id);
    if (!element) {
        ++stale_;
        return false;
    }
    const Found found = table == Table::Names ? inName(*element) : inValues(kind, id, *element);
    if (found.words != sought_.all()) {
        stale_ += found.beginnings != sought_.all() ? 1 : 0;
        return false;
    }
    add(kind, id, *element);
    hits_.back().property = found.property;
    hits_.back().text = found.text;
    return true;
}

void SearchQuery::look(std::string_view utf8, Found& found, std::uint32_t& here, std::size_t& place) const {
    splitter_.each(utf8, [&](std::string_view folded, std::size_t start) {
        const std::uint32_t words = sought_.begun(folded);
        if (here == 0 && words != 0)
            place = start;
        here |= words;
        if (found.beginnings != sought_.all())
            found.beginnings |= sought_.begun(folded, kListedLetters);
        return here != sought_.all();
    });
    found.words |= here;
}

SearchQuery::Found SearchQuery::inName(const Current& element) const {
    Found found;
    std::uint32_t here = 0;
    std::size_t place = 0;
    look(element.name, found, here, place);
    return found;
}

SearchQuery::Found SearchQuery::inValues(Kind kind, ElementId id, const Current& element) {
    Found found = inName(element);
    int most = 0;
    values_.each(kind, id, [&](const std::u16string& property, std::string_view value) {
        std::uint32_t here = 0;
        std::size_t place = 0;
        look(value, found, here, place);
        if (std::popcount(here) > most) {
            most = std::popcount(here);
            found.property = property;
            found.text = excerpt(value, place);
        }
        return here != sought_.all();
    });
    return found;
}

}  // namespace quorel::repository::sqlite
