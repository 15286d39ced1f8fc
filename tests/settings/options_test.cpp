#include "settings/options.h"

#include "settings/file_type_rows.h"
#include "tests/settings/options_fixture.h"

namespace quorel::settings {
namespace {

using Texts = std::vector<std::u16string>;
using ui::Key;
using ui::Modifiers;

Texts captions(const frmOptions& form) {
    Texts texts;
    for (const auto& tab : const_cast<frmOptions&>(form).tbsOptions().tabs()) {
        EXPECT_TRUE(tab.key == tab.caption || tab.key.empty());
        texts.push_back(tab.caption);
    }
    return texts;
}

TEST_F(OptionsTest, MembersBeforeCreateAreError91) {
    EXPECT_EQ(errorNumber([&] { options->PopUp(); }), 91);
    EXPECT_EQ(errorNumber([&] { options->InitForm(); }), 91);
    EXPECT_EQ(errorNumber([&] { options->Conceal(); }), 91);
    EXPECT_EQ(errorNumber([&] { options->Deinit(); }), 91);
    EXPECT_EQ(errorNumber([&] { options->Init(model.information, u"a", u"b"); }), 91);
    EXPECT_FALSE(options->Settings());
    options->Destroy();
    EXPECT_TRUE(world.boxes().empty());
}

TEST_F(OptionsTest, CreateMakesTheStoreAndDestroyDropsIt) {
    create();
    EXPECT_EQ(options->Settings().call(u"getSettings").toObject(), Object(model.list));
    options->Deinit();
    EXPECT_TRUE(options->Settings());
    options->Destroy();
    EXPECT_FALSE(options->Settings());
    options->Destroy();
    EXPECT_EQ(errorNumber([&] { options->PopUp(); }), 91);
}

TEST_F(OptionsTest, InitHandsTheNamesOnInTheStoresOrder) {
    declareSome();
    EXPECT_EQ(stored(u"Name"), u"Anna");
}

TEST_F(OptionsTest, EveryCategoryHasATabAndEverySettingAControl) {
    declareSome();
    look([&](frmOptions& form) {
        EXPECT_EQ(captions(form), (Texts{u"Person", u"Paths"}));
        EXPECT_EQ(form.text(), u"Options");
        EXPECT_EQ(get<ui::Label>(form, u"Label(1)").text(), u"Who it is");
        EXPECT_EQ(box(form, u"EditBox(1)").text(), u"Anna");
        EXPECT_EQ(box(form, u"EditBox(1)").tag(), u"Name");
        auto& tool = get<controls::FileSelector>(form, u"FileSelector(1).View");
        EXPECT_EQ(tool.GetAttribute(u"FilePath").text(), u"edit.exe");
        EXPECT_EQ(tool.GetAttribute(u"Message").text(), u"The editor");
        EXPECT_EQ(tool.GetAttribute(u"Mode").text(), u"File");
        EXPECT_EQ(tool.GetAttribute(u"DefaultExtension").text(), u".exe");
        EXPECT_EQ(tool.GetAttribute(u"Filter").text(), u"Executable files (*.exe)|*.exe");
        EXPECT_EQ(tool.tag(), u"Tool");
        auto& models = get<controls::FileSelector>(form, u"FileSelector(2).View");
        EXPECT_EQ(models.GetAttribute(u"Mode").text(), u"Directory");
        EXPECT_EQ(models.GetAttribute(u"Message").text(), u"Models");
        EXPECT_EQ(models.GetAttribute(u"Filter").text(), u"");
        auto& quiet = get<ui::CheckBox>(form, u"Check(1)");
        EXPECT_TRUE(quiet.isChecked());
        EXPECT_EQ(quiet.text(), u"Be &quiet");
        EXPECT_EQ(quiet.tag(), u"Quiet");
        auto& version = box(form, u"EditBox(2)");
        EXPECT_EQ(version.text(), u"1.2");
        EXPECT_FALSE(version.isEnabled());
        EXPECT_EQ(version.tag(), u"");
        EXPECT_EQ(form.find(u"EditBox(3)"), nullptr);
        EXPECT_EQ(tool.parent()->name(), u"picOptions(1)");
        EXPECT_EQ(quiet.parent()->name(), u"picOptions(0)");
    });
}

TEST_F(OptionsTest, TheTableOfFileTypesHasTwentyRows) {
    ASSERT_EQ(kFileTypeRows.size(), 20U);
    create();
    for (const FileTypeRow& row : kFileTypeRows)
        declare(row.key, u"", std::u16string(u"file:") + row.key, u"Files");
    look([&](frmOptions& form) {
        for (std::size_t i = 0; i < kFileTypeRows.size(); ++i) {
            auto& selector = get<controls::FileSelector>(
                form, u"FileSelector(" + automation::decimal(static_cast<std::int64_t>(i + 1)) + u").View");
            const std::u16string extension = selector.GetAttribute(u"DefaultExtension").toString();
            EXPECT_EQ(extension, kFileTypeRows[i].extension);
            EXPECT_TRUE(selector.GetAttribute(u"Filter").toString().ends_with(u"|*" + extension));
        }
    });
    EXPECT_EQ(std::u16string(kFileTypeRows[3].filter), u"Prolog script(*.pl)|*.pl");
    EXPECT_EQ(std::u16string(kFileTypeRows[6].filter), u"Workgroupg file (*.mdw)|*.mdw");
    EXPECT_EQ(std::u16string(kFileTypeRows[10].filter), u"C++ implemention file (*.cpp)|*.cpp");
}

TEST_F(OptionsTest, AnUnknownFileTypeIsAFileOfAnyType) {
    create();
    declare(u"Tool", u"", u"File:XYZ", u"Paths");
    declare(u"Other", u"", u"file", u"Paths");
    look([&](frmOptions& form) {
        for (const char16_t* name : {u"FileSelector(1).View", u"FileSelector(2).View"}) {
            auto& selector = get<controls::FileSelector>(form, name);
            EXPECT_EQ(selector.GetAttribute(u"Filter").text(), u"");
            EXPECT_EQ(selector.GetAttribute(u"Mode").text(), u"File");
        }
    });
}

TEST_F(OptionsTest, WithoutSettingsThereIsOneTabByDesign) {
    create();
    look([&](frmOptions& form) {
        EXPECT_EQ(captions(form), Texts{u"General"});
        EXPECT_EQ(seenPage(form), 0U);
    });
}

TEST_F(OptionsTest, ACategoryWithoutAListIsReportedAndTheWindowIsEmpty) {
    options->Create();
    options->Init(model.information, u"Navigator", u"Unknown");
    world.expectBox();
    look([&](frmOptions& form) { EXPECT_EQ(captions(form), Texts{u"General"}); });
    ASSERT_EQ(world.boxes().size(), 1U);
    EXPECT_TRUE(world.boxes()[0].starts_with(u"Error No: 91"));
    EXPECT_TRUE(world.boxes()[0].ends_with(u"(Module 'frmOptions' Function 'GenerateSettingForm()')"));
}

TEST_F(OptionsTest, OkStoresEverythingInOrderAndCloses) {
    declareSome();
    store.written.clear();
    popUp([&](frmOptions& form) {
        world.user.enterText(box(form, u"EditBox(1)"), u"Berta");
        world.user.click(form, u"Check(1)");
        world.user.click(form, u"cmdOK");
    });
    EXPECT_EQ(store.written, (Texts{u"Name=Berta", u"Tool=edit.exe", u"Models=/models", u"Quiet=0"}));
    EXPECT_EQ(model.property(u"Name", u"Value"), u"Berta");
    EXPECT_EQ(model.property(u"Quiet", u"Value"), u"0");
    EXPECT_EQ(model.property(u"Version", u"Value"), u"1.2");
}

TEST_F(OptionsTest, CancelAndTheCloseBoxStoreNothing) {
    declareSome();
    store.written.clear();
    popUp([&](frmOptions& form) {
        world.user.enterText(box(form, u"EditBox(1)"), u"Berta");
        world.user.click(form, u"cmdCancel");
        EXPECT_FALSE(form.isLoaded());
    });
    popUp([&](frmOptions& form) {
        EXPECT_EQ(box(form, u"EditBox(1)").text(), u"Anna");
        world.user.enterText(box(form, u"EditBox(1)"), u"Berta");
        world.user.closeBox(form);
    });
    EXPECT_EQ(store.written, Texts{});
    EXPECT_EQ(model.property(u"Name", u"Value"), u"Anna");
}

TEST_F(OptionsTest, ApplyStaysOpenAndCancelKeepsWhatItStored) {
    declareSome();
    popUp([&](frmOptions& form) {
        world.user.enterText(box(form, u"EditBox(1)"), u"Berta");
        world.user.click(form, u"cmdApply");
        EXPECT_TRUE(form.isVisible());
        EXPECT_EQ(stored(u"Name"), u"Berta");
        world.user.enterText(box(form, u"EditBox(1)"), u"Carla");
        world.user.press(form, {Key::Escape});
    });
    EXPECT_EQ(stored(u"Name"), u"Berta");
}

TEST_F(OptionsTest, AReadOnlySettingIsNeverStored) {
    declareSome();
    popUp([&](frmOptions& form) {
        model.setting(u"Version")->values[u"Value"] = u"2.0";
        world.user.click(form, u"cmdOK");
    });
    EXPECT_EQ(model.property(u"Version", u"Value"), u"2.0");
    EXPECT_EQ(stored(u"Version"), u"1.2");
}

TEST_F(OptionsTest, EachPopUpGeneratesTheWindowAnew) {
    declareSome();
    popUp([&](frmOptions& form) { world.user.click(form, u"cmdOK"); });
    declare(u"Font", u"large", u"Text", u"View");
    options->Settings().call(u"SetEntry", u"Name", u"Doris");
    popUp([&](frmOptions& form) {
        EXPECT_EQ(captions(form), (Texts{u"Person", u"Paths", u"View"}));
        EXPECT_EQ(box(form, u"EditBox(1)").text(), u"Doris");
        EXPECT_EQ(seenPage(form), 0U);
        options->Conceal();
    });
    popUp([&](frmOptions& form) {
        EXPECT_EQ(captions(form).size(), 3U);
        EXPECT_EQ(form.find(u"picOptions(3)"), nullptr);
        EXPECT_EQ(form.find(u"EditBox(4)"), nullptr);
        world.user.click(form, u"cmdCancel");
    });
    EXPECT_TRUE(world.boxes().empty());
}

TEST_F(OptionsTest, OnePageIsSeenAtATime) {
    declareSome();
    look([&](frmOptions& form) {
        EXPECT_EQ(seenPage(form), 0U);
        world.user.clickTab(form.tbsOptions(), 1);
        EXPECT_EQ(seenPage(form), 1U);
        EXPECT_EQ(form.find(u"picOptions(1)")->bounds().top, form.find(u"picOptions(0)")->bounds().top);
        world.user.enterText(box(form, u"FileSelector(2)"), u"/other");
        world.user.clickTab(form.tbsOptions(), 0);
        EXPECT_EQ(seenPage(form), 0U);
    });
}

TEST_F(OptionsTest, CtrlTabGoesRoundBothWaysAndIgnoresAlt) {
    declareSome();
    declare(u"Font", u"large", u"Text", u"View");
    look([&](frmOptions& form) {
        Texts seen;
        for (const Modifiers modifiers :
             {Modifiers::Control, Modifiers::Control, Modifiers::Control,
              Modifiers::Control | Modifiers::Shift, Modifiers::Control | Modifiers::Shift,
              Modifiers::Control | Modifiers::Alt, Modifiers::Control | Modifiers::Shift | Modifiers::Alt}) {
            world.user.press(form, {Key::Tab, modifiers});
            seen.push_back(automation::decimal(static_cast<std::int64_t>(seenPage(form))));
        }
        EXPECT_EQ(seen, (Texts{u"1", u"2", u"0", u"2", u"1", u"2", u"1"}));
    });
}

TEST_F(OptionsTest, WithOneTabCtrlTabKeepsIt) {
    create();
    declare(u"Name", u"Anna", u"Text", u"Person");
    look([&](frmOptions& form) {
        world.user.press(form, {Key::Tab, Modifiers::Control});
        EXPECT_EQ(seenPage(form), 0U);
        world.user.press(form, {Key::Tab, Modifiers::Control | Modifiers::Shift});
        EXPECT_EQ(seenPage(form), 0U);
        EXPECT_EQ(form.tbsOptions().selected(), 0U);
    });
}

TEST_F(OptionsTest, TheFocusBeginsInTheFirstSettingAndFollowsTheTab) {
    declareSome();
    look([&](frmOptions& form) {
        EXPECT_TRUE(box(form, u"EditBox(1)").hasFocus());
        world.user.press(form, {Key::Tab, Modifiers::Control});
        EXPECT_TRUE(box(form, u"FileSelector(1)").hasFocus());
        world.user.press(form, {Key::Tab, Modifiers::Control});
        EXPECT_TRUE(box(form, u"EditBox(1)").hasFocus());
    });
}

TEST_F(OptionsTest, TheWindowFitsItsContent) {
    declareSome();
    look([&](frmOptions& form) {
        const ui::Rect strip = form.tbsOptions().bounds();
        const ui::Rect buttons = form.find(u"ControlButtons")->bounds();
        EXPECT_EQ(form.clientSize().width, strip.left * 2 + strip.width);
        EXPECT_EQ(buttons.top, strip.bottom() + strip.left);
        EXPECT_EQ(form.clientSize().height, buttons.bottom() + strip.left * 2);
        const ui::Rect page = form.find(u"picOptions(0)")->bounds();
        const ui::Rect client = form.tbsOptions().clientBounds();
        EXPECT_LE(page.right(), client.right());
        EXPECT_LE(page.bottom(), client.bottom());
    });
}

TEST_F(OptionsTest, APageHigherThanTheScreenScrolls) {
    world.desktop.setWorkArea({{}, {}, {19'200}, {9000}});
    create();
    for (int i = 1; i <= 60; ++i)
        declare(u"Setting" + automation::decimal(i), u"x", u"Text", u"Many");
    look([&](frmOptions& form) {
        auto& page = get<ui::ScrollPanel>(form, u"picOptions(0)");
        EXPECT_TRUE(page.scrolls());
        EXPECT_LE(form.clientSize().height, ui::Twips{9000});
        auto& last = box(form, u"EditBox(60)");
        EXPECT_GT(page.contentHeight(), last.bounds().bottom());
        last.focus();
        EXPECT_GT(page.scrolled(), ui::Twips{0});
        world.user.enterText(last, u"y");
        world.user.click(form, u"cmdOK");
    });
    EXPECT_EQ(stored(u"Setting60"), u"y");
}

TEST_F(OptionsTest, ACaptionTooLongForItsRoomIsToldWhole) {
    create();
    const std::u16string endless(5000, u'x');
    declare(u"A", u"", u"Text", u"Long", endless);
    declare(u"B", u"", u"File", u"Long", endless);
    declare(u"C", u"", u"Boolean", u"Long", endless);
    declare(u"D", u"", u"Text", u"Long", u"Short");
    look([&](frmOptions& form) {
        for (const char16_t* name : {u"Label(1)", u"FileSelector(1).Message", u"Check(1)"})
            EXPECT_TRUE(form.find(name)->toolTip() == endless);
        EXPECT_EQ(form.find(u"Label(2)")->toolTip(), u"");
        EXPECT_LT(form.clientSize().width, ui::Twips{15'000});
    });
}

TEST_F(OptionsTest, AttributesDecideHowManyFitOnATab) {
    create();
    for (int i = 1; i <= 4; ++i)
        declare(u"Setting" + automation::decimal(i), u"x", u"Text", u"Many");
    auto form = std::make_shared<frmOptions>(environment);
    form->load();
    EXPECT_EQ(form->GetAttribute(u"maxentrysontab").text(), u"16");
    EXPECT_FALSE(form->SetAttribute(u"MAXENTRYSONTAB", 4));
    form->Init(options->Settings());
    EXPECT_EQ(form->find(u"Label(2)")->bounds().left, form->find(u"Label(1)")->bounds().left);
    EXPECT_GT(form->find(u"Label(3)")->bounds().left, form->find(u"EditBox(1)")->bounds().right());
    form->SetAttribute(u"MaxEntrysOnTab", u"many");
    world.expectBox();
    form->Init(options->Settings());
    EXPECT_TRUE(world.boxes().at(0).starts_with(u"Error No: 13"));
    EXPECT_TRUE(form->hasEntry(u"Setting1"));
    EXPECT_TRUE(form->SetEntry(u"Setting1", u"z"));
    std::u16string value;
    EXPECT_FALSE(form->GetEntry(u"Setting1", value, u""));
    EXPECT_EQ(value, u"z");
    EXPECT_EQ(form->getSettings(), Object(model.list));
    EXPECT_EQ(form->Settings(), options->Settings());
    form->Destroy();
}

TEST_F(OptionsTest, CheckBoxesReadWhatWasStoredAsTheyCan) {
    for (const auto& [text, value] : std::initializer_list<std::pair<const char16_t*, ui::CheckValue>>{
             {u"0", ui::CheckValue::Unchecked},
             {u"1", ui::CheckValue::Checked},
             {u"2", ui::CheckValue::Grayed},
             {u"-1", ui::CheckValue::Checked},
             {u"TRUE", ui::CheckValue::Checked},
             {u"False", ui::CheckValue::Unchecked},
             {u"", ui::CheckValue::Unchecked},
             {u"perhaps", ui::CheckValue::Unchecked}})
        EXPECT_EQ(checkValueOf(text), value);
}

}  // namespace
}  // namespace quorel::settings
