#include "repository/sqlite/search_notes.h"

namespace quorel::repository::sqlite {

SearchNotes::SearchNotes(Database& database)
    : read_(database, "SELECT nodes, links FROM search_state WHERE id = 1"),
      write_(database, "REPLACE INTO search_state (id, nodes, links) VALUES (1, ?1, ?2)"),
      note_(database, "INSERT OR IGNORE INTO search_change (kind, element) VALUES (?1, ?2)") {}

void SearchNotes::changed(Kind kind, ElementId id) {
    if (!state_)
        state_ = read();
    if (id <= state_->upTo(kind))
        Run(note_, kind, id).finish();
}

SearchState SearchNotes::read() {
    Run run(read_);
    return run.row() ? SearchState{run.id<ElementId>(0), run.id<ElementId>(1)} : SearchState{};
}

void SearchNotes::write(const SearchState& state) {
    Run(write_, state.nodes, state.links).finish();
    state_.reset();
}

}  // namespace quorel::repository::sqlite
