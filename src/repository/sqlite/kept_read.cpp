#include "repository/sqlite/kept_read.h"

#include <atomic>
#include <chrono>
#include <system_error>

namespace quorel::repository::sqlite {

namespace {

// Places in the log's index, in words, as the storage format fixes them.
constexpr std::size_t kFramesAt = 4;
constexpr std::size_t kCopiedAt = 24;
constexpr int kIndexBytes = 32768;

// A writer copies a log of that many frames into the file at each commit, to begin the log anew. A reading
// that is always there would keep it from ever getting so far.
constexpr std::uint32_t kLongLog = 1000;

constexpr std::chrono::milliseconds kIdle{50};

// A file that is opened for a few questions needs no thread.
constexpr int kFewReads = 32;

/// A reading of a log that is in the file as a whole does not touch the log.
template <class Mark>
[[nodiscard]] bool mayBeKept(const Mark& mark) noexcept {
    return mark[kFramesAt] < kLongLog || mark[kFramesAt] == mark[kCopiedAt];
}

}  // namespace

KeptRead::~KeptRead() {
    {
        const std::lock_guard guard(mutex_);
        ends_ = true;
    }
    wake_.notify_one();
    if (watcher_.joinable())
        watcher_.join();
}

void KeptRead::enter() {
    if (depth_ == 0)
        lock_.lock();
    ++depth_;
}

void KeptRead::leave() noexcept {
    if (--depth_ == 0)
        lock_.unlock();
}

KeptRead::StatementHandle KeptRead::prepared(const char* sql) const {
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v3(connection_, sql, -1, SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
    return StatementHandle(statement);
}

bool KeptRead::isWorthIt() {
    if (uses_ <= kFewReads && ++uses_ > kFewReads)
        findIndex();
    return index_ != nullptr;
}

// Without a log a reading would keep writers out. The question opens the log.
void KeptRead::findIndex() {
    const StatementHandle hasLog =
        prepared("SELECT 1 FROM pragma_journal_mode, sqlite_schema WHERE journal_mode = 'wal'");
    if (!hasLog || sqlite3_step(hasLog.get()) != SQLITE_ROW)
        return;
    sqlite3_file* file = nullptr;
    if (sqlite3_file_control(connection_, "main", SQLITE_FCNTL_FILE_POINTER, &file) != SQLITE_OK ||
        file->pMethods == nullptr || file->pMethods->iVersion < 2)
        return;
    void volatile* index = nullptr;
    if (file->pMethods->xShmMap(file, 0, kIndexBytes, 0, &index) == SQLITE_OK)
        index_ = static_cast<const volatile std::uint32_t*>(index);
}

KeptRead::Mark KeptRead::mark() const noexcept {
    Mark words;
    for (std::size_t i = 0; i < kMarkWords; ++i)
        words[i] = index_[i];
    std::atomic_thread_fence(std::memory_order_acquire);
    return words;
}

int KeptRead::begin() {
    if (depth_ > 1 || sqlite3_get_autocommit(connection_) == 0 || !isWorthIt())
        return SQLITE_OK;
    wasUsed_ = true;
    const Mark now = mark();
    if (isHeld_ && now == mark_)
        return SQLITE_OK;
    end();
    return mayBeKept(now) ? hold(now) : SQLITE_OK;
}

// `now` was read before the reading begins: a commit in between makes it begin anew once more than needed,
// and is never missed.
int KeptRead::hold(const Mark& now) {
    if (!holder_)
        holder_ = prepared("SELECT 1 FROM sqlite_schema");
    try {
        if (!watcher_.joinable())
            watcher_ = std::thread([this] { watch(); });
    } catch (const std::system_error&) {
        index_ = nullptr;
        return SQLITE_OK;
    }
    const int code = holder_ ? sqlite3_step(holder_.get()) : sqlite3_errcode(connection_);
    if (code != SQLITE_ROW) {
        sqlite3_reset(holder_.get());
        return code == SQLITE_DONE ? SQLITE_OK : code;
    }
    mark_ = now;
    isHeld_ = true;
    if (sleeps_)
        wake_.notify_one();
    return SQLITE_OK;
}

void KeptRead::end() noexcept {
    if (isHeld_)
        sqlite3_reset(holder_.get());
    isHeld_ = false;
}

void KeptRead::watch() {
    std::unique_lock lock(mutex_);
    while (!ends_) {
        sleeps_ = true;
        wake_.wait(lock, [this] { return ends_ || isHeld_; });
        sleeps_ = false;
        wasUsed_ = false;
        if (!wake_.wait_for(lock, kIdle, [this] { return ends_; }) && !wasUsed_)
            end();
    }
}

}  // namespace quorel::repository::sqlite
