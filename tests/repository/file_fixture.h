#pragma once

#include <sqlite3.h>

#include <memory>

#include "tests/repository/library_fixture.h"

namespace quorel::repository::testing {

/// A folder with files that tests make by the repository or, behind its back, by the database alone.
class RepositoryFile : public ::testing::Test {
  protected:
    automation::Error openError(const std::string& name = "test.quorel") {
        return errorOf([&] { automation::make<Repository>()->open(folder_.file(name)); });
    }
    void create(const std::string& name = "test.quorel") {
        const auto repository = automation::make<Repository>();
        repository->create(folder_.file(name));
        repository->makeMetaNode(u"Book", u"");
    }
    [[nodiscard]] std::filesystem::path path(const std::string& name = "test.quorel") const {
        return folder_.path() / name;
    }
    /// Opening the file fails, changes no byte of it and leaves nothing beside it.
    void expectUntouched(std::int32_t number, const std::string& words) {
        const std::string before = contentsOf(path());
        const automation::Error error = openError();
        EXPECT_EQ(error.number(), number);
        EXPECT_NE(std::string(error.what()).find(words), std::string::npos) << error.what();
        EXPECT_TRUE(contentsOf(path()) == before);
        EXPECT_EQ(folder_.count(), 1U);
    }
    struct CloseRaw {
        void operator()(sqlite3* handle) const noexcept { sqlite3_close(handle); }
    };
    using Raw = std::unique_ptr<sqlite3, CloseRaw>;
    Raw openRaw() {
        sqlite3* handle = nullptr;
        EXPECT_EQ(sqlite3_open(path().string().c_str(), &handle), SQLITE_OK);
        return Raw(handle);
    }
    void runRaw(const std::string& sql) {
        EXPECT_EQ(sqlite3_exec(openRaw().get(), sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK) << sql;
    }

    /// What makes a file of the present version, that nobody has searched, one of the second.
    static constexpr const char* kAsVersionTwo =
        "DROP TABLE search_state; DROP TABLE search_change; PRAGMA user_version = 2;";

    TemporaryFolder folder_;
};

}  // namespace quorel::repository::testing
