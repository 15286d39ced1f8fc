#include "repository/sqlite/sqlite_store.h"

#include "repository/errors.h"
#include "repository/sqlite/schema.h"
#include "repository/sqlite/utf8.h"

namespace quorel::repository::sqlite {

SqliteStore::SqliteStore(std::unique_ptr<Database> database)
    : database_(std::move(database)),
      file_(*database_),
      meta_(*database_),
      element_(*database_),
      searchNotes_(*database_) {}

SqliteStore::~SqliteStore() {
    rollback();
    try {
        while (!transient_.empty())
            removeTransient(transient_.back());
    } catch (const std::exception&) {
        // They are removed when the file is opened next.
    }
    database_->endKeptReads();
}

void SqliteStore::begin() {
    searchNotes_.forget();
    Run(file_.begin).finish();
}

void SqliteStore::commit() {
    if (bulk_) {
        createReadIndexes(*database_);
        bulk_ = false;
    }
    Run(file_.commit).finish();
    searchNotes_.forget();
}

void SqliteStore::rollback() noexcept {
    bulk_ = false;
    searchNotes_.forget();
    if (!database_->inTransaction())
        return;
    try {
        Run(file_.rollback).finish();
    } catch (const std::exception&) {
        // A transaction that can not be rolled back here is rolled back when the file is opened next.
    }
}

void SqliteStore::beginSnapshot() {
    Run(file_.beginReading).finish();
}

void SqliteStore::expectBulk() {
    dropReadIndexes(*database_);
    bulk_ = true;
}

SearchEngine& SqliteStore::searchEngine() {
    if (search_ == nullptr)
        search_ = std::make_unique<SearchEngine>(*this, *database_, searchNotes_);
    return *search_;
}

int SqliteStore::prepareSearch(std::chrono::milliseconds duration) {
    return searchEngine().prepare(duration);
}

std::vector<SearchHit> SqliteStore::search(std::u16string_view text, std::size_t limit) {
    return searchEngine().search(text, limit);
}

std::vector<RepositoryProperty> SqliteStore::repositoryProperties() {
    std::vector<RepositoryProperty> properties;
    for (Run run(file_.properties); run.row();)
        properties.push_back({run.text(0), run.text(1)});
    return properties;
}

std::optional<std::u16string> SqliteStore::repositoryProperty(std::u16string_view name) {
    const std::string bytes = stored(name);
    Run run(file_.property, bytes);
    return run.row() ? std::optional(run.text(0)) : std::nullopt;
}

void SqliteStore::setRepositoryProperty(std::u16string_view name, std::u16string_view value) {
    const std::string nameBytes = stored(name);
    const std::string valueBytes = stored(value);
    Run(file_.setProperty, nameBytes, valueBytes).finish();
}

}  // namespace quorel::repository::sqlite
