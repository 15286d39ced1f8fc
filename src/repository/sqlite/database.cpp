#include "repository/sqlite/database.h"

#include <utility>

#include "platform/automation/text.h"
#include "repository/errors.h"

namespace quorel::repository::sqlite {

namespace {

struct Setting {
    int what, value;
};

// A file from elsewhere must not be able to do more than hold data.
constexpr Setting kDefences[] = {
    {SQLITE_DBCONFIG_DEFENSIVE, 1},
    {SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0},
    {SQLITE_DBCONFIG_ENABLE_TRIGGER, 0},
    {SQLITE_DBCONFIG_ENABLE_VIEW, 0},
    {SQLITE_DBCONFIG_WRITABLE_SCHEMA, 0},
    {SQLITE_DBCONFIG_ENABLE_LOAD_EXTENSION, 0},
    {SQLITE_DBCONFIG_ENABLE_FTS3_TOKENIZER, 0},
    {SQLITE_DBCONFIG_ENABLE_FKEY, 1},
};

// Far above what the statements of this program need, far below what the ones in a file could cost.
constexpr Setting kLimits[] = {
    {SQLITE_LIMIT_SQL_LENGTH, 100'000},  {SQLITE_LIMIT_COLUMN, 100},
    {SQLITE_LIMIT_EXPR_DEPTH, 50},       {SQLITE_LIMIT_COMPOUND_SELECT, 10},
    {SQLITE_LIMIT_VDBE_OP, 25'000},      {SQLITE_LIMIT_FUNCTION_ARG, 16},
    {SQLITE_LIMIT_ATTACHED, 0},          {SQLITE_LIMIT_LIKE_PATTERN_LENGTH, 1000},
    {SQLITE_LIMIT_VARIABLE_NUMBER, 100}, {SQLITE_LIMIT_TRIGGER_DEPTH, 10},
    {SQLITE_LIMIT_WORKER_THREADS, 0},
};

}  // namespace

Database::Database(std::u16string file, Mode mode) : file_(std::move(file)) {
    sqlite3* handle = nullptr;
    const int flags = SQLITE_OPEN_READWRITE | (mode == Mode::CreateNew ? SQLITE_OPEN_CREATE : 0);
    const int code = sqlite3_open_v2(automation::toUtf8(file_).c_str(), &handle, flags, nullptr);
    handle_.reset(handle);
    if (code != SQLITE_OK)
        throw error(code);
    sqlite3_extended_result_codes(handle, 1);
    for (const Setting& defence : kDefences)
        sqlite3_db_config(handle, defence.what, defence.value, nullptr);
    for (const Setting& limit : kLimits)
        sqlite3_limit(handle, limit.what, limit.value);
    run("PRAGMA cell_size_check = ON");
}

void Database::run(const char* sql) {
    const KeptRead::Use use(kept_.get());
    if (kept_)
        kept_->end();
    const int code = sqlite3_exec(handle_.get(), sql, nullptr, nullptr, nullptr);
    if (code != SQLITE_OK)
        throw error(code);
}

std::int64_t Database::number(const char* sql) {
    const KeptRead::Use use(kept_.get());
    if (kept_)
        kept_->end();
    sqlite3_stmt* statement = nullptr;
    int code = sqlite3_prepare_v2(handle_.get(), sql, -1, &statement, nullptr);
    const std::unique_ptr<sqlite3_stmt, decltype(&sqlite3_finalize)> owner(statement, &sqlite3_finalize);
    if (code == SQLITE_OK)
        code = sqlite3_step(statement);
    if (code == SQLITE_ROW)
        return sqlite3_column_int64(statement, 0);
    if (code == SQLITE_DONE)
        return 0;
    throw error(code);
}

automation::Error Database::error(int code) const {
    using namespace error_number;
    const std::u16string name = inQuotes(file_);
    const char* message = handle_ ? sqlite3_errmsg(handle_.get()) : sqlite3_errstr(code);
    switch (code & 0xFF) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return failure(kPermissionDenied, u"The repository " + name + u" is locked by another program");
        case SQLITE_READONLY:
        case SQLITE_PERM:
        case SQLITE_AUTH:
            return failure(automation::error_number::kPathFileAccess,
                           u"The repository " + name + u" is read-only and cannot be changed");
        case SQLITE_CANTOPEN:
            return failure(
                automation::error_number::kPathFileAccess,
                u"The repository " + name + u" cannot be opened: the file or its folder is not accessible");
        case SQLITE_FULL:
            return failure(kDiskFull, u"The disk is full; the repository " + name + u" was not changed");
        case SQLITE_IOERR:
            return failure(kDeviceIo,
                           u"The repository " + name + u" cannot be read or written: input/output error");
        case SQLITE_NOMEM:
            return failure(automation::error_number::kOutOfMemory, u"Out of memory");
        case SQLITE_TOOBIG:
            return failure(automation::error_number::kOverflow, u"The value is too large for a repository");
        default:
            return failure(kBadFileFormat,
                           u"The repository " + name + u" is damaged: " + automation::fromUtf8(message));
    }
}

}  // namespace quorel::repository::sqlite
