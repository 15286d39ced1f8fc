#include "repository/import/debian_import.h"

#include <map>

#include "repository/import/debian_records.h"
#include "repository/import/debian_relations.h"
#include "tests/repository/import/import_fixture.h"

namespace quorel::repository::testing {
namespace {

using debian::Relation;

std::string shownRelations(std::string_view text) {
    const auto relations = debian::parseRelations(text);
    if (!relations)
        return "refused";
    std::string result;
    for (const Relation& relation : *relations) {
        result += relation.package;
        if (!relation.constraint.empty())
            result.append("(").append(relation.constraint).append(")");
        if (relation.alternative != 0)
            result.append("#").append(std::to_string(relation.alternative));
        result.append("@").append(std::to_string(relation.group)).append(" ");
    }
    return result;
}

TEST(DebianRelations, FieldsAreSplitIntoGroupsAndAlternatives) {
    EXPECT_EQ(shownRelations("a, b (>= 1:2.0~rc1-3),c"), "a@1 b(>= 1:2.0~rc1-3)@2 c@3 ");
    EXPECT_EQ(shownRelations("a | b (<< 2) , c"), "a#1@1 b(<< 2)#2@1 c@2 ");
    EXPECT_EQ(shownRelations("a:any (= 1) [amd64 !i386] <!nocheck> <cross>"), "a(= 1)@1 ");
    EXPECT_EQ(shownRelations("libstdc++6, g++-12,"), "libstdc++6@1 g++-12@2 ");
    EXPECT_EQ(shownRelations(""), "");
    for (const char* text : {"a (>= 1", "a (x)", "|", "a b", "a,,b", "(>= 1)", "a [amd64", "a <x", "a:"})
        EXPECT_EQ(shownRelations(text), "refused") << text;
}

TEST(DebianVersions, AreComparedByTheRulesOfTheDistribution) {
    const char* const ascending[] = {"1.0~~",  "1.0~rc1", "1.0",      "1.0-1", "1.0-1+b1", "1.0-2",
                                     "1.0-10", "1.0a",    "1.0+dfsg", "1.1",   "1.10",     "1:0.1"};
    for (std::size_t i = 0; i < std::size(ascending); ++i)
        for (std::size_t j = 0; j < std::size(ascending); ++j) {
            const int expected = i < j ? -1 : i > j ? 1 : 0;
            EXPECT_EQ(debian::compareVersions(ascending[i], ascending[j]), expected)
                << ascending[i] << " " << ascending[j];
        }
    EXPECT_EQ(debian::compareVersions("1.00", "1.0"), 0);
    EXPECT_EQ(debian::compareVersions("0:1", "1"), 0);
}

constexpr const char* kFirst = R"(Package: bash
Version: 5.2-1
Architecture: amd64
Priority: required
Essential: yes
Multi-Arch: foreign
Installed-Size: 7000
Size: 3000000000
Maintainer: Matthias <doko@example.org>
Description: GNU Bourne Again SHell
Homepage: http://example.org/bash
Section: shells
Depends: base-files (>= 2.1), debianutils (>= 5.6), base-files (<< 99)
Recommends: bash-completion | programmable-completion
Tag: role::program, scope::utility,
 uitoolkit::ncurses

Package: base-files
Source: base (13)
Version: 12
Architecture: all
Provides: base
Section: shells

)";
constexpr const char* kNewer = R"(Package: bash
Version: 5.2-2
Architecture: amd64
Depends: base-files

Package: base-files
Version: 11
Architecture: all
)";

class DebianImport : public ::testing::Test {
  protected:
    DebianImport() {
        texts_["a_binary-amd64_Packages"] = kFirst;
        texts_["b_binary-amd64_Packages"] = kNewer;
    }
    debian::Counts import() {
        debian::Counts counts;
        std::vector<std::filesystem::path> lists;
        for (const auto& [name, text] : texts_)
            lists.emplace_back(name);
        makeRepositoryFile(folder_.file(), false, [&](Store& store) {
            counts = debian::importPackages(
                store, lists,
                [this](const std::filesystem::path& path) {
                    return std::make_unique<TextSource>(texts_.at(path.string()));
                },
                [this](const Progress& progress) {
                    lastProgress_ = {progress.done, progress.total};
                });
        });
        return counts;
    }
    void open() { repository_->open(folder_.file()); }
    Object node(const std::u16string& type, const std::u16string& identifier) {
        return repository_->metaNodes().item(type).toObject().get(u"Extension", identifier).toObject();
    }
    std::vector<std::string> targets(const Object& node, const std::u16string& metaLink) {
        std::vector<std::string> names;
        for (const Object& link : automation::each(node.get(u"Outgoing_", metaLink).toObject()))
            names.push_back(textOf(link.get(u"target").toObject().get(u"name")));
        return names;
    }
    void expectRefused(const std::string& list, const std::string& words) {
        texts_["a_binary-amd64_Packages"] = list;
        const automation::Error error = errorOf([&] { import(); });
        EXPECT_EQ(error.number(), 321);
        EXPECT_NE(std::string(error.what()).find(words), std::string::npos) << error.what();
        EXPECT_EQ(folder_.count(), 0U);
    }

    using Strings = std::vector<std::string>;
    TemporaryFolder folder_;
    std::map<std::string, std::string> texts_;
    std::pair<std::uint64_t, std::uint64_t> lastProgress_;
    automation::Ref<Repository> repository_ = automation::make<Repository>();
};

TEST_F(DebianImport, APackageHasItsPropertiesAndItsSurroundings) {
    texts_.erase("b_binary-amd64_Packages");
    const debian::Counts counts = import();
    open();
    const Object bash = node(u"Package", u"Package:bash");
    EXPECT_EQ(textOf(bash.get(u"Version")), "5.2-1");
    EXPECT_EQ(textOf(bash.get(u"Priority")), "required");
    EXPECT_EQ(textOf(bash.get(u"MultiArch")), "foreign");
    EXPECT_EQ(bash.get(u"Size").toDouble(), 3e9);
    EXPECT_EQ(bash.get(u"InstalledSize").toDouble(), 7000);
    EXPECT_TRUE(bash.get(u"Essential").toBoolean());
    EXPECT_EQ(textOf(bash.call(u"GetProperty", u"Description")), "GNU Bourne Again SHell");
    EXPECT_EQ(targets(bash, u"Package.MaintainedBy.Maintainer"), (Strings{"Matthias"}));
    EXPECT_EQ(textOf(node(u"Maintainer", u"Maintainer:Matthias <doko@example.org>").get(u"Address")),
              "doko@example.org");
    EXPECT_EQ(targets(bash, u"Package.In.Section"), (Strings{"shells"}));
    EXPECT_EQ(targets(bash, u"Package.Tagged.Tag"),
              (Strings{"role::program", "scope::utility", "uitoolkit::ncurses"}));
    EXPECT_EQ(targets(bash, u"Package.BuiltFrom.SourcePackage"), (Strings{"bash"}));
    const Object baseFiles = node(u"Package", u"Package:base-files");
    EXPECT_EQ(targets(baseFiles, u"Package.BuiltFrom.SourcePackage"), (Strings{"base"}));
    EXPECT_EQ(
        textOf(baseFiles.get(u"Outgoing_", u"Package.BuiltFrom.SourcePackage", 1).toObject().get(u"Version")),
        "13");
    EXPECT_TRUE(baseFiles.get(u"Priority").isEmpty());
    EXPECT_EQ(counts.nodes, 13);
    EXPECT_EQ(counts.links, 13);
    EXPECT_EQ(lastProgress_.first, std::string(kFirst).size());
    EXPECT_EQ(lastProgress_.second, std::string(kFirst).size());
}

TEST_F(DebianImport, RelationsGoToPackagesAndToVirtualOnes) {
    texts_.erase("b_binary-amd64_Packages");
    import();
    open();
    const Object bash = node(u"Package", u"Package:bash");
    EXPECT_EQ(targets(bash, u"Package.Depends.Package"), (Strings{"base-files"}));
    EXPECT_EQ(textOf(bash.get(u"Outgoing_", u"Package.Depends.Package", 1).toObject().get(u"Constraint")),
              ">= 2.1, << 99");
    EXPECT_EQ(targets(bash, u"Package.Depends.VirtualPackage"), (Strings{"debianutils"}));
    EXPECT_EQ(targets(bash, u"Package.Recommends.VirtualPackage"),
              (Strings{"bash-completion", "programmable-completion"}));
    const Object second = bash.get(u"Outgoing_", u"Package.Recommends.VirtualPackage", 2).toObject();
    EXPECT_EQ(second.get(u"Alternative").toInteger(), 2);
    EXPECT_TRUE(
        bash.get(u"Outgoing_", u"Package.Depends.Package", 1).toObject().get(u"Alternative").isEmpty());
    EXPECT_EQ(targets(node(u"Package", u"Package:base-files"), u"Package.Provides.VirtualPackage"),
              (Strings{"base"}));
}

TEST_F(DebianImport, TheNewestVersionWinsWhateverListItIsIn) {
    import();
    open();
    EXPECT_EQ(textOf(node(u"Package", u"Package:bash").get(u"Version")), "5.2-2");
    EXPECT_EQ(textOf(node(u"Package", u"Package:base-files").get(u"Version")), "12");
    EXPECT_EQ(targets(node(u"Package", u"Package:bash"), u"Package.Tagged.Tag"), Strings{});
    EXPECT_EQ(repository_->metaNodes()
                  .item(u"Package")
                  .toObject()
                  .get(u"Extension")
                  .toObject()
                  .get(u"Count")
                  .toInteger(),
              2);
}

TEST_F(DebianImport, AForeignArchitectureHasPackagesOfItsOwn) {
    texts_["c_binary-i386_Packages"] =
        "Package: bash\nVersion: 5.2-2\nArchitecture: i386\nDepends: base-files, zlib\n\n"
        "Package: zlib\nVersion: 1\nArchitecture: i386\n";
    import();
    open();
    const Object foreign = node(u"Package", u"Package:bash:i386");
    EXPECT_EQ(textOf(foreign.get(u"name")), "bash:i386");
    EXPECT_EQ(targets(foreign, u"Package.Depends.Package"), (Strings{"base-files", "zlib:i386"}));
}

TEST_F(DebianImport, AMalformedRecordNamesFileAndLineAndImportsNothing) {
    expectRefused("Package: a\nVersion: 1\n\nPackage: b\nno field\n",
                  "a_binary-amd64_Packages:5: the line is no field of the form \"Name: value\"");
    expectRefused(" early\n", "a_binary-amd64_Packages:1: a continuation line");
    expectRefused("\n\nPackage: a\n", "a_binary-amd64_Packages:3: the record has no Version field");
    expectRefused("Version: 1\n", ":1: the record has no Package field");
    expectRefused("Package: a\nVersion: 1\nVersion: 2\n", ":3: the field Version stands twice");
    expectRefused("Package: a\nVersion: 1\nSize: large\n", ":3: the field Size holds no number");
    expectRefused("Package: a\nVersion: 1\nDepends: b (>= 1\n",
                  ":3: the field Depends is no list of packages");
}

TEST_F(DebianImport, WithoutListsTheRemedyIsSaid) {
    const automation::Error error = errorOf([&] { static_cast<void>(debian::packageLists(folder_.path())); });
    EXPECT_EQ(error.number(), 53);
    EXPECT_NE(std::string(error.what()).find("apt-get update"), std::string::npos);
    for (const char* name : {"x_Packages", "a_Packages.lz4", "x_Release", "x_Packages_old", "lock"})
        writeFile(folder_.path() / name, "");
    EXPECT_EQ(debian::packageLists(folder_.path()),
              (std::vector<std::filesystem::path>{folder_.path() / "a_Packages.lz4",
                                                  folder_.path() / "x_Packages"}));
}

}  // namespace
}  // namespace quorel::repository::testing
