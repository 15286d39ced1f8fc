#include "navigator/command_line.h"

#include <gtest/gtest.h>

#include "platform/automation/text.h"

namespace quorel::navigator {

namespace {

using Action = Command::Action;
using Words = std::vector<std::u16string>;
using repository::ImportKind;

std::u16string reasonOf(const Words& words) {
    try {
        static_cast<void>(parseCommandLine(words));
    } catch (const UsageError& error) {
        return error.reason;
    }
    return {};
}

TEST(NavigatorCommandLine, WithoutAnOptionItShowsAFileOrTheWelcomePage) {
    EXPECT_EQ(parseCommandLine({}).action, Action::Show);
    EXPECT_TRUE(parseCommandLine({}).inputs.empty());
    const Command command = parseCommandLine({u"C:\\мои файлы\\a.quorel"});
    EXPECT_EQ(command.action, Action::Show);
    EXPECT_EQ(command.inputs, Words{u"C:\\мои файлы\\a.quorel"});
    EXPECT_EQ(parseCommandLine({u"--", u"--help"}).inputs, Words{u"--help"});
    EXPECT_EQ(reasonOf({u"a", u"b"}), u"one file is shown at a time");
    EXPECT_EQ(reasonOf({u"a", u"--replace"}), u"--replace belongs to --import, --export or --diagram");
}

TEST(NavigatorCommandLine, AnImportIsOfTheKindThatIsNamed) {
    const std::vector<std::pair<std::u16string, ImportKind>> kinds{{u"packages", ImportKind::PackageIndex},
                                                                   {u"jsonl", ImportKind::JsonLines},
                                                                   {u"moddle", ImportKind::Moddle},
                                                                   {u"ecore", ImportKind::Ecore}};
    for (const auto& [name, kind] : kinds) {
        const Command command = parseCommandLine({u"--import", name, u"in.ecore", u"out"});
        EXPECT_EQ(command.action, Action::Import);
        EXPECT_EQ(command.kind, kind);
        EXPECT_EQ(command.inputs, Words{u"in.ecore"});
        EXPECT_EQ(command.output, u"out");
        EXPECT_FALSE(command.replace);
    }
    const Command several = parseCommandLine({u"--import", u"moddle", u"a", u"--", u"-b", u"out"});
    EXPECT_EQ(several.inputs, (Words{u"a", u"-b"}));
    EXPECT_TRUE(parseCommandLine({u"--replace", u"--import", u"jsonl", u"a", u"b"}).replace);
    EXPECT_TRUE(parseCommandLine({u"--import", u"jsonl", u"a", u"b", u"--replace"}).replace);
}

TEST(NavigatorCommandLine, OrOfTheKindThatTheNamesTell) {
    EXPECT_EQ(parseCommandLine({u"--import", u"a.JSONL", u"o"}).kind, ImportKind::JsonLines);
    EXPECT_EQ(parseCommandLine({u"--import", u"a.json", u"b.json", u"o"}).kind, ImportKind::Moddle);
    EXPECT_EQ(parseCommandLine({u"--import", u"a.ecore", u"o"}).kind, ImportKind::Ecore);
    EXPECT_EQ(parseCommandLine({u"--import", u"x_Packages", u"o"}).kind, ImportKind::PackageIndex);
    EXPECT_TRUE(reasonOf({u"--import", u"a.json", u"b.ecore", u"o"}).starts_with(u"the files' names do not"));
    EXPECT_TRUE(reasonOf({u"--import", u"folder", u"o"}).starts_with(u"the files' names do not"));
}

TEST(NavigatorCommandLine, AnImportNeedsInputsAndAnOutput) {
    const std::u16string needs = u"--import needs what is to be imported and the repository to be made";
    EXPECT_EQ(reasonOf({u"--import"}), needs);
    EXPECT_EQ(reasonOf({u"--import", u"a.jsonl"}), needs);
    EXPECT_EQ(reasonOf({u"--import", u"jsonl"}), needs);
    EXPECT_EQ(reasonOf({u"--import", u"packages", u"a"}), needs);
    EXPECT_EQ(reasonOf({u"--import", u"jsonl", u"a", u"b", u"c"}),
              u"a repository is made of one JSON Lines file");
}

TEST(NavigatorCommandLine, AnExportGoesFromARepositoryToAFile) {
    const Command command = parseCommandLine({u"--export", u"a.quorel", u"b.jsonl", u"--replace"});
    EXPECT_EQ(command.action, Action::Export);
    EXPECT_EQ(command.inputs, Words{u"a.quorel"});
    EXPECT_EQ(command.output, u"b.jsonl");
    EXPECT_TRUE(command.replace);
    EXPECT_EQ(reasonOf({u"--export", u"a"}),
              u"--export needs a repository and the JSON Lines file to be written");
    EXPECT_FALSE(reasonOf({u"--export", u"a", u"b", u"c"}).empty());
}

TEST(NavigatorCommandLine, ADiagramIsWrittenAsADrawing) {
    const Command command = parseCommandLine({u"--diagram", u"out.SVG", u"a.quorel"});
    EXPECT_EQ(command.action, Action::Diagram);
    EXPECT_EQ(command.inputs, Words{u"a.quorel"});
    EXPECT_EQ(command.output, u"out.SVG");
    EXPECT_EQ(parseCommandLine({u"--diagram", u"a.png", u"b"}).output, u"a.png");
    EXPECT_EQ(parseCommandLine({u"--diagram", u"a.emf", u"b"}).output, u"a.emf");
    EXPECT_EQ(reasonOf({u"--diagram", u"a.quorel", u"b.svg"}),
              u"a diagram is written as .svg, .png or .emf, not as a.quorel");
    EXPECT_EQ(reasonOf({u"--diagram", u"a.svg"}),
              u"--diagram needs the drawing to be written and a repository");
}

TEST(NavigatorCommandLine, HelpAndVersionAreAnsweredWhateverElseIsThere) {
    EXPECT_EQ(parseCommandLine({u"--help"}).action, Action::Help);
    EXPECT_EQ(parseCommandLine({u"-h"}).action, Action::Help);
    EXPECT_EQ(parseCommandLine({u"--import", u"--help"}).action, Action::Help);
    EXPECT_EQ(parseCommandLine({u"--version", u"--export"}).action, Action::Version);
}

TEST(NavigatorCommandLine, WhatIsNoOptionIsNamed) {
    EXPECT_EQ(reasonOf({u"--improt", u"a", u"b"}), u"there is no option --improt");
    EXPECT_EQ(reasonOf({u"-x"}), u"there is no option -x");
    EXPECT_EQ(reasonOf({u"--import", u"--export", u"a", u"b"}),
              u"choose one of --import, --export and --diagram");
}

TEST(NavigatorCommandLine, TheHelpTextTellsOfEveryOptionAndEveryKind) {
    const std::u16string_view text = usageText();
    for (const char16_t* word : {u"--import", u"--export", u"--diagram", u"--version", u"--help",
                                 u"--replace", u"packages", u"jsonl", u"moddle", u"ecore", u"Exit codes"})
        EXPECT_NE(text.find(word), std::u16string_view::npos) << automation::toUtf8(word);
    EXPECT_EQ(text.back(), u'\n');
}

}  // namespace
}  // namespace quorel::navigator
