// Reads share one reading of the file: what they see, and what others can do meanwhile.

#include <sqlite3.h>
#ifdef _WIN32
#include <windows.h>
#endif

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <thread>

#include "tests/repository/library_fixture.h"

namespace quorel::repository::testing {
namespace {

constexpr std::uintmax_t kFrame = 4096 + 24;

struct CloseRaw {
    void operator()(sqlite3* handle) const noexcept { sqlite3_close(handle); }
};

/// Another program's connection.
class RawConnection {
  public:
    explicit RawConnection(const std::filesystem::path& file) {
        sqlite3* handle = nullptr;
        EXPECT_EQ(sqlite3_open(file.string().c_str(), &handle), SQLITE_OK);
        handle_.reset(handle);
        run("PRAGMA synchronous = OFF");
    }
    void run(const std::string& sql) {
        EXPECT_EQ(sqlite3_exec(handle_.get(), sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
            << sql << ": " << sqlite3_errmsg(handle_.get());
    }
    /// The first column of the first row.
    [[nodiscard]] int number(const char* sql) {
        sqlite3_stmt* statement = nullptr;
        EXPECT_EQ(sqlite3_prepare_v2(handle_.get(), sql, -1, &statement, nullptr), SQLITE_OK) << sql;
        EXPECT_EQ(sqlite3_step(statement), SQLITE_ROW) << sql;
        const int value = sqlite3_column_int(statement, 0);
        sqlite3_finalize(statement);
        return value;
    }
    [[nodiscard]] bool emptiesTheLog() { return number("PRAGMA wal_checkpoint(TRUNCATE)") == 0; }

  private:
    std::unique_ptr<sqlite3, CloseRaw> handle_;
};

class KeptRead : public LibraryTest {
  protected:
    KeptRead() { readOften(); }
    /// So often that the reading is kept.
    void readOften() {
        for (int i = 0; i < 100; ++i)
            static_cast<void>(pages());
    }
    [[nodiscard]] std::int32_t pages() { return book_.get(u"Pages").toInteger(); }
    [[nodiscard]] std::filesystem::path path() const { return folder_.path() / "test.quorel"; }
    [[nodiscard]] std::uintmax_t logSize() const {
        return std::filesystem::file_size(folder_.path() / "test.quorel-wal");
    }

    Object book_ = [this] {
        const Object book = makeBook(u"Emma", u"b");
        book.put(u"Pages", 0);
        return book;
    }();
};

TEST_F(KeptRead, SeesTheChangesOfAnotherOpeningAtOnce) {
    const auto second = automation::make<Repository>();
    second->open(folder_.file());
    const Object same = second->metaNodes().item(u"Book").toObject().get(u"Extension", u"b").toObject();
    for (std::int32_t i = 1; i <= 500; ++i) {
        same.put(u"Pages", i);
        ASSERT_EQ(pages(), i);
        book_.put(u"Subtitle", numbered(u"of ", i));
        ASSERT_EQ(textOf(same.get(u"Subtitle")), "of " + std::to_string(i));
        if (i % 100 == 0)
            readOften();
    }
}

/// The path of a program beside this one, for the shell.
std::string programBeside(const std::string& name) {
#ifdef _WIN32
    wchar_t self[MAX_PATH];
    ::GetModuleFileNameW(nullptr, self, MAX_PATH);
    return (std::filesystem::path(self).parent_path() / (name + ".exe")).string();
#else
    return (std::filesystem::read_symlink("/proc/self/exe").parent_path() / name).string();
#endif
}

struct CloseProgram {
    void operator()(std::FILE* output) const noexcept {
#ifdef _WIN32
        EXPECT_EQ(_pclose(output), 0);
#else
        EXPECT_EQ(pclose(output), 0);
#endif
    }
};

/// Runs a program; gives what it prints.
std::unique_ptr<std::FILE, CloseProgram> started(const std::string& command) {
#ifdef _WIN32
    // The shell there takes away the first and the last quotation mark.
    return std::unique_ptr<std::FILE, CloseProgram>(_popen(("\"" + command + "\"").c_str(), "r"));
#else
    return std::unique_ptr<std::FILE, CloseProgram>(popen(command.c_str(), "r"));
#endif
}

TEST_F(KeptRead, SeesTheChangesOfAnotherProcessAtOnce) {
    constexpr std::int32_t kChanges = 500;
    const auto writer = started("\"" + programBeside("repository_writer") + "\" \"" + path().string() +
                                "\" " + std::to_string(kChanges));
    ASSERT_NE(writer, nullptr);
    std::int32_t last = 0;
    for (char line[32]; std::fgets(line, sizeof line, writer.get()) != nullptr;) {
        last = std::atoi(line);
        for (int again = 0; again < 5; ++again)
            ASSERT_GE(pages(), last);
    }
    EXPECT_EQ(last, kChanges);
    EXPECT_EQ(pages(), kChanges);
}

TEST_F(KeptRead, GivesWayToWhatTheSessionItselfWrites) {
    Store& store = native_->store();
    for (std::int32_t i = 1; i <= 100; ++i) {
        readOften();
        book_.put(u"Pages", i);
        ASSERT_EQ(pages(), i);
        {
            Transaction transaction(store);
            book_.put(u"Pages", -i);
            ASSERT_EQ(pages(), -i);
        }
        ASSERT_EQ(pages(), i) << "rolled back";
    }
}

TEST_F(KeptRead, ASnapshotIsOfTheTimeWhenItIsMade) {
    RawConnection other(path());
    readOften();
    other.run("UPDATE node_property SET value = 1");
    {
        const Snapshot snapshot(native_->store());
        EXPECT_EQ(pages(), 1);
        other.run("UPDATE node_property SET value = 2");
        readOften();
        EXPECT_EQ(pages(), 1);
    }
    EXPECT_EQ(pages(), 2);
}

TEST_F(KeptRead, SeesNothingOfAChangeThatIsNotCommitted) {
    RawConnection other(path());
    readOften();
    other.run("BEGIN IMMEDIATE; UPDATE node_property SET value = 7");
    EXPECT_EQ(pages(), 0);
    EXPECT_EQ(errorOf([&] { book_.put(u"Pages", 8); }).number(), 70);
    EXPECT_EQ(pages(), 0);
    other.run("ROLLBACK");
    EXPECT_EQ(pages(), 0);
    book_.put(u"Pages", 8);
    EXPECT_EQ(pages(), 8);
}

TEST_F(KeptRead, AnIdleReaderLetsAWriterEmptyTheLog) {
    RawConnection other(path());
    other.run("UPDATE node_property SET value = 1");
    readOften();
    for (std::int32_t i = 2; i <= 3000; ++i)
        other.run("UPDATE node_property SET value = " + std::to_string(i));
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    bool emptied = other.emptiesTheLog();
    while (!emptied && std::chrono::steady_clock::now() < end) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
        emptied = other.emptiesTheLog();
    }
    EXPECT_TRUE(emptied);
    EXPECT_EQ(logSize(), 0U);
    for (std::int32_t i = 1; i <= 3000; ++i)
        other.run("UPDATE node_property SET value = " + std::to_string(i));
    EXPECT_LT(logSize(), 1100 * kFrame);
    EXPECT_EQ(pages(), 3000);
}

TEST_F(KeptRead, AReaderThatIsNeverIdleLetsAWriterBeginTheLogAnew) {
    RawConnection other(path());
    for (std::int32_t i = 1; i <= 3000; ++i) {
        other.run("UPDATE node_property SET value = " + std::to_string(i));
        ASSERT_EQ(pages(), i);
    }
    EXPECT_LT(logSize(), 1100 * kFrame);
}

TEST_F(KeptRead, AFileWithoutALogIsReadAndWrittenByOthersAsEver) {
    book_.reset();
    native_->close();
    RawConnection other(path());
    other.run("PRAGMA journal_mode = DELETE");
    reopen();
    book_ = extension(u"Book").item(u"b").toObject();
    for (std::int32_t i = 1; i <= 20; ++i) {
        readOften();
        other.run("UPDATE node_property SET value = " + std::to_string(i));
        ASSERT_EQ(pages(), i);
    }
    EXPECT_EQ(folder_.count(), 1U);
}

TEST_F(KeptRead, ACopyMadeMeanwhileIsWhole) {
    readOften();
    RawConnection(path()).run("VACUUM INTO '" + (folder_.path() / "copy.quorel").string() + "'");
    const auto copy = automation::make<Repository>();
    copy->open(folder_.file("copy.quorel"));
    EXPECT_EQ(namesOf(copy->item(u"Book").get(u"Extension")), std::vector<std::string>{"Emma"});
}

TEST_F(KeptRead, EndsWithTheRepository) {
    readOften();
    native_->close();
    EXPECT_EQ(folder_.count(), 1U);
    EXPECT_TRUE(std::filesystem::remove(path()));
    EXPECT_FALSE(std::filesystem::exists(path()));
}

}  // namespace
}  // namespace quorel::repository::testing
