#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "repository/sqlite/database.h"

namespace quorel::repository::sqlite {

/// One SQL statement, compiled at its first use and kept.
class Statement {
  public:
    Statement(Database& database, std::string sql) : database_(database), sql_(std::move(sql)) {}
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;
    ~Statement() { sqlite3_finalize(handle_); }

  private:
    friend class Run;
    void prepare();

    Database& database_;
    std::string sql_;
    sqlite3_stmt* handle_ = nullptr;
    bool reads_ = false;
};

/// One execution of a statement; its end makes the statement ready for the next. Text and bytes that are
/// bound are not copied and must outlive it.
class Run {
  public:
    /// Binds the arguments in order: integers, enumerations over integers, doubles, UTF-8 text.
    template <class... Args>
    explicit Run(Statement& statement, const Args&... arguments)
        : statement_(statement), use_(statement.database_.keptRead()) {
        if (statement.handle_ == nullptr)
            statement.prepare();
        if (KeptRead* kept = statement.database_.keptRead())
            prepareReading(*kept);
        int index = 0;
        (bind(++index, arguments), ...);
    }
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;
    ~Run() { sqlite3_reset(statement_.handle_); }

    /// True while there is a row.
    [[nodiscard]] bool row() {
        const int code = sqlite3_step(statement_.handle_);
        if (code == SQLITE_ROW)
            return true;
        if (code != SQLITE_DONE)
            throw statement_.database_.error(code);
        return false;
    }
    /// For statements that give no rows.
    void finish() { static_cast<void>(row()); }
    /// The same, but tells a broken uniqueness rule (false) from success.
    [[nodiscard]] bool finishUnlessTaken();

    [[nodiscard]] int type(int column) const noexcept {
        return sqlite3_column_type(statement_.handle_, column);
    }
    [[nodiscard]] std::int64_t integer(int column) const noexcept {
        return sqlite3_column_int64(statement_.handle_, column);
    }
    template <class Id>
    requires std::is_enum_v<Id>
    [[nodiscard]] Id id(int column) const noexcept { return static_cast<Id>(integer(column)); }
    [[nodiscard]] double real(int column) const noexcept {
        return sqlite3_column_double(statement_.handle_, column);
    }
    [[nodiscard]] std::u16string text(int column) const;
    /// As it is stored; good until the next row.
    [[nodiscard]] std::string_view utf8(int column) const;
    [[nodiscard]] std::vector<std::uint8_t> bytes(int column) const;

    void bind(int index, std::int64_t value) { sqlite3_bind_int64(statement_.handle_, index, value); }
    void bind(int index, std::size_t value) { bind(index, static_cast<std::int64_t>(value)); }
    void bind(int index, int value) { bind(index, static_cast<std::int64_t>(value)); }
    void bind(int index, bool value) { bind(index, static_cast<std::int64_t>(value)); }
    void bind(int index, double value) { sqlite3_bind_double(statement_.handle_, index, value); }
    void bind(int index, const std::string& utf8) {
        sqlite3_bind_text64(statement_.handle_, index, utf8.data(), utf8.size(), SQLITE_STATIC, SQLITE_UTF8);
    }
    void bind(int index, std::nullptr_t) { sqlite3_bind_null(statement_.handle_, index); }
    void bind(int index, const std::vector<std::uint8_t>& bytes);
    template <class Id>
    requires std::is_enum_v<Id>
    void bind(int index, Id id) { bind(index, static_cast<std::int64_t>(id)); }

  private:
    void prepareReading(KeptRead& kept) {
        if (!statement_.reads_)
            return kept.end();
        if (const int code = kept.begin(); code != SQLITE_OK)
            throw statement_.database_.error(code);
    }

    Statement& statement_;
    KeptRead::Use use_;
};

}  // namespace quorel::repository::sqlite
