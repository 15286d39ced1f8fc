// The search index in files that are locked, damaged or prepared by somebody.

#include "tests/repository/file_fixture.h"

namespace quorel::repository::testing {
namespace {

class SearchFile : public RepositoryFile {
  protected:
    SearchFile() { create(); }
    automation::Ref<Repository> open() {
        const auto repository = automation::make<Repository>();
        repository->open(folder_.file());
        return repository;
    }
    /// Books from `first` on, each named "Emma" and a number.
    static void addBooks(Repository& repository, int first, int count) {
        for (int i = first; i < first + count; ++i)
            repository.makeNode(u"Book", numbered(u"Emma ", i), numbered(u"b", i));
    }
    static int count(Repository& repository, const std::u16string& text) {
        return repository.search(text, 1000).get(u"Count").toInteger();
    }
    void makeIndexed() {
        const auto repository = open();
        addBooks(*repository, 0, 50);
        EXPECT_EQ(repository->prepareSearch(10'000), 100);
    }
};

TEST_F(SearchFile, AFileThatNobodySearchesHasNoIndex) {
    const auto repository = open();
    addBooks(*repository, 0, 5);
    const Raw raw = openRaw();
    EXPECT_NE(sqlite3_exec(raw.get(), "SELECT * FROM search_key", nullptr, nullptr, nullptr), SQLITE_OK);
    EXPECT_EQ(count(*repository, u"emma"), 5);
    EXPECT_EQ(sqlite3_exec(raw.get(), "SELECT * FROM search_key", nullptr, nullptr, nullptr), SQLITE_OK);
}

TEST_F(SearchFile, AFileWithAnIndexIsOpenedAgainAndStaysOneFile) {
    makeIndexed();
    EXPECT_EQ(folder_.count(), 1U);
    EXPECT_EQ(count(*open(), u"emma"), 50);
    runRaw("VACUUM");
    EXPECT_EQ(count(*open(), u"emma"), 50);
}

TEST_F(SearchFile, WhileAnotherProgramWritesWhatIsIndexedIsFound) {
    makeIndexed();
    const auto repository = open();
    const Raw other = openRaw();
    ASSERT_EQ(
        sqlite3_exec(other.get(),
                     "BEGIN IMMEDIATE; INSERT INTO node (type, name, identifier) VALUES (1, 'Emma', 'x')",
                     nullptr, nullptr, nullptr),
        SQLITE_OK);
    EXPECT_EQ(count(*repository, u"emma"), 50);
    ASSERT_EQ(sqlite3_exec(other.get(), "COMMIT; BEGIN IMMEDIATE", nullptr, nullptr, nullptr), SQLITE_OK);
    EXPECT_LT(repository->prepareSearch(5), 100);
    EXPECT_FALSE(repository->search(u"emma", 9).get(u"Complete").toBoolean());
    ASSERT_EQ(sqlite3_exec(other.get(), "ROLLBACK", nullptr, nullptr, nullptr), SQLITE_OK);
    EXPECT_EQ(count(*repository, u"emma"), 51);
}

TEST_F(SearchFile, AnIndexWithoutItsTablesIsMadeAnew) {
    makeIndexed();
    runRaw("DROP TABLE search_text; DROP TABLE search_name");
    EXPECT_EQ(count(*open(), u"emma"), 50);
}

TEST_F(SearchFile, ADamagedIndexIsMadeAnew) {
    for (const char* damage :
         {"UPDATE search_name_data SET block = x'00FF00FF00FF'", "DELETE FROM search_name_data",
          "DELETE FROM search_name_idx", "DELETE FROM search_name_config",
          "UPDATE search_name_data SET block = zeroblob(length(block)) WHERE id > 10",
          "UPDATE search_text_data SET block = x'FFFFFFFFFFFFFFFF' WHERE id = 10"}) {
        std::filesystem::remove(path());
        create();
        makeIndexed();
        runRaw(damage);
        const auto repository = open();
        addBooks(*repository, 50, 1);
        // Nothing but answers or errors of ours; what is found is there.
        for (int i = 0; i < 4; ++i) {
            try {
                for (const Object& each : automation::each(repository->search(u"emma 5", 100)))
                    EXPECT_EQ(textOf(each.get(u"name")).substr(0, 5), "Emma ") << damage;
            } catch (const automation::Error& error) {
                EXPECT_EQ(error.number(), 321) << damage;
            }
        }
        EXPECT_EQ(repository->metaNodes()
                      .get(u"Item", u"Book")
                      .toObject()
                      .get(u"Extension")
                      .toObject()
                      .get(u"Count")
                      .toInteger(),
                  51);
    }
}

TEST_F(SearchFile, AnIndexThatTellsLiesFindsNothingThatIsNotThere) {
    makeIndexed();
    runRaw(
        "INSERT INTO search_name (rowid, text) VALUES (7, 'phantom'), (999, 'phantom'), (-5, 'phantom'), "
        "(4611686018427387904, 'phantom');"
        "INSERT INTO search_text (rowid, text) VALUES (7, 'phantom'), (1099511627777, 'phantom');"
        "INSERT INTO search_key VALUES (0, 'phantom', 3), (1, 'phantom', 3), (9, 'phantom', 3), (0, "
        "'phantom', -1), "
        "(0, 5, 'x');"
        "INSERT INTO search_change VALUES (0, -9223372036854775807), (1, 9223372036854775807), (77, 3), (0, "
        "'x'), "
        "('', '')");
    const auto repository = open();
    EXPECT_EQ(count(*repository, u"phantom"), 0);
    EXPECT_EQ(count(*repository, u"emma"), 50);
    EXPECT_EQ(repository->prepareSearch(1000), 100);
}

TEST_F(SearchFile, AStateThatTellsLiesDoesNoHarm) {
    makeIndexed();
    for (const char* lie :
         {"UPDATE search_state SET nodes = 9223372036854775807, links = -1", "DELETE FROM search_state",
          "UPDATE search_state SET nodes = -9223372036854775807, links = 'x'"}) {
        runRaw(lie);
        const auto repository = open();
        repository->prepareSearch(1000);
        static_cast<void>(count(*repository, u"emma"));
        repository->makeNode(u"Book", u"New",
                             numbered(u"new", repository->prepareSearch(5)) + automation::fromUtf8(lie));
    }
}

TEST_F(SearchFile, NumbersBeyondThoseThatAreSearchedAreLeftOut) {
    makeIndexed();
    runRaw(
        "INSERT INTO node (id, type, name, identifier) VALUES (9223372036854775806, 1, 'Emma last', 'last')");
    const auto repository = open();
    EXPECT_EQ(repository->prepareSearch(1000), 100);
    EXPECT_EQ(count(*repository, u"emma"), 50);
}

}  // namespace
}  // namespace quorel::repository::testing
