// Importing, exporting, and files that are dropped.

#include "navigator/imports.h"
#include "tests/navigator/navigator_fixture.h"

namespace quorel::navigator {
namespace {

using repository::testing::contentsOf;
using repository::testing::writeFile;

constexpr std::string_view kEcore =
    R"(<?xml version="1.0" encoding="UTF-8"?>
<ecore:EPackage xmi:version="2.0" xmlns:xmi="http://www.omg.org/XMI" xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance"
    xmlns:ecore="http://www.eclipse.org/emf/2002/Ecore" name="shop" nsURI="http://example.com/shop" nsPrefix="shop">
  <eClassifiers xsi:type="ecore:EClass" name="Order">
    <eOperations name="ship"/>
    <eStructuralFeatures xsi:type="ecore:EReference" name="lines" upperBound="-1" eType="#//Line"/>
  </eClassifiers>
  <eClassifiers xsi:type="ecore:EClass" name="Line"/>
</ecore:EPackage>
)";

struct Files : NavigatorTest {
    const std::u16string library = programFolder() + u"/samples/library.jsonl";

    std::u16string ecore() const {
        writeFile(folder.path() / "shop.ecore", std::string(kEcore));
        return folder.file("shop.ecore");
    }
};

TEST_F(Files, ImportAsksForBothFilesTellsWhatCameOfItAndOpensIt) {
    start();
    files.answers = {library, folder.file("mine.quorel")};
    const std::u16string text = messageOf([this] { choose(u"mnuImportJsonLines"); });
    EXPECT_TRUE(contains(text, u"Imported "));
    EXPECT_TRUE(contains(text, u" nodes and "));
    EXPECT_EQ(form->text(), u"mine.quorel - Navigator");
    EXPECT_EQ(files.requests.at(0).filter, u"JSON Lines (*.jsonl)|*.jsonl");
    EXPECT_EQ(files.requests.at(1).fileName, u"library.quorel");
}

TEST_F(Files, WhatAnImportDidNotTakeIsTold) {
    start();
    files.answers = {ecore(), folder.file("shop.quorel")};
    const std::u16string text = messageOf([this] { choose(u"mnuImportEcore"); });
    EXPECT_TRUE(contains(text, u"meta nodes")) << automation::toUtf8(text);
    EXPECT_TRUE(contains(text, u"peration")) << automation::toUtf8(text);
    const Texts types = names(u"Types");
    EXPECT_NE(std::find(types.begin(), types.end(), u"Order"), types.end());
}

TEST_F(Files, AnImportThatFailsNamesTheFileAndLineAndLeavesNothing) {
    open(sample());
    writeFile(folder.path() / "bad.jsonl", "{\"quorel\":1}\nnonsense\n");
    files.answers = {folder.file("bad.jsonl"), folder.file("bad.quorel")};
    const std::u16string text = messageOf([this] { choose(u"mnuImportJsonLines"); });
    EXPECT_TRUE(contains(text, u"bad.jsonl")) << automation::toUtf8(text);
    EXPECT_TRUE(contains(text, u"2")) << automation::toUtf8(text);
    EXPECT_TRUE(contains(text, u"(Module 'Navigator' Function 'mnuImportJsonLines_Click()')"));
    EXPECT_FALSE(fileExists(folder.file("bad.quorel")));
    EXPECT_EQ(form->text(), u"books.quorel - Navigator");
}

TEST_F(Files, ImportOverTheOpenRepositoryReplacesIt) {
    const std::u16string file = sample();
    open(file);
    files.answers = {ecore(), file};
    messageOf([this] { choose(u"mnuImportEcore"); });
    const Texts types = names(u"Types");
    EXPECT_EQ(std::find(types.begin(), types.end(), u"Author"), types.end());
    EXPECT_EQ(form->text(), u"books.quorel - Navigator");
}

TEST_F(Files, EveryImporterIsOffered) {
    EXPECT_EQ(kImports.size(), 4U);
    start();
    for (const auto& [entryName, filter] : std::vector<std::pair<std::u16string, std::u16string>>{
             {u"mnuImportPackages", u""},
             {u"mnuImportJsonLines", u"JSON Lines (*.jsonl)|*.jsonl"},
             {u"mnuImportModdle", u"Moddle descriptors (*.json)|*.json"},
             {u"mnuImportEcore", u"Ecore models (*.ecore)|*.ecore"}}) {
        choose(entryName);
        EXPECT_EQ(files.requests.back().filter, filter);
    }
}

TEST_F(Files, TheButtonOnTheWelcomePageOffersTheImporters) {
    start();
    world.desktop.expectMenu(u"mnuImportEcore");
    files.answers = {ecore(), folder.file("shop.quorel")};
    messageOf([this] { world.user.click(control<ui::Button>(u"cmdImport")); });
    EXPECT_EQ(form->text(), u"shop.quorel - Navigator");
}

TEST_F(Files, ExportWritesWhatReadsBackAsTheSame) {
    open(sample());
    files.answers = {folder.file("out.jsonl")};
    const std::u16string text = messageOf([this] { choose(u"mnuExport"); });
    EXPECT_TRUE(contains(text, u"to '" + folder.file("out.jsonl") + u"'"));
    EXPECT_EQ(contentsOf(folder.path() / "out.jsonl"),
              contentsOf(std::filesystem::path(programFolder()) / "samples/library.jsonl"));
    EXPECT_EQ(files.requests.back().fileName, u"books.jsonl");
}

TEST_F(Files, AnExportThatCannotBeWrittenSaysSo) {
    open(sample());
    files.answers = {folder.file("nowhere/out.jsonl")};
    const std::u16string text = messageOf([this] { choose(u"mnuExport"); });
    EXPECT_TRUE(contains(text, u"out.jsonl")) << automation::toUtf8(text);
}

TEST_F(Files, ADroppedRepositoryOpens) {
    start();
    world.user.drop(*form, {sample()});
    EXPECT_EQ(form->text(), u"books.quorel - Navigator");
}

TEST_F(Files, ADroppedFileOfAnotherKindIsOfferedForImport) {
    start();
    world.user.drop(*form, {sample()});
    const std::u16string dropped = ecore();
    const std::u16string question =
        messageOf([&] { world.user.drop(*form, {dropped}); }, ui::MessageAnswer::No);
    EXPECT_EQ(question, u"Import 'shop.ecore' into a new repository?");
    EXPECT_EQ(form->text(), u"books.quorel - Navigator");
    files.answers = {folder.file("shop.quorel")};
    world.desktop.expectMessage({}, ui::MessageAnswer::Yes);
    messageOf([&] { world.user.drop(*form, {dropped}); });
    EXPECT_EQ(form->text(), u"shop.quorel - Navigator");
}

TEST_F(Files, ADroppedFileThatIsNoRepositoryIsRefused) {
    start();
    writeFile(folder.path() / "letter.txt", "Dear Anna");
    const std::u16string text = messageOf([this] { world.user.drop(*form, {folder.file("letter.txt")}); });
    EXPECT_TRUE(contains(text, u"letter.txt' is no repository. Choose a repository"));
}

TEST_F(Files, LongSummariesAreCut) {
    repository::ImportReport report;
    report.metamodel.emplace();
    for (int i = 0; i < 60; ++i)
        report.metamodel->renamed.push_back(u"A is B");
    const std::u16string text = importSummary(report);
    EXPECT_TRUE(contains(text, u" more"));
    EXPECT_LT(std::count(text.begin(), text.end(), u'\n'), 30);
}

}  // namespace
}  // namespace quorel::navigator
