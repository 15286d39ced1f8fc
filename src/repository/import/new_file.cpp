#include "repository/import/new_file.h"

#include <filesystem>

#include "repository/errors.h"
#include "repository/sqlite/file_check.h"
#include "repository/sqlite/sqlite_store.h"

namespace quorel::repository {

namespace {

/// The unfinished file and what the storage keeps beside it.
class Unfinished {
  public:
    explicit Unfinished(std::u16string file) : file_(std::move(file)) { remove(); }
    Unfinished(const Unfinished&) = delete;
    Unfinished& operator=(const Unfinished&) = delete;
    ~Unfinished() { remove(); }
    [[nodiscard]] const std::u16string& file() const noexcept { return file_; }

  private:
    void remove() const noexcept {
        std::error_code ignored;
        for (const char16_t* suffix : {u"", u"-wal", u"-shm", u"-journal"})
            std::filesystem::remove(sqlite::pathOf(file_ + suffix), ignored);
    }
    std::u16string file_;
};

/// What a session that was cut short left in the log beside an old file would get into the new one, so it
/// goes into the old one first. Throws `Error` 75 when the log stays, since somebody uses the file.
void putLogAway(const std::u16string& file) {
    std::error_code ignored;
    const std::filesystem::path log = sqlite::pathOf(file + u"-wal");
    if (!std::filesystem::exists(log, ignored))
        return;
    (void)sqlite::openStore(file);
    if (std::filesystem::exists(log, ignored))
        throw failure(automation::error_number::kPathFileAccess,
                      u"The file " + inQuotes(file) + u" is in use; close it first");
}

}  // namespace

void makeRepositoryFile(const std::u16string& file, bool replace, const std::function<void(Store&)>& fill) {
    const std::filesystem::path path = sqlite::pathOf(file);
    std::error_code failed;
    if (!replace && std::filesystem::exists(path, failed))
        throw failure(error_number::kFileAlreadyExists, u"The file " + inQuotes(file) + u" already exists");
    const Unfinished unfinished(file + u".importing");
    {
        const std::unique_ptr<Store> store = sqlite::createStore(unfinished.file());
        Transaction transaction(*store);
        store->expectBulk();
        fill(*store);
        transaction.commit();
    }
    putLogAway(file);
    std::filesystem::rename(sqlite::pathOf(unfinished.file()), path, failed);
    if (failed)
        throw failure(automation::error_number::kPathFileAccess,
                      u"The file " + inQuotes(file) + u" cannot be written: it is protected or in use");
}

}  // namespace quorel::repository
