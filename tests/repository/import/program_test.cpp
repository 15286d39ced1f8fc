// The command-line program, run within this process.

#include "hosts/import/arguments.h"
#include "hosts/import/progress_display.h"
#include "hosts/import/run.h"
#include "tests/repository/import/import_fixture.h"

namespace quorel::repository::testing {
namespace {

using hosts::Arguments;
using hosts::ProgressDisplay;
using namespace std::chrono_literals;

TEST(ImportProgram, TheCommandLineIsUnderstood) {
    const Arguments apt = hosts::parseArguments({u"--apt", u"--lists", u"/x", u"out"});
    EXPECT_EQ(apt.action, Arguments::Action::ImportPackages);
    EXPECT_EQ(apt.lists, u"/x");
    EXPECT_EQ(apt.output, u"out");
    EXPECT_FALSE(apt.replace);
    const Arguments json = hosts::parseArguments({u"--replace", u"--jsonl", u"--", u"-in", u"out"});
    EXPECT_EQ(json.inputs, std::vector<std::u16string>{u"-in"});
    EXPECT_TRUE(json.replace);
    const Arguments moddle = hosts::parseArguments({u"--moddle", u"a.json", u"b.json", u"out"});
    EXPECT_EQ(moddle.action, Arguments::Action::ImportModdle);
    EXPECT_EQ(moddle.inputs, (std::vector<std::u16string>{u"a.json", u"b.json"}));
    EXPECT_EQ(moddle.output, u"out");
    EXPECT_EQ(hosts::parseArguments({u"--ecore", u"a", u"b"}).action, Arguments::Action::ImportEcore);
    EXPECT_EQ(hosts::parseArguments({u"--export", u"a", u"b", u"--help"}).action, Arguments::Action::Help);
}

TEST(ImportProgram, ItsExitCodesTellWhatHappened) {
    TemporaryFolder folder;
    const std::u16string sample = automation::fromUtf8(QUOREL_SAMPLES "/library.jsonl");
    EXPECT_EQ(hosts::runImport({u"--help"}), 0);
    EXPECT_EQ(hosts::runImport({}), 2);
    EXPECT_EQ(hosts::runImport({u"--jsonl", u"a"}), 2);
    EXPECT_EQ(hosts::runImport({u"--apt", u"--jsonl", u"a", u"b"}), 2);
    EXPECT_EQ(hosts::runImport({u"--lists"}), 2);
    EXPECT_EQ(hosts::runImport({u"--jsonl", folder.file("missing"), folder.file()}), 1);
    EXPECT_EQ(folder.count(), 0U);
    EXPECT_EQ(hosts::runImport({u"--jsonl", sample, folder.file()}), 0);
    EXPECT_EQ(hosts::runImport({u"--jsonl", sample, folder.file()}), 1) << "it exists";
    EXPECT_EQ(hosts::runImport({u"--replace", u"--jsonl", sample, folder.file()}), 0);
    EXPECT_EQ(hosts::runImport({u"--export", folder.file(), folder.file("out.jsonl")}), 0);
    EXPECT_EQ(hosts::runImport({u"--export", folder.file(), folder.file("out.jsonl")}), 1);
    EXPECT_TRUE(contentsOf(folder.path() / "out.jsonl") == contentsOf(QUOREL_SAMPLES "/library.jsonl"));
    EXPECT_EQ(hosts::runImport({u"--apt", u"--lists", folder.file(), folder.file("x")}), 1);
    EXPECT_EQ(folder.count(), 2U);
}

TEST(ImportProgram, MetamodelsAreImportedAndNamedAfterTheirPackages) {
    TemporaryFolder folder;
    writeFile(folder.path() / "a.json", R"({"prefix":"a","uri":"urn:a","types":[{"name":"A","odd":1}]})");
    writeFile(folder.path() / "b.json",
              R"({"prefix":"b","types":[{"name":"B","superClass":["a:A","c:C"]}]})");
    writeFile(folder.path() / "c.ecore", "<a/>");
    ::testing::internal::CaptureStdout();
    EXPECT_EQ(hosts::runImport({u"--moddle", folder.file("a.json"), folder.file("b.json"), folder.file()}),
              0);
    const std::string words = ::testing::internal::GetCapturedStdout();
    EXPECT_TRUE(words.starts_with("Imported 3 meta nodes with 0 properties and 2 meta links: ")) << words;
    EXPECT_TRUE(words.ends_with("\nNot taken:\n       1  type member 'odd'\n")) << words;
    const auto repository = automation::make<Repository>();
    repository->open(folder.file());
    EXPECT_EQ(textOf(Object(repository).get(u"name")), "a, b");
    EXPECT_EQ(textOf(Object(repository).get(u"Description")), "urn:a");
    EXPECT_EQ(textOf(Object(repository).get(u"RepType")), "Metamodel");
    EXPECT_EQ(hosts::runImport({u"--moddle", folder.file("a.json"), folder.file()}), 1) << "it exists";
    EXPECT_EQ(hosts::runImport({u"--moddle", folder.file("a.json")}), 2);
    EXPECT_EQ(hosts::runImport({u"--ecore", folder.file("c.ecore"), folder.file("x")}), 1);
    EXPECT_EQ(hosts::runImport({u"--ecore", folder.file("missing"), folder.file("x")}), 1);
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "x"));
}

class Display : public ::testing::Test {
  protected:
    ~Display() override { std::fclose(file_); }
    std::string shown(bool isTerminal, ProgressDisplay::Unit unit, std::chrono::milliseconds step) {
        ProgressDisplay display(file_, isTerminal, unit);
        ProgressDisplay::Clock::time_point now{1h};
        for (std::uint64_t done = 0; done <= 1'000'000; done += 10'000, now += step)
            display.show({"Importing", done, 1'000'000}, now);
        display.finish();
        std::rewind(file_);
        std::string text(1U << 16, '\0');
        text.resize(std::fread(text.data(), 1, text.size(), file_));
        return text;
    }
    std::FILE* file_ = std::tmpfile();
};

TEST_F(Display, WithoutATerminalItWritesALineForEachTenPercent) {
    const std::string text = shown(false, ProgressDisplay::Unit::Bytes, 10ms);
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 10);
    EXPECT_EQ(text.substr(0, text.find('\n')), "Importing  10 %  0.1 MB of 1.0 MB  1.0 MB/s");
    EXPECT_NE(text.find("Importing 100 %  1.0 MB of 1.0 MB"), std::string::npos);
}

TEST_F(Display, OnATerminalItWritesOverOneLineAtMostTenTimesASecond) {
    const std::string text = shown(true, ProgressDisplay::Unit::Elements, 10ms);
    EXPECT_EQ(text.find('\n'), std::string::npos);
    EXPECT_EQ(std::count(text.begin(), text.end(), '%'), 11) << "a second and the start";
    EXPECT_EQ(text.back(), '\r');
    EXPECT_NE(text.find("500000 elements"), std::string::npos);
}

}  // namespace
}  // namespace quorel::repository::testing
