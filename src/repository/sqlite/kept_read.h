#pragma once

#include <sqlite3.h>

#include <array>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <mutex>
#include <thread>

namespace quorel::repository::sqlite {

/// A reading of a connection's file that goes on from statement to statement, so that not every one of them
/// takes and gives back the locks of the file. What a statement sees is exactly what it would see by itself:
/// before each, the head of the log's index, which every commit changes, is compared with what it was, and
/// the reading begins anew when it is another. An idle reading ends by itself within a tenth of a second.
///
/// The thread that ends it uses the connection, so whoever else uses it does so within a `Use`.
class KeptRead {
  public:
    explicit KeptRead(sqlite3* connection) : connection_(connection) {}
    KeptRead(const KeptRead&) = delete;
    KeptRead& operator=(const KeptRead&) = delete;
    ~KeptRead();

    /// A time in which the connection is used; they may be nested. Harmless without a kept reading.
    class Use {
      public:
        explicit Use(KeptRead* kept) : kept_(kept) {
            if (kept_ != nullptr)
                kept_->enter();
        }
        Use(const Use&) = delete;
        Use& operator=(const Use&) = delete;
        ~Use() {
            if (kept_ != nullptr)
                kept_->leave();
        }

      private:
        KeptRead* kept_;
    };

    /// Before a statement that reads: what SQLite says when there can be no reading, else SQLITE_OK. A
    /// statement within another one, or within a transaction, belongs to that one's reading.
    [[nodiscard]] int begin();
    /// Before any other statement.
    void end() noexcept;

  private:
    /// The two copies of the index's header and how much of the log a checkpoint has copied.
    static constexpr std::size_t kMarkWords = 25;
    using Mark = std::array<std::uint32_t, kMarkWords>;

    void enter();
    void leave() noexcept;
    [[nodiscard]] bool isWorthIt();
    void findIndex();
    [[nodiscard]] Mark mark() const noexcept;
    [[nodiscard]] int hold(const Mark& now);
    void watch();

    struct Finalize {
        void operator()(sqlite3_stmt* statement) const noexcept { sqlite3_finalize(statement); }
    };
    using StatementHandle = std::unique_ptr<sqlite3_stmt, Finalize>;
    [[nodiscard]] StatementHandle prepared(const char* sql) const;

    sqlite3* connection_;
    /// Null until it is found, and for ever where there is none.
    const volatile std::uint32_t* index_ = nullptr;
    StatementHandle holder_;
    Mark mark_{};
    bool isHeld_ = false;
    int uses_ = 0;  ///< counted only as long as they are few
    bool wasUsed_ = false;

    std::mutex mutex_;
    std::unique_lock<std::mutex> lock_{mutex_, std::defer_lock};
    int depth_ = 0;
    std::condition_variable wake_;
    bool sleeps_ = false, ends_ = false;
    std::thread watcher_;
};

}  // namespace quorel::repository::sqlite
