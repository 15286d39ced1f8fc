// What the program does without a window, on real files.

#include "navigator/batch.h"

#include <gtest/gtest.h>

#include "platform/automation/error.h"
#include "platform/automation/text.h"
#include "repository/session.h"
#include "repository/sqlite/sqlite_store.h"
#include "tests/repository/temporary_folder.h"

namespace quorel::navigator {
namespace {

using automation::toUtf8;
using repository::testing::contentsOf;
using repository::testing::writeFile;
using Words = std::vector<std::u16string>;

const std::u16string kSample = automation::fromUtf8(QUOREL_SAMPLES "/library.jsonl");

struct Batch : ::testing::Test {
    repository::testing::TemporaryFolder folder;
    automation::ClassRegistry registry;
    std::vector<std::string> results, errors;
    std::vector<std::string> drawn;

    Batch() {
        registry.add(u"QuorelRepository.Session",
                     [] { return automation::make<repository::Session>(repository::Services{}); });
    }

    int run(const Words& words) {
        results.clear();
        errors.clear();
        const BatchServices services{
            .writeResult = [this](std::u16string_view line) { results.push_back(toUtf8(line)); },
            .writeError = [this](std::u16string_view line) { errors.push_back(toUtf8(line)); },
            .draw =
                [this](const automation::Object& repository, const std::u16string& output) {
                    drawn.push_back(toUtf8(repository.get(u"name").toString()));
                    writeFile(output, "drawing");
                    return u"Saved in " + output;
                },
            .classes = [this]() -> automation::ClassRegistry& { return registry; }};
        try {
            return runBatch(parseCommandLine(words), services);
        } catch (const UsageError& error) {
            return refuseCommandLine(error, services);
        }
    }
    /// It fails with one line that holds all of that.
    void expectFailure(const Words& words, const std::vector<std::string>& parts) {
        EXPECT_EQ(run(words), kFailed);
        EXPECT_TRUE(results.empty());
        ASSERT_EQ(errors.size(), 1U);
        EXPECT_TRUE(errors.front().starts_with("navigator: ")) << errors.front();
        for (const std::string& part : parts)
            EXPECT_NE(errors.front().find(part), std::string::npos) << errors.front();
    }
};

TEST_F(Batch, ImportsAndExportsFilesOfAnyName) {
    const std::u16string repository = folder.file("моя библиотека.quorel");
    EXPECT_EQ(run({u"--import", kSample, repository}), kDone);
    ASSERT_EQ(results.size(), 1U);
    EXPECT_EQ(results.front(), "Imported 42 nodes and 57 links: " + toUtf8(repository));
    const std::u16string out = folder.file("out file.jsonl");
    EXPECT_EQ(run({u"--export", repository, out}), kDone);
    EXPECT_EQ(results, std::vector<std::string>{"Exported 42 nodes and 57 links: " + toUtf8(out)});
    EXPECT_TRUE(contentsOf(out) == contentsOf(QUOREL_SAMPLES "/library.jsonl"));
    EXPECT_TRUE(errors.empty());
    EXPECT_EQ(folder.count(), 2U);
}

TEST_F(Batch, AnImportOfAMetamodelTellsWhatWasLeftOut) {
    writeFile(folder.file("a.json"), R"({"prefix":"a","uri":"urn:a","types":[{"name":"A","odd":1}]})");
    EXPECT_EQ(run({u"--import", u"moddle", folder.file("a.json"), folder.file()}), kDone);
    ASSERT_EQ(results.size(), 3U);
    EXPECT_TRUE(results[0].starts_with("Imported 1 meta nodes with 0 properties and 0 meta links: "));
    EXPECT_EQ(results[1], "Not taken:");
    EXPECT_EQ(results[2], "       1  type member 'odd'");
}

TEST_F(Batch, WhatExistsIsWrittenOverOnlyWhenItIsAsked) {
    ASSERT_EQ(run({u"--import", kSample, folder.file()}), kDone);
    const std::string remedy = "already exists. Give --replace to write over it, or another name.";
    expectFailure({u"--import", kSample, folder.file()}, {toUtf8(folder.file()), remedy});
    EXPECT_EQ(run({u"--import", kSample, folder.file(), u"--replace"}), kDone);
    writeFile(folder.file("x.jsonl"), "");
    writeFile(folder.file("x.svg"), "");
    expectFailure({u"--export", folder.file(), folder.file("x.jsonl")}, {"x.jsonl", remedy});
    expectFailure({u"--diagram", folder.file("x.svg"), folder.file()}, {"x.svg", remedy});
    EXPECT_EQ(run({u"--export", folder.file(), folder.file("x.jsonl"), u"--replace"}), kDone);
    EXPECT_EQ(run({u"--diagram", folder.file("x.svg"), folder.file(), u"--replace"}), kDone);
    EXPECT_EQ(contentsOf(folder.file("x.svg")), "drawing");
}

TEST_F(Batch, AFileThatIsMissingIsNamedWithTheRemedy) {
    const std::string remedy = "Look whether it was moved, or its drive is not connected.";
    expectFailure({u"--import", folder.file("none.jsonl"), folder.file()}, {"none.jsonl", remedy});
    expectFailure({u"--export", folder.file("none.quorel"), folder.file("x")}, {"none.quorel", remedy});
    expectFailure({u"--diagram", folder.file("x.svg"), folder.file("none.quorel")}, {"none.quorel", remedy});
    expectFailure({u"--import", kSample, folder.file("no folder/x.quorel")}, {"no folder"});
    EXPECT_EQ(folder.count(), 0U);
}

TEST_F(Batch, AFileOfAnotherKindIsNamedWithTheRemedy) {
    writeFile(folder.file("text.jsonl"), "no JSON\n");
    expectFailure({u"--import", folder.file("text.jsonl"), folder.file()}, {"text.jsonl:1: "});
    const std::string remedy = "is no repository. Choose a repository (*.quorel)";
    expectFailure({u"--export", folder.file("text.jsonl"), folder.file("x")}, {"text.jsonl", remedy});
    expectFailure({u"--diagram", folder.file("x.svg"), folder.file("text.jsonl")}, {"text.jsonl", remedy});
    EXPECT_EQ(folder.count(), 1U);
    EXPECT_TRUE(drawn.empty());
}

TEST_F(Batch, ADiagramIsDrawnOfTheRepositoryThatIsNamed) {
    ASSERT_EQ(run({u"--import", kSample, folder.file()}), kDone);
    EXPECT_EQ(run({u"--diagram", folder.file("x.svg"), folder.file()}), kDone);
    EXPECT_EQ(results, std::vector<std::string>{"Saved in " + toUtf8(folder.file("x.svg"))});
    EXPECT_EQ(drawn, std::vector<std::string>{"Library"});
}

TEST_F(Batch, TellsVersionAndHelp) {
    EXPECT_EQ(run({u"--version"}), kDone);
    ASSERT_EQ(results.size(), 1U);
    EXPECT_TRUE(results.front().starts_with("Quorel Navigator 0."));
    EXPECT_EQ(run({u"--help"}), kDone);
    ASSERT_EQ(results.size(), 1U);
    EXPECT_EQ(results.front() + "\n", toUtf8(usageText()));
    EXPECT_TRUE(errors.empty());
}

TEST_F(Batch, AWrongCommandLineIsToldWithWhereToLook) {
    EXPECT_EQ(run({u"--improt"}), kWrongUsage);
    EXPECT_EQ(errors, (std::vector<std::string>{"navigator: there is no option --improt",
                                                "navigator --help tells what it understands"}));
    EXPECT_TRUE(results.empty());
}

}  // namespace
}  // namespace quorel::navigator
