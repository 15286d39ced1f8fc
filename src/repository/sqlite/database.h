#pragma once

#include <sqlite3.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "platform/automation/error.h"
#include "repository/sqlite/kept_read.h"

namespace quorel::repository::sqlite {

/// One connection to one file.
class Database {
  public:
    /// How long a statement waits for a lock of another connection, once a repository is open.
    static constexpr int kPatienceMs = 2000;

    enum class Mode : std::uint8_t { OpenExisting, CreateNew };

    /// `file` may be any UTF-16 path; it is named in every error.
    Database(std::u16string file, Mode mode);

    /// Runs statements that give no rows.
    void run(const char* sql);
    /// The first column of the first row of a statement, as an integer; 0 when there is no row.
    [[nodiscard]] std::int64_t number(const char* sql);
    /// From here until `endKeptReads` the statements that read share one reading of the file. Does nothing
    /// for a file without a log. No statement may be finalized before the end.
    void keepReads() { kept_ = std::make_unique<KeptRead>(handle_.get()); }
    void endKeptReads() noexcept { kept_.reset(); }
    [[nodiscard]] KeptRead* keptRead() const noexcept { return kept_.get(); }
    /// How long a statement waits for a lock of another connection.
    void setPatience(int milliseconds) noexcept { sqlite3_busy_timeout(handle_.get(), milliseconds); }
    /// For a time less patience, then that of `kPatienceMs` again.
    class Patience {
      public:
        Patience(Database& database, int milliseconds) : database_(database) {
            database_.setPatience(std::min(milliseconds, kPatienceMs));
        }
        Patience(const Patience&) = delete;
        Patience& operator=(const Patience&) = delete;
        ~Patience() { database_.setPatience(kPatienceMs); }

      private:
        Database& database_;
    };
    [[nodiscard]] bool isReadOnly() const noexcept { return sqlite3_db_readonly(handle_.get(), "main") == 1; }
    [[nodiscard]] bool inTransaction() const noexcept { return sqlite3_get_autocommit(handle_.get()) == 0; }
    [[nodiscard]] std::int64_t lastInserted() const noexcept {
        return sqlite3_last_insert_rowid(handle_.get());
    }
    [[nodiscard]] std::int64_t changed() const noexcept { return sqlite3_changes64(handle_.get()); }
    /// Changes when a read finds that another connection has written; costs no statement.
    [[nodiscard]] std::uint32_t dataVersion() const {
        const KeptRead::Use use(kept_.get());
        std::uint32_t version = 0;
        sqlite3_file_control(handle_.get(), "main", SQLITE_FCNTL_DATA_VERSION, &version);
        return version;
    }

    [[nodiscard]] const std::u16string& file() const noexcept { return file_; }
    [[nodiscard]] sqlite3* handle() const noexcept { return handle_.get(); }
    /// What the last failed call means for the user.
    [[nodiscard]] automation::Error error(int code) const;

  private:
    struct Close {
        void operator()(sqlite3* handle) const noexcept { sqlite3_close_v2(handle); }
    };

    std::u16string file_;
    std::unique_ptr<sqlite3, Close> handle_;
    std::unique_ptr<KeptRead> kept_;
};

}  // namespace quorel::repository::sqlite
