#pragma once

#include <optional>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

#include "repository/search_hit.h"
#include "repository/sqlite/search_values.h"
#include "repository/sqlite/words.h"

namespace quorel::repository::sqlite {

/// The statements of a search.
struct SearchStatements {
    explicit SearchStatements(Database& database);
    Statement types;                        // -
    std::array<Statement, 2> byIdentifier;  // identifier
    std::array<Statement, 2> element;       // id
    Statement key;                          // kind, from, up to
    std::array<Statement, 2> rows;          // expression, behind which row: of names, of texts
    std::array<Statement, 2> begun;         // from, up to, limit: occurrences of words, of names, of texts
};

/// One search: it looks in the index, and then at what is there now.
class SearchQuery {
  public:
    SearchQuery(SearchStatements& statements, const WordSplitter& splitter, ShownValues& values,
                std::u16string_view text, std::size_t limit);

    /// `hasIndex` tells whether there is more to look in than types.
    void run(bool hasIndex);
    /// What was found, also when `run` came to no end.
    [[nodiscard]] std::vector<SearchHit> takeHits() noexcept { return std::move(hits_); }
    /// How much was found in the index that is there no more.
    [[nodiscard]] std::size_t stale() const noexcept { return stale_; }

  private:
    enum class Table : std::uint8_t { Names, Texts };
    /// What the file says of an element.
    struct Current {
        MetaId type;
        std::string name;
    };

    /// What of the words is there now.
    struct Found {
        std::uint32_t words = 0, beginnings = 0;
        std::u16string property, text;
    };

    [[nodiscard]] bool isFull() const noexcept { return hits_.size() >= limit_; }
    void findTypes();
    void findIdentifiers();
    void findKeys(Kind kind, bool exact);
    void findRows(Table table);
    /// The same for one expression, behind that row. False when it finds more than is wanted and hardly
    /// anything that is: then the rest is to be found otherwise.
    [[nodiscard]] bool findRows(Table table, const std::string& expression, bool isExact,
                                std::int64_t& behind);
    [[nodiscard]] bool addIfWanted(Table table, std::int64_t row);
    /// An expression that finds at least what is wanted; `isExact` says whether it has to be no more, and
    /// then whether it is.
    [[nodiscard]] std::string expressionFor(Table table, bool& isExact);
    [[nodiscard]] bool isCommon(Table table, const std::string& word);
    [[nodiscard]] std::optional<Current> current(Kind kind, ElementId id);
    /// `here` are the words in this text, `place` that of the first of them.
    void look(std::string_view utf8, Found& found, std::uint32_t& here, std::size_t& place) const;
    [[nodiscard]] Found inName(const Current& element) const;
    [[nodiscard]] Found inValues(Kind kind, ElementId id, const Current& element);
    void add(Kind kind, ElementId id, const Current& element);

    SearchStatements& statements_;
    const WordSplitter& splitter_;
    ShownValues& values_;
    std::string text_;
    SoughtWords sought_;
    std::size_t limit_;
    std::vector<SearchHit> hits_;
    std::unordered_set<std::int64_t> found_;
    std::size_t stale_ = 0;
};

}  // namespace quorel::repository::sqlite
