// Opening and making repository files.

#include "repository/errors.h"
#include "repository/sqlite/file_check.h"
#include "repository/sqlite/schema.h"
#include "repository/sqlite/schema_check.h"
#include "repository/sqlite/sqlite_store.h"

namespace quorel::repository::sqlite {

namespace {

// A commit reaches the log before the member returns, so a killed process loses nothing; only a power failure
// may cost the last changes, never the file.
constexpr const char* kSettings = "PRAGMA synchronous = NORMAL; PRAGMA cache_size = -16384";

}  // namespace

std::unique_ptr<Store> openStore(const std::u16string& file) {
    checkFile(file);
    auto database = std::make_unique<Database>(file, Database::Mode::OpenExisting);
    if (database->isReadOnly())
        throw failure(automation::error_number::kPathFileAccess,
                      u"The repository " + inQuotes(file) + u" is read-only and cannot be changed");
    database->setPatience(Database::kPatienceMs);
    database->run(kSettings);
    checkSchema(*database);
    upgradeSchema(*database);
    auto store = std::make_unique<SqliteStore>(std::move(database));
    store->removeAbandoned();
    store->keepReads();
    return store;
}

std::unique_ptr<Store> createStore(const std::u16string& file) {
    const std::filesystem::path path = pathOf(file);
    std::error_code ignored;
    if (file.empty())
        throw failure(automation::error_number::kInvalidCall, u"A repository file needs a name");
    if (std::filesystem::exists(path, ignored))
        throw failure(error_number::kFileAlreadyExists, u"The file " + inQuotes(file) + u" already exists");
    try {
        auto database = std::make_unique<Database>(file, Database::Mode::CreateNew);
        database->setPatience(Database::kPatienceMs);
        database->run(kSettings);
        createSchema(*database);
        database->run("PRAGMA journal_mode = WAL");
        database->keepReads();
        return std::make_unique<SqliteStore>(std::move(database));
    } catch (...) {
        std::filesystem::remove(path, ignored);
        throw;
    }
}

}  // namespace quorel::repository::sqlite
