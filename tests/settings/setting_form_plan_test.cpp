#include "settings/setting_form_plan.h"

#include <gtest/gtest.h>

#include <cstddef>

namespace quorel::settings {
namespace {

using ui::Rect;
using ui::Twips;
using Texts = std::vector<std::u16string>;

/// Every unit is 90 twips wide, every line 195 high.
ui::Size measure(std::u16string_view text, std::optional<Twips> width) {
    const std::int32_t length = static_cast<std::int32_t>(text.size()) * 90;
    if (!width || length <= width->value)
        return {{length}, {195}};
    const std::int32_t lines = (length + width->value - 1) / width->value;
    return {*width, {lines * 195}};
}

const FormMeasures kMeasures{Twips{195}, Twips{120}, Twips{5400}, &measure};

SettingRecord setting(std::u16string name, std::u16string category, std::u16string type = {},
                      std::u16string description = {}) {
    return {std::move(name), u"value", std::move(type), std::move(category), std::move(description)};
}

std::vector<SettingRecord> some(std::size_t count, std::u16string_view category = u"Paths") {
    std::vector<SettingRecord> records;
    for (std::size_t i = 0; i < count; ++i)
        records.push_back(setting(u"Setting", std::u16string(category)));
    return records;
}

Texts categoriesOf(const Texts& given) {
    std::vector<SettingRecord> records;
    for (const std::u16string& category : given)
        records.push_back(setting(u"Setting", category));
    return tabCategories(records);
}

SettingFormPlan plan(const std::vector<SettingRecord>& records, std::int32_t most = 16) {
    return planSettingForm(records, most, kMeasures);
}

bool overlap(const Rect& a, const Rect& b) {
    return a.left < b.right() && b.left < a.right() && a.top < b.bottom() && b.top < a.bottom();
}

TEST(EditKind, IgnoresCaseAndTakesWhatBeginsWithFileForAFile) {
    for (const char16_t* type : {u"File:EXE", u"file:EXE", u"FILE", u"Filename", u"file"})
        EXPECT_EQ(editKindOf(type), EditKind::File);
    EXPECT_EQ(editKindOf(u"Directory"), EditKind::Directory);
    EXPECT_EQ(editKindOf(u"DIRECTORY"), EditKind::Directory);
    EXPECT_EQ(editKindOf(u"boolean"), EditKind::Boolean);
    EXPECT_EQ(editKindOf(u"SHOW"), EditKind::Show);
    for (const char16_t* type : {u"", u"Text", u"fil", u"Directory ", u"Booleans"})
        EXPECT_EQ(editKindOf(type), EditKind::Text);
}

TEST(EditKind, TheKeyOfAFileTypeBeginsWithTheSixthUnit) {
    EXPECT_EQ(fileTypeKey(u"File:EXE"), u"EXE");
    EXPECT_EQ(fileTypeKey(u"file EXE"), u"EXE");
    EXPECT_EQ(fileTypeKey(u"File:"), u"");
    EXPECT_EQ(fileTypeKey(u"File"), u"");
}

TEST(TabCategories, AreTakenInTheirOrderAndOnceEach) {
    EXPECT_EQ(categoriesOf({u"Paths", u"View", u"Paths", u"Print"}), (Texts{u"Paths", u"View", u"Print"}));
    EXPECT_EQ(categoriesOf({}), Texts{});
}

TEST(TabCategories, NoneInAnySpellingHasNoTab) {
    EXPECT_EQ(categoriesOf({u"none", u"NONE", u"None", u"Nones"}), Texts{u"Nones"});
}

TEST(TabCategories, ACategoryContainedInTheNamesBeforeHasNone) {
    EXPECT_EQ(categoriesOf({u"Paths", u"Path"}), Texts{u"Paths"});
    EXPECT_EQ(categoriesOf({u"Path", u"Paths"}), (Texts{u"Path", u"Paths"}));
    EXPECT_EQ(categoriesOf({u"Work paths", u"paths"}), Texts{u"Work paths"});
    EXPECT_EQ(categoriesOf({u"Paths", u"path"}), (Texts{u"Paths", u"path"}));
    EXPECT_EQ(categoriesOf({u"View", u"Print", u"w,P"}), (Texts{u"View", u"Print"}));
}

TEST(TabCategories, TheEmptyOneHasATabOnlyWhenItComesFirst) {
    EXPECT_EQ(categoriesOf({u"", u"View", u""}), (Texts{u"", u"View"}));
    EXPECT_EQ(categoriesOf({u"View", u""}), Texts{u"View"});
}

TEST(SettingFormPlan, WithoutSettingsThereIsTheTabByDesign) {
    const SettingFormPlan empty = plan({});
    ASSERT_EQ(empty.tabs.size(), 1U);
    EXPECT_EQ(empty.tabs[0].category, std::nullopt);
    EXPECT_TRUE(empty.entries.empty());
    const SettingFormPlan hidden = plan({setting(u"Secret", u"none")});
    ASSERT_EQ(hidden.tabs.size(), 1U);
    EXPECT_EQ(hidden.tabs[0].category, std::nullopt);
    EXPECT_TRUE(hidden.entries.empty());
}

TEST(SettingFormPlan, ASettingIsOnTheTabOfExactlyItsCategory) {
    const SettingFormPlan made =
        plan({setting(u"A", u"Paths"), setting(u"B", u"View"), setting(u"C", u"None"), setting(u"D", u"Path"),
              setting(u"E", u"Paths"), setting(u"F", u"VIEW")});
    ASSERT_EQ(made.tabs.size(), 3U);
    EXPECT_EQ(made.tabs[2].category, u"VIEW");
    std::vector<std::pair<std::size_t, std::size_t>> placed;
    for (const PlannedEntry& entry : made.entries)
        placed.emplace_back(entry.setting, entry.tab);
    // The fourth one's category is contained in "Paths" and has no tab.
    EXPECT_EQ(placed, (std::vector<std::pair<std::size_t, std::size_t>>{{0, 0}, {1, 1}, {4, 0}, {5, 2}}));
}

TEST(SettingFormPlan, TheNinthOfSixteenOpensTheSecondColumn) {
    const SettingFormPlan made = plan(some(9));
    for (std::size_t i = 0; i < 8; ++i)
        EXPECT_EQ(made.entries[i].bounds.left, Twips{0}) << i;
    EXPECT_EQ(made.entries[8].bounds.left, Twips{120 + 5400});
    EXPECT_EQ(made.entries[8].bounds.top, Twips{0});
    EXPECT_GT(made.entries[7].bounds.top, made.entries[6].bounds.bottom());
}

TEST(SettingFormPlan, AnOddMaximumIsHalvedExactly) {
    const auto firstInSecond = [](std::int32_t most) {
        const SettingFormPlan made = plan(some(40), most);
        std::size_t i = 0;
        while (i < 40 && made.entries[i].bounds.left == Twips{0})
            ++i;
        return i;
    };
    EXPECT_EQ(firstInSecond(15), 8U);
    EXPECT_EQ(firstInSecond(14), 7U);
    EXPECT_EQ(firstInSecond(1), 1U);
    EXPECT_EQ(firstInSecond(0), 0U);
    EXPECT_EQ(firstInSecond(-3), 0U);
    EXPECT_EQ(firstInSecond(1000), 40U);
}

TEST(SettingFormPlan, TheSecondColumnTakesAllTheRest) {
    const SettingFormPlan made = plan(some(40));
    for (std::size_t i = 9; i < 40; ++i) {
        EXPECT_EQ(made.entries[i].bounds.left, Twips{5520});
        EXPECT_GT(made.entries[i].bounds.top, made.entries[i - 1].bounds.top);
    }
    EXPECT_EQ(made.tabs[0].page.height, made.entries[39].bounds.bottom());
}

TEST(SettingFormPlan, EveryTabCountsForItself) {
    std::vector<SettingRecord> records = some(8, u"Paths");
    const std::vector<SettingRecord> others = some(8, u"View");
    records.insert(records.end(), others.begin(), others.end());
    for (const PlannedEntry& entry : plan(records).entries)
        EXPECT_EQ(entry.bounds.left, Twips{0});
}

TEST(SettingFormPlan, PagesEncloseWhatIsOnThem) {
    std::vector<SettingRecord> records = some(9, u"Paths");
    records.push_back(setting(u"A", u"View"));
    const SettingFormPlan made = plan(records);
    EXPECT_EQ(made.tabs[0].page.width, Twips{5520 + 5280});
    EXPECT_EQ(made.tabs[0].page.height, made.entries[7].bounds.bottom());
    EXPECT_EQ(made.tabs[1].page, made.entries[9].bounds.size());
}

TEST(SettingFormPlan, CaptionsTakeWhatTheWidestNeedsAndAtMostTwoFifths) {
    const Twips room = controlWidth(kMeasures);
    const SettingFormPlan made =
        plan({setting(u"A", u"Short", u"", u"Ten units."), setting(u"B", u"Short", u"", u"Five."),
              setting(u"C", u"Long", u"", std::u16string(60, u'x')),
              setting(u"D", u"Short", u"Boolean", std::u16string(60, u'x'))});
    EXPECT_EQ(made.entries[0].captionWidth, Twips{10 * 90 + 90});
    EXPECT_EQ(made.entries[1].captionWidth, made.entries[0].captionWidth);
    EXPECT_EQ(made.entries[2].captionWidth, room * 2 / 5);
    EXPECT_EQ(made.entries[0].bounds.height, kMeasures.boxHeight());
    EXPECT_GT(made.entries[2].bounds.height, kMeasures.boxHeight());
    EXPECT_GT(made.entries[3].bounds.height, kMeasures.boxHeight());
}

TEST(SettingFormPlan, AnEndlessCaptionIsCutAfterSomeLines) {
    const SettingFormPlan made = plan({setting(u"A", u"Long", u"", std::u16string(100'000, u'x'))});
    EXPECT_LE(made.entries[0].bounds.height, Twips{195 * 7});
}

TEST(SettingFormPlan, TheCaptionIsTheDescriptionOrElseTheName) {
    EXPECT_EQ(setting(u"Name", u"").caption(), u"Name");
    EXPECT_EQ(setting(u"Name", u"", u"", u"Description").caption(), u"Description");
}

TEST(SettingFormPlan, NothingOverlapsAndPartsStayInTheirRow) {
    std::vector<SettingRecord> records;
    for (std::size_t i = 0; i < 24; ++i)
        records.push_back(setting(u"S", u"Paths",
                                  Texts{u"", u"File:EXE", u"directory", u"Boolean", u"show"}[i % 5],
                                  std::u16string(i * 7, u'x')));
    const SettingFormPlan made = plan(records);
    for (std::size_t i = 0; i < made.entries.size(); ++i) {
        for (std::size_t j = 0; j < i; ++j)
            EXPECT_FALSE(overlap(made.entries[i].bounds, made.entries[j].bounds)) << i << " " << j;
        const EntryLayout parts = layoutEntry(made.entries[i], kMeasures);
        for (const Rect* part : {&parts.mark, &parts.caption, &parts.control, &parts.reset}) {
            if (*part == Rect{})
                continue;
            EXPECT_GE(part->left, made.entries[i].bounds.left);
            EXPECT_LE(part->right(), made.entries[i].bounds.right());
            EXPECT_LE(part->bottom(), made.entries[i].bounds.bottom());
            EXPECT_GT(part->width, Twips{0});
        }
        EXPECT_FALSE(overlap(parts.caption, parts.control));
        EXPECT_FALSE(overlap(parts.reset, parts.control));
        EXPECT_FALSE(overlap(parts.mark, parts.control));
    }
}

}  // namespace
}  // namespace quorel::settings
