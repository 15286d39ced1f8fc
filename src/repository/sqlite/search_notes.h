#pragma once

#include <optional>

#include "repository/model.h"
#include "repository/sqlite/statement.h"

namespace quorel::repository::sqlite {

/// Up to which numbers elements are in the search index.
struct SearchState {
    ElementId nodes{}, links{};
    [[nodiscard]] ElementId& upTo(Kind kind) noexcept { return kind == Kind::Node ? nodes : links; }
    [[nodiscard]] ElementId upTo(Kind kind) const noexcept { return kind == Kind::Node ? nodes : links; }
};

/// What writers tell the search index: which of the elements that are in it have changed. New elements need
/// no note, for their numbers are above those that the index has; neither do removed ones, for whatever the
/// index finds is looked up. All within the transaction of the change.
class SearchNotes {
  public:
    explicit SearchNotes(Database& database);

    /// A transaction begins or ends.
    void forget() noexcept { state_.reset(); }
    /// The name or a value of the element changes.
    void changed(Kind kind, ElementId id);

    [[nodiscard]] SearchState read();
    void write(const SearchState& state);

  private:
    Statement read_, write_, note_;
    /// Nobody else can change it while the transaction is open.
    std::optional<SearchState> state_;
};

}  // namespace quorel::repository::sqlite
