// Whole files in and out, as programs ask for it.

#include "repository/import/exchange.h"

#include "repository/errors.h"
#include "tests/repository/import/import_fixture.h"

namespace quorel::repository::testing {
namespace {

const std::u16string kSample = automation::fromUtf8(QUOREL_SAMPLES "/library.jsonl");

std::int32_t numberOf(const std::function<void()>& work) {
    try {
        work();
    } catch (const automation::Error& error) {
        return error.number();
    }
    return 0;
}

std::int32_t numberOfImport(ImportKind kind, const std::vector<std::u16string>& inputs,
                            const std::u16string& output, bool replace = false) {
    return numberOf([&] { importInto(kind, inputs, output, replace, kNoProgress); });
}

TEST(Exchange, AFilesNameTellsItsKind) {
    EXPECT_EQ(importKindOf(u"C:\\a b\\Список.JSONL"), ImportKind::JsonLines);
    EXPECT_EQ(importKindOf(u"bpmn.json"), ImportKind::Moddle);
    EXPECT_EQ(importKindOf(u"/x/XSD.ecore"), ImportKind::Ecore);
    EXPECT_EQ(importKindOf(u"deb_main_binary-amd64_Packages"), ImportKind::PackageIndex);
    EXPECT_EQ(importKindOf(u"deb_main_binary-amd64_Packages.lz4"), ImportKind::PackageIndex);
    EXPECT_EQ(importKindOf(u"some_Packages.d/file.txt"), std::nullopt);
    EXPECT_EQ(importKindOf(u"test.quorel"), std::nullopt);
}

TEST(Exchange, ImportThenExportGivesTheSameFile) {
    TemporaryFolder folder;
    const ImportReport in = importInto(ImportKind::JsonLines, {kSample}, folder.file(), false, kNoProgress);
    EXPECT_GT(in.nodes, 0);
    EXPECT_FALSE(in.metamodel);
    const ExportReport out = exportTo(folder.file(), folder.file("out.jsonl"), false, kNoProgress);
    EXPECT_EQ(out.nodes, in.nodes);
    EXPECT_EQ(out.links, in.links);
    EXPECT_TRUE(contentsOf(folder.path() / "out.jsonl") == contentsOf(QUOREL_SAMPLES "/library.jsonl"));
    EXPECT_EQ(folder.count(), 2U);
}

TEST(Exchange, WhatFailsLeavesTheOldFileAndNothingBeside) {
    TemporaryFolder folder;
    writeFile(folder.path() / "bad.jsonl", "{\"kind\":");
    importInto(ImportKind::JsonLines, {kSample}, folder.file(), false, kNoProgress);
    const std::string before = contentsOf(folder.path() / "test.quorel");
    EXPECT_EQ(numberOfImport(ImportKind::JsonLines, {kSample}, folder.file()),
              error_number::kFileAlreadyExists);
    EXPECT_EQ(numberOfImport(ImportKind::JsonLines, {folder.file("bad.jsonl")}, folder.file(), true),
              error_number::kBadFileFormat);
    EXPECT_EQ(numberOfImport(ImportKind::Ecore, {folder.file("gone")}, folder.file(), true),
              automation::error_number::kFileNotFound);
    EXPECT_EQ(numberOf([&] { exportTo(folder.file(), folder.file("bad.jsonl"), false, kNoProgress); }),
              error_number::kFileAlreadyExists);
    EXPECT_EQ(numberOf([&] { exportTo(folder.file("bad.jsonl"), folder.file("x"), false, kNoProgress); }),
              error_number::kBadFileFormat);
    EXPECT_EQ(numberOf([&] { exportTo(folder.file(), folder.file("no/x"), false, kNoProgress); }),
              automation::error_number::kPathFileAccess);
    EXPECT_TRUE(before == contentsOf(folder.path() / "test.quorel"));
    EXPECT_EQ(folder.count(), 2U);
}

TEST(Exchange, WhatIsReadIsNeverWrittenOver) {
    TemporaryFolder folder;
    writeFile(folder.path() / "a.jsonl", contentsOf(QUOREL_SAMPLES "/library.jsonl"));
    const std::u16string input = folder.file("a.jsonl");
    EXPECT_EQ(numberOfImport(ImportKind::JsonLines, {input}, input, true),
              automation::error_number::kPathFileAccess);
    importInto(ImportKind::JsonLines, {input}, folder.file(), false, kNoProgress);
    EXPECT_EQ(numberOf([&] { exportTo(folder.file(), folder.file(), true, kNoProgress); }),
              automation::error_number::kPathFileAccess);
    EXPECT_EQ(folder.count(), 2U);
}

TEST(Exchange, AnOldFilesLogDoesNotGetIntoTheNewOne) {
    TemporaryFolder folder;
    importText(folder.file(), "{\"quorel\":1}\n");
    {
        // As a killed program leaves it: the change is in the log alone.
        const auto store = sqlite::openStore(folder.file());
        store->setRepositoryProperty(u"name", u"old");
        for (const char* suffix : {"", "-wal"})
            std::filesystem::copy_file(folder.path() / (std::string("test.quorel") + suffix),
                                       folder.path() / (std::string("killed.quorel") + suffix));
    }
    importInto(ImportKind::JsonLines, {kSample}, folder.file("killed.quorel"), true, kNoProgress);
    exportTo(folder.file("killed.quorel"), folder.file("out.jsonl"), false, kNoProgress);
    EXPECT_TRUE(contentsOf(folder.path() / "out.jsonl") == contentsOf(QUOREL_SAMPLES "/library.jsonl"));
}

TEST(Exchange, PackageListsComeFromFilesAndFolders) {
    TemporaryFolder folder;
    writeFile(folder.path() / "x_binary-amd64_Packages", "Package: a\nVersion: 1\n\n");
    writeFile(folder.path() / "Packages", "Package: b\nVersion: 1\nDepends: a\n\n");
    writeFile(folder.path() / "y_Packages.lz4", "packed");
    std::filesystem::create_directory(folder.path() / "lists");
    std::filesystem::copy_file(folder.path() / "x_binary-amd64_Packages",
                               folder.path() / "lists" / "x_binary-amd64_Packages");
    const ImportReport made =
        importInto(ImportKind::PackageIndex, {folder.file("lists"), folder.file("Packages")}, folder.file(),
                   false, kNoProgress);
    EXPECT_GE(made.nodes, 2);
    EXPECT_GE(made.links, 1);
    EXPECT_EQ(numberOfImport(ImportKind::PackageIndex, {folder.file("y_Packages.lz4")}, folder.file("y")),
              error_number::kBadFileFormat);
    EXPECT_EQ(numberOfImport(ImportKind::PackageIndex, {folder.file("none")}, folder.file("y")),
              automation::error_number::kFileNotFound);
}

}  // namespace
}  // namespace quorel::repository::testing
