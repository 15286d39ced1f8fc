#include "platform/ui/plain_controls.h"
#include "tests/explorer/explorer_fixture.h"

namespace quorel::explorer {
namespace {

using namespace ui::literals;

using ExplorerLifecycle = ExplorerTest;

TEST_F(ExplorerLifecycle, EveryMemberButTwoIsError91BeforeCreate) {
    const auto fresh = make<Explorer>(world.environment);
    fresh->Destroy();
    fresh->Destroy();
    const std::vector<std::function<void()>> calls{[&] { fresh->Init(); },
                                                   [&] { fresh->Deinit(); },
                                                   [&] { fresh->PopUp(); },
                                                   [&] { fresh->Conceal(); },
                                                   [&] { fresh->setPath(u""); },
                                                   [&] { static_cast<void>(fresh->Path()); },
                                                   [&] { static_cast<void>(fresh->Repository()); },
                                                   [&] { fresh->setRepository({}); },
                                                   [&] { static_cast<void>(fresh->RepositoryManager()); },
                                                   [&] { fresh->setRepositoryManager({}); },
                                                   [&] { fresh->AddTreeDesc(u"", u"", u"", u"", u"", u""); },
                                                   [&] { fresh->AddPicture(u"", u"", u""); },
                                                   [&] { fresh->AddPane(u"", u"", u"", u""); },
                                                   [&] { fresh->AddProperty(u"", u"", u""); },
                                                   [&] { fresh->AddSeparator(u"", u""); },
                                                   [&] { fresh->AddToolbar(u"", u""); },
                                                   [&] { fresh->AddListView(u"", u"", u"", u"", u""); },
                                                   [&] { fresh->AddSubPane(u"", u""); },
                                                   [&] { fresh->AddLabel(u"", u"", false, 8, u""); },
                                                   [&] { fresh->AddCombo(u"", u"", u"", u"", u""); }};
    for (const auto& call : calls)
        EXPECT_EQ(errorNumber(call), 91);
    EXPECT_TRUE(world.boxes().empty());
}

TEST_F(ExplorerLifecycle, WhatTheHostSetsIsKept) {
    create();
    explorer->setPath(u"C:\\data");
    EXPECT_EQ(explorer->Path(), u"C:\\data");
    EXPECT_EQ(explorer->Repository(), Object(model.repository));
    const auto manager = make<testing::RepositoryManagerDouble>(model.script);
    explorer->setRepositoryManager(manager);
    EXPECT_EQ(explorer->RepositoryManager(), Object(manager));
    explorer->Create();
    EXPECT_EQ(explorer->Path(), u"") << "another window";
    EXPECT_EQ(explorer->Repository(), Object());
}

TEST_F(ExplorerLifecycle, InitAddsTheInformationPane) {
    create();
    EXPECT_EQ(errorNumber([&] { static_cast<void>(form().Panes(u"ID:1")); }), 9);
    explorer->Init();
    EXPECT_EQ(pane(u"ID:1").Caption, u"QuorelExplorer");
    EXPECT_EQ(pane(u"ID:1").icon, u"QuorelExplorer");
    EXPECT_EQ(pane(u"ID:1").Pane(u"Info").Controls.size(), 2U);
    EXPECT_EQ(form().paneCount(), 1U);
}

TEST_F(ExplorerLifecycle, TheSummaryOfTheRepositoryIsExact) {
    init();
    EXPECT_EQ(get<ui::Label>(u"Label1(2)").text(),
              u"        Repository Type: Model\r\n\r\n"
              u"        Name: People\r\n"
              u"        Version: 1.2\r\n"
              u"        Intention: Who knows whom\r\n\r\n"
              u"        Metanodes: 2\r\n"
              u"          Extensions: 4\r\n"
              u"        Metalinks: 2\r\n"
              u"          Extensions: 2");
}

TEST_F(ExplorerLifecycle, AnEmptyRepositoryIsSummedUpToo) {
    explorer = make<OpenExplorer>(world.environment);
    explorer->Create();
    const auto empty = make<RepositoryDouble>(model.script);
    explorer->setRepository(empty);
    explorer->Init();
    const std::u16string& text = get<ui::Label>(u"Label1(2)").text();
    EXPECT_NE(text.find(u"        Metanodes: 0\r\n          Extensions: 0\r\n"), std::u16string::npos);
    EXPECT_TRUE(text.ends_with(u"        Metalinks: 0\r\n          Extensions: 0"));
    empty->clear();
}

TEST_F(ExplorerLifecycle, AFailedSummaryIsReportedAndLeavesTheGreeting) {
    create();
    model.script->onCall = [](const std::u16string& call) {
        if (call == u"repository.Version")
            throw automation::Error(1000);
    };
    world.expectBox();
    explorer->Init();
    world.desktop.verify();
    EXPECT_EQ(lastPlace(), u"frmExplorer/RepInfo");
    EXPECT_EQ(get<ui::Label>(u"Label1(1)").text(), u"  Here is the QUOREL Explorer 1.0");
    EXPECT_EQ(get<ui::Label>(u"Label1(2)").text(), u"");
}

TEST_F(ExplorerLifecycle, InitWithoutARepositoryIsReported) {
    explorer = make<OpenExplorer>(world.environment);
    explorer->Create();
    world.expectBox();
    explorer->Init();
    EXPECT_EQ(lastPlace(), u"frmExplorer/RepInfo");
    EXPECT_TRUE(world.boxes().back().starts_with(u"Error No: 91 "));
    world.desktop.verify();
}

TEST_F(ExplorerLifecycle, InitTwiceIsReported) {
    init();
    world.expectBox();
    explorer->Init();
    EXPECT_EQ(lastPlace(), u"frmExplorer/AddPane");
    world.desktop.verify();
}

TEST_F(ExplorerLifecycle, PopUpIsModalUnlessToldOtherwise) {
    init();
    world.desktop.expectModal(u"frmExplorer", [this](ui::Form& window) {
        EXPECT_TRUE(window.isModal());
        explorer->Conceal();
    });
    explorer->PopUp();
    EXPECT_FALSE(form().isVisible());
    explorer->PopUp(false);
    EXPECT_TRUE(form().isVisible());
    world.expectBox();
    explorer->PopUp(true);
    EXPECT_EQ(lastPlace(), u"frmExplorer/PopUp");
    world.desktop.verify();
}

TEST_F(ExplorerLifecycle, DescriptionsHaveIdsAndHangBelowEachOther) {
    init();
    const std::u16string top = explorer->AddTreeDesc(u"", u"Group", u"", u"Top", u"icon", u"pane");
    const std::u16string below = explorer->AddTreeDesc(top, u"Group", u"", u"Below", u"", u"");
    EXPECT_NE(top, u"");
    EXPECT_NE(top, below);
    explorer->PopUp(false);
    EXPECT_EQ(tree().itemPicture(at({u"Top"})), u"icon");
    expand({u"Top"});
    EXPECT_NE(at({u"Top", u"Below"}), TreeItemId::None);
}

TEST_F(ExplorerLifecycle, DeinitLetsGoOfWhatIsShown) {
    open();
    clickAnna();
    const std::int64_t live = automation::NativeObject::liveCount();
    explorer->Deinit();
    EXPECT_EQ(tree().itemCount(), 0U);
    EXPECT_EQ(visibleTabs(), Texts{});
    EXPECT_EQ(visiblePages(), Texts{});
    EXPECT_EQ(list(u"ListView1(4)").count(), 0U);
    EXPECT_EQ(property(u"Property1(1)").repObject(), Object());
    EXPECT_EQ(combo().selection(), Object());
    EXPECT_LE(automation::NativeObject::liveCount(), live);
    EXPECT_EQ(explorer->Repository(), Object(model.repository));
}

TEST_F(ExplorerLifecycle, DestroyLetsGoOfEverything) {
    const std::int64_t before = automation::NativeObject::liveCount();
    open();
    clickAnna();
    world.user.clickTab(form().tabs(), 1);
    explorer->setRepositoryManager(make<testing::RepositoryManagerDouble>(model.script));
    explorer->Destroy();
    explorer->Destroy();
    explorer.reset();
    EXPECT_EQ(world.desktop.livePeers(), 0U);
    // The double makes collections of links when it is first asked for them.
    EXPECT_LE(automation::NativeObject::liveCount(), before + 8);
}

TEST_F(ExplorerLifecycle, AClosedWindowCanBeShownAgain) {
    open();
    clickAnna();
    world.user.closeBox(form());
    EXPECT_EQ(world.desktop.livePeers(), 0U);
    explorer->PopUp(false);
    EXPECT_EQ(visiblePages(), Texts{u"person/Data"});
    click({u"Companies"});
    EXPECT_EQ(visiblePages(), Texts{u"companies/All"});
}

// Where the user left it.
// ------------------------------------------------------------------------

TEST_F(ExplorerLifecycle, OpensWhereTheUserLeftIt) {
    open();
    world.user.resize(form(), {12000_tw, 8000_tw});
    form().userMoved({600_tw, 750_tw}, false);
    auto& splitter = get<ui::Splitter>(u"Splitter");
    world.user.dragSplitter(splitter, 5000_tw);
    const ui::Rect treeBounds = form().TreeView1().bounds();
    explorer->Destroy();
    EXPECT_EQ(world.settings.read(u"QuorelUtility", u"frmExplorer", u"Width"), u"12000");
    open();
    EXPECT_EQ(form().clientSize(), (ui::Size{12000_tw, 8000_tw}));
    EXPECT_EQ(form().bounds().left, 600_tw);
    EXPECT_EQ(form().TreeView1().bounds(), treeBounds);
}

TEST_F(ExplorerLifecycle, AWindowThatWasNeverShownLeavesNoTrace) {
    init();
    explorer->Destroy();
    EXPECT_EQ(world.settings.read(u"QuorelUtility", u"frmExplorer", u"Width"), std::nullopt);
}

// Pictures.
// ------------------------------------------------------------------------

/// A picture of one colour.
[[nodiscard]] ui::Picture plain(std::int32_t size, std::uint8_t colour) {
    ui::Picture picture{size, size, {}};
    picture.rgba.assign(static_cast<std::size_t>(size) * static_cast<std::size_t>(size) * 4, colour);
    return picture;
}

TEST_F(ExplorerLifecycle, APictureGoesToTheTreeAndToBothLists) {
    world.desktop.setPicture(u"small.ico", {plain(16, 10)});
    world.desktop.setPicture(u"big.png", {plain(32, 20)});
    init();
    explorer->AddPicture(u"face", u"small.ico", u"big.png");
    const auto colourOf = [](const ui::ImageList& images) {
        const auto place = images.placeOf(u"face");
        return place ? images.frames(*place).front().rgba.front() : 0;
    };
    EXPECT_EQ(colourOf(*form().smallImages()), 10);
    EXPECT_EQ(colourOf(*form().bigImages()), 20);
    EXPECT_EQ(colourOf(*tree().images()), 10);
}

TEST_F(ExplorerLifecycle, WithoutABigPictureTheSmallOneServesForBoth) {
    world.desktop.setPicture(u"small.ico", {plain(16, 10)});
    init();
    explorer->AddPicture(u"face", u"small.ico", u"");
    for (const auto& images : {form().smallImages(), form().bigImages()}) {
        const auto place = images->placeOf(u"face");
        ASSERT_TRUE(place.has_value());
        EXPECT_EQ(images->frames(*place).front().rgba.front(), 10);
    }
}

TEST_F(ExplorerLifecycle, AMissingPictureIsReportedByTheNameOfAnotherProcedure) {
    init();
    world.expectBox();
    explorer->AddPicture(u"face", u"/nowhere/face.ico", u"");
    world.desktop.verify();
    EXPECT_EQ(lastPlace(), u"frmExplorer/Create");
    EXPECT_TRUE(world.boxes().back().starts_with(u"Error No: 53 "));
    EXPECT_NE(world.boxes().back().find(u"/nowhere/face.ico"), std::u16string::npos);
    EXPECT_EQ(form().smallImages()->placeOf(u"face"), std::nullopt);
}

TEST_F(ExplorerLifecycle, ThePictureOfAPaneIsShownBesideItsCaption) {
    world.desktop.setPicture(u"small.ico", {plain(16, 10)});
    open();
    explorer->AddPicture(u"face", u"small.ico", u"");
    clickAnna();
    const auto& box = get<ui::PictureBox>(u"CaptionBox");
    EXPECT_EQ(box.pictureAt(96).width, 32);
    EXPECT_EQ(box.pictureAt(192).width, 64) << "it grows with the resolution";
}

}  // namespace
}  // namespace quorel::explorer
