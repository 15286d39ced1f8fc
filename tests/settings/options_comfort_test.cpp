// What the options window has beyond its controls: marks, reset, search, warnings; and what may fail in it.

#include <fstream>

#include "tests/settings/options_fixture.h"

namespace quorel::settings {
namespace {

using Texts = std::vector<std::u16string>;
using ui::Key;
using ui::Modifiers;

struct OptionsComfortTest : OptionsTest {
    [[nodiscard]] static bool isMarked(frmOptions& form, std::u16string_view number) {
        return form.find(u"Mark(" + std::u16string(number) + u")")->isVisible();
    }
    [[nodiscard]] static bool canReset(frmOptions& form, std::u16string_view number) {
        return form.find(u"Reset(" + std::u16string(number) + u")")->isVisible();
    }
    [[nodiscard]] static std::u16string found(frmOptions& form) { return form.find(u"Found")->text(); }
    void expectQuestion(ui::MessageAnswer answer) {
        world.desktop.expectMessage(
            [this](const ui::Message& message) {
                EXPECT_EQ(message.style, 4 | 48);
                question = message.text;
            },
            answer);
    }
    std::u16string question;
};

TEST_F(OptionsComfortTest, AChangedValueIsMarkedAndCanBeReset) {
    declareSome();
    look([&](frmOptions& form) {
        EXPECT_FALSE(isMarked(form, u"1"));
        EXPECT_FALSE(canReset(form, u"1"));
        world.user.enterText(box(form, u"EditBox(1)"), u"Berta");
        EXPECT_TRUE(isMarked(form, u"1"));
        EXPECT_EQ(form.find(u"Mark(1)")->toolTip(), u"Changed; it was: Anna");
        EXPECT_EQ(form.find(u"Reset(1)")->toolTip(), u"Reset to the stored value: Anna");
        world.user.click(form, u"Reset(1)");
        EXPECT_EQ(box(form, u"EditBox(1)").text(), u"Anna");
        EXPECT_TRUE(box(form, u"EditBox(1)").hasFocus());
        EXPECT_FALSE(isMarked(form, u"1"));
        EXPECT_FALSE(canReset(form, u"1"));
    });
}

TEST_F(OptionsComfortTest, AMarkStaysAfterApplyAndResetGoesToWhatWasApplied) {
    declareSome();
    look([&](frmOptions& form) {
        world.user.click(form, u"Check(1)");
        world.user.enterText(box(form, u"EditBox(1)"), u"Berta");
        world.user.click(form, u"cmdApply");
        EXPECT_TRUE(isMarked(form, u"1"));
        EXPECT_FALSE(canReset(form, u"1"));
        EXPECT_TRUE(isMarked(form, u"4"));
        world.user.enterText(box(form, u"EditBox(1)"), u"Carla");
        world.user.click(form, u"Reset(1)");
        EXPECT_EQ(box(form, u"EditBox(1)").text(), u"Berta");
        world.user.clickTab(form.tbsOptions(), 1);
        world.user.enterText(box(form, u"FileSelector(2)"), u"/other");
        EXPECT_TRUE(isMarked(form, u"3"));
        world.user.click(form, u"Reset(3)");
        EXPECT_EQ(box(form, u"FileSelector(2)").text(), u"/models");
    });
}

TEST_F(OptionsComfortTest, TheSearchFindsCaptionsNamesCategoriesAndValues) {
    declareSome();
    look([&](frmOptions& form) {
        auto& search = box(form, u"Search");
        world.user.press(form, {ui::key('F'), Modifiers::Control});
        EXPECT_TRUE(search.hasFocus());
        world.user.type(form, u"EDITOR");
        EXPECT_EQ(found(form), u"1 of 1");
        EXPECT_EQ(seenPage(form), 1U);
        EXPECT_TRUE(search.hasFocus());
        EXPECT_TRUE(isMarked(form, u"2"));
        world.user.enterText(search, u"/mod");
        EXPECT_EQ(found(form), u"1 of 1");
        EXPECT_FALSE(isMarked(form, u"2"));
        EXPECT_TRUE(isMarked(form, u"3"));
        world.user.enterText(search, u"person");
        EXPECT_EQ(found(form), u"1 of 3");
        EXPECT_EQ(seenPage(form), 0U);
        world.user.enterText(search, u"nobody");
        EXPECT_EQ(found(form), u"not found");
        world.user.enterText(search, u"");
        EXPECT_EQ(found(form), u"");
        for (const char16_t* number : {u"1", u"2", u"3", u"4", u"5"})
            EXPECT_FALSE(isMarked(form, number));
    });
    EXPECT_TRUE(world.boxes().empty());
}

TEST_F(OptionsComfortTest, EnterGoesFromMatchToMatchAndEscEndsTheSearch) {
    declareSome();
    popUp([&](frmOptions& form) {
        world.user.enterText(box(form, u"Search"), u"e");
        const std::u16string first = found(form);
        EXPECT_EQ(first, u"1 of 5");
        for (int i = 0; i < 5; ++i)
            world.user.press(form, {Key::Enter});
        EXPECT_EQ(found(form), first);
        world.user.press(form, {Key::Up});
        EXPECT_EQ(found(form), u"5 of 5");
        world.user.press(form, {Key::Down});
        world.user.press(form, {Key::Enter, Modifiers::Shift});
        EXPECT_EQ(found(form), u"5 of 5");
        world.user.press(form, {Key::Escape});
        EXPECT_EQ(box(form, u"Search").text(), u"");
        EXPECT_TRUE(form.isVisible());
        world.user.press(form, {Key::Escape});
        EXPECT_FALSE(form.isVisible());
    });
}

TEST_F(OptionsComfortTest, EnterInASearchWithoutMatchesIsNotOk) {
    declareSome();
    store.written.clear();
    look([&](frmOptions& form) {
        world.user.enterText(box(form, u"Search"), u"nobody");
        world.user.press(form, {Key::Enter});
        EXPECT_TRUE(form.isVisible());
    });
    EXPECT_EQ(store.written, Texts{});
}

TEST_F(OptionsComfortTest, AFileThatIsNotThereIsAWarningAndStoredAllTheSame) {
    declareSome();
    popUp([&](frmOptions& form) {
        world.user.clickTab(form.tbsOptions(), 1);
        world.user.enterText(box(form, u"FileSelector(1)"), u"/no/such.exe");
        world.user.press(form, {Key::Tab});
        EXPECT_EQ(form.find(u"Message")->text(), u"There is no file /no/such.exe");
        world.user.clickTab(form.tbsOptions(), 0);
        expectQuestion(ui::MessageAnswer::No);
        world.user.click(form, u"cmdOK");
        EXPECT_EQ(question,
                  u"The editor: There is no file /no/such.exe\r\n\r\nStore the values all the same?");
        EXPECT_TRUE(form.isVisible());
        EXPECT_EQ(stored(u"Tool"), u"edit.exe");
        EXPECT_EQ(seenPage(form), 1U);
        EXPECT_TRUE(box(form, u"FileSelector(1)").hasFocus());
        expectQuestion(ui::MessageAnswer::Yes);
        world.user.click(form, u"cmdOK");
    });
    EXPECT_EQ(stored(u"Tool"), u"/no/such.exe");
}

TEST_F(OptionsComfortTest, OnlyChangedPathsAreLookedFor) {
    declareSome();
    popUp([&](frmOptions& form) {
        world.user.clickTab(form.tbsOptions(), 1);
        world.user.enterText(box(form, u"FileSelector(2)"),
                             std::filesystem::temp_directory_path().u16string());
        world.user.click(form, u"cmdOK");
    });
    EXPECT_TRUE(world.boxes().empty());
}

TEST_F(OptionsComfortTest, FilesAreNoFoldersAndFoldersNoFiles) {
    const std::filesystem::path folder = std::filesystem::temp_directory_path();
    const std::filesystem::path file = folder / "quorel_options_comfort.txt";
    std::ofstream(file) << "x";
    EXPECT_EQ(complaintAbout(EditKind::File, file.u16string()), u"");
    EXPECT_NE(complaintAbout(EditKind::Directory, file.u16string()), u"");
    EXPECT_EQ(complaintAbout(EditKind::Directory, folder.u16string()), u"");
    EXPECT_NE(complaintAbout(EditKind::File, folder.u16string()), u"");
    EXPECT_EQ(complaintAbout(EditKind::File, u""), u"");
    EXPECT_NE(complaintAbout(EditKind::File, std::u16string(1, u'\xD800')), u"");
    EXPECT_EQ(complaintAbout(EditKind::Text, u"/no/such"), u"");
    std::filesystem::remove(file);
}

TEST_F(OptionsComfortTest, ManyMissingFilesMakeAShortQuestion) {
    create();
    for (int i = 1; i <= 20; ++i)
        declare(u"File" + automation::decimal(i), u"", u"File:TXT", u"Files");
    popUp([&](frmOptions& form) {
        for (int i = 1; i <= 20; ++i)
            world.user.enterText(box(form, u"FileSelector(" + automation::decimal(i) + u")"), u"/no/such");
        expectQuestion(ui::MessageAnswer::Yes);
        world.user.click(form, u"cmdOK");
    });
    EXPECT_NE(question.find(u"… and 12 more"), std::u16string::npos);
}

TEST_F(OptionsComfortTest, AStoreThatFailsIsShownAndTheWindowStays) {
    declareSome();
    popUp([&](frmOptions& form) {
        store.failsOnWrite = true;
        world.expectBox();
        world.user.click(form, u"cmdOK");
        EXPECT_TRUE(form.isVisible());
        EXPECT_TRUE(world.boxes().back().starts_with(u"Error No: 75  'The store is full'"));
        EXPECT_TRUE(world.boxes().back().ends_with(u"(Module 'frmOptions' Function 'cmdOK_Click()')"));
        world.expectBox();
        world.user.click(form, u"cmdApply");
        EXPECT_TRUE(world.boxes().back().ends_with(u"Function 'cmdApply_Click()')"));
        store.failsOnWrite = false;
        world.user.click(form, u"cmdOK");
    });
    EXPECT_EQ(stored(u"Name"), u"Anna");
}

TEST_F(OptionsComfortTest, TheHostMayDestroyTheComponentWhileItStores) {
    declareSome();
    popUp([&](frmOptions& form) {
        model.script->onCall = [this](const std::u16string& call) {
            if (call.ends_with(u".Value") && options) {
                options->Destroy();
                options.reset();
            }
        };
        world.user.click(form, u"cmdOK");
        model.script->onCall = {};
    });
    EXPECT_TRUE(world.boxes().empty());
}

TEST_F(OptionsComfortTest, TheHostMayGenerateTheFormAnewWhileItStores) {
    declareSome();
    bool again = true;
    popUp([&](frmOptions& form) {
        world.user.enterText(box(form, u"EditBox(1)"), u"Berta");
        model.script->onCall = [&](const std::u16string& call) {
            if (call.ends_with(u".Value") && std::exchange(again, false))
                options->InitForm();
        };
        world.user.click(form, u"cmdApply");
        model.script->onCall = {};
        world.user.click(form, u"cmdCancel");
    });
    EXPECT_EQ(stored(u"Name"), u"Berta");
    EXPECT_EQ(stored(u"Quiet"), u"1");
    EXPECT_TRUE(world.boxes().empty());
}

/// Whichever call to the repository fails: one box, and the window goes on.
struct OptionsSweepTest : OptionsComfortTest {
    /// True if a call failed; then one box was shown.
    bool sweep(int k, const std::function<void()>& action) {
        const std::size_t before = world.boxes().size();
        model.script->restart(k);
        model.script->onFailure = [this] { world.expectBox(); };
        action();
        const bool failed = model.script->hasFailed();
        model.script->onFailure = {};
        model.script->restart();
        EXPECT_EQ(world.boxes().size(), before + (failed ? 1 : 0)) << k;
        return failed;
    }
    /// A form that is generated without a failure holds as many objects as the first one.
    void expectNothingLost(int k) {
        options->InitForm();
        const std::int64_t objects = automation::NativeObject::liveCount();
        EXPECT_EQ(std::exchange(objects_, objects), objects) << k;
    }
    std::int64_t objects_ = automation::NativeObject::liveCount();
};

TEST_F(OptionsSweepTest, WhileTheFormIsGenerated) {
    declareSome();
    options->InitForm();
    objects_ = automation::NativeObject::liveCount();
    int k = 1;
    while (sweep(k, [this] { options->InitForm(); })) {
        ASSERT_LT(++k, 200);
        popUp([&](frmOptions& form) {
            EXPECT_EQ(box(form, u"EditBox(1)").text(), u"Anna");
            world.user.click(form, u"cmdOK");
        });
        expectNothingLost(k);
    }
    EXPECT_GT(k, 30);
}

TEST_F(OptionsSweepTest, WhileTheValuesAreStored) {
    declareSome();
    options->InitForm();
    objects_ = automation::NativeObject::liveCount();
    int k = 1;
    bool failed = true;
    while (failed) {
        ASSERT_LT(k, 200);
        popUp([&](frmOptions& form) {
            failed = sweep(k, [&] {
                world.user.press(form, {Key::Tab, Modifiers::Control});
                world.user.click(form, u"cmdApply");
                world.user.press(form, {Key::Tab, Modifiers::Control});
                world.user.click(form, u"cmdOK");
            });
            if (form.isVisible())
                world.user.click(form, u"cmdOK");
            EXPECT_FALSE(form.isLoaded()) << k;
        });
        EXPECT_EQ(stored(u"Quiet"), u"1");
        expectNothingLost(k++);
    }
    EXPECT_GT(k, 30);
}

}  // namespace
}  // namespace quorel::settings
