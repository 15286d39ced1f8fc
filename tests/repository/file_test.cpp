// Files that are no repository, not for this program, or not accessible.

#include "repository/sqlite/schema.h"
#include "tests/repository/file_fixture.h"

namespace quorel::repository::testing {
namespace {

TEST_F(RepositoryFile, AClosedRepositoryIsOneFile) {
    create();
    EXPECT_EQ(folder_.count(), 1U);
    EXPECT_EQ(contentsOf(path()).substr(68, 4), "QREP");
}

TEST_F(RepositoryFile, WhatIsMissingOrAFolderIsSaidSo) {
    EXPECT_EQ(openError("nowhere.quorel").number(), 53);
    EXPECT_EQ(openError("nowhere.quorel").description(),
              u"There is no repository file '" + folder_.file("nowhere.quorel") + u"'");
    std::filesystem::create_directory(path("folder"));
    EXPECT_EQ(openError("folder").number(), 321);
    EXPECT_EQ(errorOf([&] { automation::make<Repository>()->open(u""); }).number(), 53);
    EXPECT_FALSE(std::filesystem::exists(path("nowhere.quorel")));
}

TEST_F(RepositoryFile, WhatIsNoRepositoryIsLeftAlone) {
    for (const std::string& contents : {std::string(), std::string("SQLite"),
                                        std::string("A letter to my aunt"), std::string(5000, '\xFF')}) {
        writeFile(path(), contents);
        expectUntouched(321, "is no repository");
    }
}

TEST_F(RepositoryFile, AnotherProgramsDatabaseIsLeftAlone) {
    runRaw("CREATE TABLE t (x); INSERT INTO t VALUES (1)");
    expectUntouched(321, "is no repository");
}

TEST_F(RepositoryFile, ANewerFileIsLeftAlone) {
    create();
    runRaw("PRAGMA user_version = " + std::to_string(sqlite::kSchemaVersion + 1));
    expectUntouched(321, "made by a newer program (file version 4, this program knows 3)");
}

TEST_F(RepositoryFile, AFileOfTheFirstVersionIsBroughtUpToDate) {
    create();
    runRaw(std::string(kAsVersionTwo) +
           "ALTER TABLE meta_property DROP COLUMN category; PRAGMA user_version = 1");
    for (int opening = 0; opening < 2; ++opening) {
        const auto repository = automation::make<Repository>();
        repository->open(folder_.file());
        const Object type = repository->makeMetaNode(numbered(u"Type", opening), u"");
        type.call(u"MakeMetaProperty", u"Zip", u"String", u"", Value(), u"Address");
        const Object zip = type.get(u"Properties", u"Zip").toObject();
        EXPECT_EQ(textOf(zip.get(u"Category")), "Address");
        repository->close();
    }
}

TEST_F(RepositoryFile, AFileOfTheSecondVersionIsBroughtUpToDateAndSearched) {
    create();
    {
        const auto repository = automation::make<Repository>();
        repository->open(folder_.file());
        repository->makeNode(u"Book", u"Emma", u"b");
    }
    runRaw(kAsVersionTwo);
    for (int opening = 0; opening < 2; ++opening) {
        const auto repository = automation::make<Repository>();
        repository->open(folder_.file());
        EXPECT_EQ(repository->search(u"emma", 10).get(u"Count").toInteger(), 1);
        repository->metaNodes()
            .get(u"Item", u"Book")
            .toObject()
            .get(u"Extension", u"b")
            .toObject()
            .put(u"name", u"Emma");
    }
}

TEST_F(RepositoryFile, ALockedFileIsLeftAlone) {
    create();
    const std::string before = contentsOf(path());
    const Raw other = openRaw();
    ASSERT_EQ(sqlite3_exec(other.get(), "PRAGMA locking_mode = EXCLUSIVE; BEGIN EXCLUSIVE", nullptr, nullptr,
                           nullptr),
              SQLITE_OK);
    const automation::Error error = openError();
    EXPECT_EQ(error.number(), 70);
    EXPECT_NE(std::string(error.what()).find("is locked by another program"), std::string::npos);
    EXPECT_TRUE(contentsOf(path()) == before);
}

TEST_F(RepositoryFile, AWriteThatMeetsALockFailsAndTheNextOneSucceeds) {
    create();
    const auto repository = automation::make<Repository>();
    repository->open(folder_.file());
    const Raw other = openRaw();
    ASSERT_EQ(sqlite3_exec(other.get(), "BEGIN IMMEDIATE", nullptr, nullptr, nullptr), SQLITE_OK);
    EXPECT_EQ(errorOf([&] { repository->makeNode(u"Book", u"Emma", u"b"); }).number(), 70);
    ASSERT_EQ(sqlite3_exec(other.get(), "ROLLBACK", nullptr, nullptr, nullptr), SQLITE_OK);
    repository->makeNode(u"Book", u"Emma", u"b");
}

TEST_F(RepositoryFile, ADamagedFileIsSaidToBe) {
    create();
    std::string contents = contentsOf(path());
    contents.replace(100, contents.size() - 100, contents.size() - 100, '\x5A');
    writeFile(path(), contents);
    const automation::Error error = openError();
    EXPECT_EQ(error.number(), 321);
    EXPECT_NE(std::string(error.what()).find("is damaged"), std::string::npos) << error.what();
    EXPECT_TRUE(contentsOf(path()) == contents);
}

TEST_F(RepositoryFile, AFileWithOurMarkButOtherTablesIsRefused) {
    runRaw("PRAGMA application_id = " + std::to_string(sqlite::kApplicationId) + "; CREATE TABLE t (x)");
    expectUntouched(321, "is refused: it holds the table 't', which no repository has");
}

TEST_F(RepositoryFile, AFileWithOurMarkButNoTablesIsSaidToBeDamaged) {
    runRaw("PRAGMA application_id = " + std::to_string(sqlite::kApplicationId) +
           "; PRAGMA user_version = " + std::to_string(sqlite::kSchemaVersion));
    expectUntouched(321, "is damaged");
}

TEST_F(RepositoryFile, AnExistingFileIsNotCreatedOver) {
    writeFile(path(), "A letter");
    EXPECT_EQ(errorOf([&] { automation::make<Repository>()->create(folder_.file()); }).number(), 58);
    EXPECT_EQ(contentsOf(path()), "A letter");
}

TEST_F(RepositoryFile, CreatingInAFolderThatIsNotThereLeavesNothing) {
    const auto error =
        errorOf([&] { automation::make<Repository>()->create(folder_.file("no/such/x.quorel")); });
    EXPECT_EQ(error.number(), 75);
    EXPECT_EQ(folder_.count(), 0U);
}

TEST_F(RepositoryFile, ANameInAnyScriptIsAFileName) {
    const std::u16string name = (folder_.path() / u"Bücher-книги-書籍-📚.quorel").u16string();
    automation::make<Repository>()->create(name);
    const auto repository = automation::make<Repository>();
    repository->open(name);
    EXPECT_EQ(repository->name(), u"Bücher-книги-書籍-📚");
    EXPECT_TRUE(std::filesystem::exists(folder_.path() / u"Bücher-книги-書籍-📚.quorel"));
}

TEST_F(RepositoryFile, ARepositoryObjectIsOpenedOnceAndSaysWhenItIsNotOpen) {
    const auto repository = automation::make<Repository>();
    EXPECT_EQ(errorOf([&] { static_cast<void>(repository->metaNodes()); }).description(),
              u"The repository has not been opened");
    repository->create(folder_.file());
    EXPECT_EQ(errorOf([&] { repository->open(folder_.file()); }).number(), 5);
    repository->close();
    EXPECT_FALSE(repository->isOpen());
    EXPECT_EQ(errorOf([&] { static_cast<void>(repository->name()); }).description(),
              u"The repository has been closed");
    EXPECT_EQ(errorOf([&] { repository->open(folder_.file()); }).number(), 5);
}

TEST_F(RepositoryFile, HandlesOutliveTheClosingAndSayWhatHappened) {
    const auto repository = automation::make<Repository>();
    repository->create(folder_.file());
    const Object type = repository->makeMetaNode(u"Book", u"");
    const Object book = repository->makeNode(u"Book", u"Emma", u"b");
    const auto enumerator = type.get(u"Extension").toObject().enumerate();
    repository->close();
    for (const Object& handle : {type, book})
        EXPECT_EQ(errorOf([&] { handle.call(u"name"); }).description(), u"The repository has been closed");
    Value next;
    EXPECT_EQ(errorOf([&] { enumerator->next({&next, 1}); }).number(), 5);
}

TEST_F(RepositoryFile, TwoOpeningsOfOneFileSeeEachOthersChanges) {
    create();
    const auto first = automation::make<Repository>();
    const auto second = automation::make<Repository>();
    first->open(folder_.file());
    second->open(folder_.file());
    const Object node = first->makeNode(u"Book", u"Emma", u"b");
    const Object same = second->metaNodes().item(u"Book").toObject().get(u"Extension", u"b").toObject();
    same.put(u"name", u"Persuasion");
    EXPECT_EQ(textOf(node.get(u"name")), "Persuasion");
    first->metaNodes().item(u"Book").toObject().call(u"MakeMetaProperty", u"Pages", u"Integer");
    same.put(u"Pages", 12);
    EXPECT_EQ(node.get(u"Pages").toInteger(), 12) << "a property added elsewhere is found";
    EXPECT_NE(node, same);
}

TEST_F(RepositoryFile, AMetaLinkThatWasMadeAnewElsewhereIsNotTakenForTheOldOne) {
    create();
    const auto first = automation::make<Repository>();
    const auto second = automation::make<Repository>();
    first->open(folder_.file());
    second->open(folder_.file());
    const auto makeLinkType = [&] {
        first->makeDynamicMetaAssoc(u"Book.Like.Book", u"").put(u"IsPersistent", true);
    };
    makeLinkType();
    first->makeNode(u"Book", u"Emma", u"b");
    const Object here = first->item(u"Book").get(u"Extension", u"b").toObject();
    const Object there = second->item(u"Book").get(u"Extension", u"b").toObject();
    const auto count = [](const Object& node) {
        return node.get(u"Outgoing_", u"Book.Like.Book").toObject().get(u"Count").toInteger();
    };
    EXPECT_EQ(count(there), 0);
    EXPECT_EQ(count(here), 0);
    first->deleteDynamicMetaAssoc(u"Book.Like.Book");
    EXPECT_EQ(errorOf([&] { count(here); }).number(), 9);
    EXPECT_EQ(errorOf([&] { count(there); }).number(), 9);
    makeLinkType();
    first->makeLink(u"Book.Like.Book", u"", u"l", here, here);
    EXPECT_EQ(count(there), 1);
    EXPECT_EQ(count(here), 1);
}

TEST_F(RepositoryFile, TransientTypesOfARunningSessionSurviveAnotherOpening) {
    create();
    const auto first = automation::make<Repository>();
    first->open(folder_.file());
    first->makeDynamicMetaClass(u"Passing", u"");
    const auto second = automation::make<Repository>();
    second->open(folder_.file());
    EXPECT_EQ(second->metaNodes().get(u"Count").toInteger(), 2);
    first->close();
    EXPECT_EQ(second->metaNodes().get(u"Count").toInteger(), 1);
    second->makeNode(u"Book", u"Emma", u"b");
}

}  // namespace
}  // namespace quorel::repository::testing
