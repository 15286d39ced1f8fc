// Files that somebody prepared: they are refused, or give errors, and nothing in them is run.

#include <algorithm>

#include "repository/sqlite/database.h"
#include "repository/sqlite/schema.h"
#include "repository/sqlite/schema_check.h"
#include "tests/repository/file_fixture.h"

namespace quorel::repository::testing {
namespace {

class HostileFile : public RepositoryFile {
  protected:
    /// Runs `sql` on a fresh repository and lets its owner open that.
    void expectRefused(const std::string& sql, const std::string& words) {
        std::filesystem::remove(path());
        create();
        runRaw(sql);
        expectUntouched(321, words);
    }
    /// Puts `instead` in the place of `part` in the text that made the table or index `name`.
    [[nodiscard]] static std::string rewrite(const std::string& name, const std::string& part,
                                             const std::string& instead) {
        return "PRAGMA writable_schema = ON; UPDATE sqlite_schema SET sql = replace(sql, '" + part + "', '" +
               instead + "') WHERE name = '" + name + "'; PRAGMA writable_schema = OFF";
    }
};

TEST_F(HostileFile, ATriggerIsRefusedByName) {
    expectRefused("CREATE TRIGGER evil AFTER INSERT ON node BEGIN DELETE FROM node; END",
                  "is refused: it holds the trigger 'evil', which no repository has");
}

TEST_F(HostileFile, AViewIsRefusedByName) {
    expectRefused("CREATE VIEW evil AS SELECT * FROM node",
                  "is refused: it holds the view 'evil', which no repository has");
}

TEST_F(HostileFile, AViewInPlaceOfATableIsRefused) {
    expectRefused(
        "DROP TABLE node_property; CREATE VIEW node_property AS SELECT 1 AS node, 1 AS property, 'x' AS "
        "value",
        "is refused: it holds the view 'node_property', which no repository has");
}

TEST_F(HostileFile, ATriggerOnAViewInPlaceOfATableIsRefused) {
    expectRefused(
        "ALTER TABLE repository_property RENAME TO kept;"
        "CREATE VIEW repository_property AS SELECT * FROM kept;"
        "CREATE TRIGGER evil INSTEAD OF INSERT ON repository_property BEGIN DELETE FROM node; END",
        "which no repository has");
}

TEST_F(HostileFile, AnIndexOnAFunctionIsRefused) {
    expectRefused("CREATE INDEX evil ON node (abs(length(name)))",
                  "is refused: it holds the index 'evil', which no repository has");
    expectRefused("DROP INDEX node_by_name; CREATE INDEX node_by_name ON node (type, upper(name))",
                  "is refused: its index 'node_by_name' is not made as that of a repository");
}

TEST_F(HostileFile, AnIndexOfOursOnAnotherTableIsRefused) {
    expectRefused("DROP INDEX link_by_type; CREATE INDEX link_by_type ON node (type)",
                  "its index 'link_by_type' is not made as that of a repository");
}

TEST_F(HostileFile, AGeneratedColumnIsRefused) {
    expectRefused("ALTER TABLE node ADD COLUMN evil AS (hex(zeroblob(100000000)))",
                  "is refused: its table 'node' is not made as that of a repository");
}

TEST_F(HostileFile, ACheckWithAFunctionIsRefused) {
    expectRefused(
        rewrite("node", "name       TEXT NOT NULL", "name TEXT NOT NULL CHECK (randomblob(9) <> name)"),
        "is refused: its table 'node' is not made as that of a repository");
}

TEST_F(HostileFile, ADefaultThatIsAnExpressionIsRefused) {
    expectRefused(rewrite("link", "detached   INTEGER NOT NULL DEFAULT 0",
                          "detached INTEGER NOT NULL DEFAULT (random())"),
                  "is refused: its table 'link' is not made as that of a repository");
}

TEST_F(HostileFile, AReferenceThatDeletesMoreIsRefused) {
    expectRefused(
        rewrite("node", "REFERENCES meta_object (id)", "REFERENCES meta_object (id) ON DELETE CASCADE"),
        "is refused: its table 'node' is not made as that of a repository");
}

TEST_F(HostileFile, AVirtualTableIsRefused) {
    expectRefused("CREATE VIRTUAL TABLE evil USING fts5(body)", "which no repository has");
    expectRefused(
        "DROP TABLE repository_property; CREATE VIRTUAL TABLE repository_property USING fts5(name, value)",
        "'repository_property");
}

TEST_F(HostileFile, ATableOfStatisticsIsRefused) {
    expectRefused("ANALYZE", "is refused: it holds the table 'sqlite_stat");
}

TEST_F(HostileFile, AFileOfTheFirstVersionIsLookedAtBeforeItIsBroughtUpToDate) {
    expectRefused(std::string(kAsVersionTwo) +
                      "ALTER TABLE meta_property DROP COLUMN category; PRAGMA user_version = 1;"
                      "CREATE TRIGGER evil AFTER UPDATE ON node BEGIN DELETE FROM node; END",
                  "is refused: it holds the trigger 'evil', which no repository has");
}

TEST_F(HostileFile, AFileThatOnlySaysThatItIsOfTheFirstVersionIsRefused) {
    expectRefused(std::string(kAsVersionTwo) + "PRAGMA user_version = 1",
                  "its table 'meta_property' is not made as that of a repository");
}

TEST_F(HostileFile, AnOrdinaryFileHasNothingToRefuse) {
    create();
    automation::make<Repository>()->open(folder_.file());
    runRaw("VACUUM");
    automation::make<Repository>()->open(folder_.file());
}

// What would hold even if one of them got through.
class Defence : public RepositoryFile {
  protected:
    automation::Error errorIn(const std::string& hostile, const char* sql) {
        create();
        runRaw(hostile);
        sqlite::Database database(folder_.file(), sqlite::Database::Mode::OpenExisting);
        return errorOf([&] { database.run(sql); });
    }
};

TEST_F(Defence, TriggersDoNotRun) {
    create();
    runRaw("CREATE TRIGGER evil AFTER INSERT ON repository_property BEGIN DELETE FROM meta_object; END");
    sqlite::Database database(folder_.file(), sqlite::Database::Mode::OpenExisting);
    database.run("INSERT INTO repository_property VALUES ('a', 'b')");
    EXPECT_EQ(database.number("SELECT count(*) FROM meta_object"), 1);
}

TEST_F(Defence, ViewsAreNotRead) {
    EXPECT_NE(std::string(errorIn("CREATE VIEW evil AS SELECT 1", "SELECT * FROM evil").what()).find("view"),
              std::string::npos);
}

/// Stands for any function of a program that does more than to reckon.
void addReachingFunction(sqlite3* connection, int& calls) {
    const auto call = [](sqlite3_context* context, int, sqlite3_value**) {
        ++*static_cast<int*>(sqlite3_user_data(context));
    };
    sqlite3_create_function(connection, "reach", 1, SQLITE_UTF8 | SQLITE_DETERMINISTIC, &calls, call, nullptr,
                            nullptr);
}

TEST_F(Defence, FunctionsThatReachOutsideAreNotCalledByAFile) {
    create();
    int calls = 0;
    {
        const Raw raw = openRaw();
        addReachingFunction(raw.get(), calls);
        ASSERT_EQ(
            sqlite3_exec(raw.get(), "CREATE TABLE evil (x, y AS (reach(x))); INSERT INTO evil VALUES (1)",
                         nullptr, nullptr, nullptr),
            SQLITE_OK);
    }
    sqlite::Database database(folder_.file(), sqlite::Database::Mode::OpenExisting);
    addReachingFunction(database.handle(), calls);
    calls = 0;
    const auto error = errorOf([&] { static_cast<void>(database.number("SELECT y FROM evil")); });
    EXPECT_NE(std::string(error.what()).find("unsafe use of reach"), std::string::npos) << error.what();
    EXPECT_EQ(calls, 0);
}

TEST_F(Defence, NoOtherFileIsReached) {
    EXPECT_NE(std::string(errorIn("", "ATTACH 'other.db' AS other").what()).find("too many attached"),
              std::string::npos);
    EXPECT_FALSE(std::filesystem::exists("other.db"));
}

TEST_F(Defence, ASchemaCannotBeWrittenAsData) {
    errorIn("", "PRAGMA writable_schema = ON; DELETE FROM sqlite_schema");
    EXPECT_NO_THROW(automation::make<Repository>()->open(folder_.file()));
}

/// Reads whatever can be read. Errors are as good as answers, as long as they are ours.
void walk(const std::u16string& file) {
    const auto repository = automation::make<Repository>();
    repository->open(file);
    const Object root(repository);
    for (const Object& found : automation::each(root.call(u"Search", u"book number").toObject()))
        static_cast<void>(found);
    for (const std::u16string collection : {u"MetaNodes", u"MetaLinks"})
        for (const Object& type : automation::each(root.get(collection).toObject()))
            for (const Object& element : automation::each(type.get(u"Extension").toObject())) {
                static_cast<void>(element.get(u"name"));
                for (const Object& property : automation::each(element.get(u"Properties").toObject()))
                    static_cast<void>(property.get(u"Value"));
            }
}

class DamagedPages : public LibraryTest {
  protected:
    std::string make() {
        for (int i = 0; i < 400; ++i)
            makeBook(numbered(u"A book with quite a long name, number ", i), numbered(u"b", i))
                .put(u"Pages", i);
        const Object author = makeAuthor(u"Somebody", u"a");
        for (int i = 0; i < 100; ++i)
            link(author, extension(u"Book").get(u"Item", numbered(u"b", i)).toObject(), numbered(u"l", i));
        while (repository_.call(u"PrepareSearch", 200).toInteger() < 100) {
        }
        repository_.reset();
        native_->close();
        return contentsOf(path());
    }
    [[nodiscard]] std::filesystem::path path() const { return folder_.path() / "test.quorel"; }
    /// Whether reading the changed file ended in the one error for that.
    bool isFoundDamaged(const std::string& contents) {
        writeFile(path(), contents);
        try {
            walk(folder_.file());
            return false;
        } catch (const automation::Error& error) {
            EXPECT_EQ(error.number(), 321) << error.what();
            return true;
        }
    }
};

constexpr std::size_t kPage = 4096;

TEST_F(DamagedPages, EachPageInTurnFilledWithRubbishGivesNothingButTheError) {
    const std::string whole = make();
    ASSERT_GT(whole.size(), 20 * kPage);
    EXPECT_FALSE(isFoundDamaged(whole));
    std::size_t found = 0;
    for (std::size_t at = kPage; at < whole.size(); at += kPage) {
        std::string contents = whole;
        std::generate_n(contents.begin() + static_cast<std::ptrdiff_t>(at), kPage,
                        [next = static_cast<unsigned>(at)]() mutable {
                            next = next * 1664525U + 1013904223U;
                            return static_cast<char>(next >> 24);
                        });
        found += isFoundDamaged(contents) ? 1 : 0;
    }
    // Pages of indexes that no walk reads may go unnoticed.
    EXPECT_GT(found, whole.size() / kPage / 4);
}

TEST_F(DamagedPages, PagesThatPointAtEachOtherAreNoEndlessLoop) {
    const std::string whole = make();
    for (std::size_t at = kPage; at < whole.size(); at += kPage) {
        std::string contents = whole;
        contents.replace(at, kPage, whole, kPage, kPage);
        isFoundDamaged(contents);
    }
}

TEST_F(DamagedPages, AFileThatWasCutOffIsFoundDamaged) {
    const std::string whole = make();
    EXPECT_TRUE(isFoundDamaged(whole.substr(0, whole.size() / 2)));
    EXPECT_TRUE(isFoundDamaged(whole.substr(0, kPage)));
}

}  // namespace
}  // namespace quorel::repository::testing
