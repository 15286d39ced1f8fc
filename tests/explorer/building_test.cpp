#include "platform/ui/plain_controls.h"
#include "tests/explorer/explorer_fixture.h"

namespace quorel::explorer {
namespace {

using namespace ui::literals;

struct ExplorerBuilding : ExplorerTest {
    ExplorerBuilding() {
        create();
        explorer->AddPane(u"p", u"face", u"A pane", u"Main");
    }
    [[nodiscard]] const subPane& page(std::u16string_view caption = u"Main") {
        return pane(u"p").Pane(caption);
    }
    [[nodiscard]] const ExplorerControl& control(std::size_t index, std::u16string_view caption = u"Main") {
        return page(caption).Controls.at(index);
    }
    [[nodiscard]] ui::Rect bounds(std::size_t index) { return control(index).Control->bounds(); }
};

TEST_F(ExplorerBuilding, APaneBeginsWithItsDefaultSubPane) {
    EXPECT_EQ(pane(u"p").key, u"p");
    EXPECT_EQ(pane(u"p").icon, u"face");
    EXPECT_EQ(pane(u"p").Caption, u"A pane");
    EXPECT_FALSE(pane(u"p").Active());
    ASSERT_EQ(pane(u"p").Panes().size(), 1U);
    EXPECT_EQ(page().Caption, u"Main");
    EXPECT_FALSE(page().Visible());
    EXPECT_EQ(page().CurrentHeight, 0_tw);
}

TEST_F(ExplorerBuilding, AnOmittedSubPaneIsTheDefaultOne) {
    explorer->AddSubPane(u"p", u"Other");
    explorer->AddLabel(u"p", u"one", false, 8, u"");
    explorer->AddLabel(u"p", u"two", false, 8, u"Other");
    explorer->AddLabel(u"p", u"three", false, 8, u"Main");
    ASSERT_EQ(page().Controls.size(), 2U);
    EXPECT_EQ(control(0).tabCaption, u"Main");
    EXPECT_EQ(control(0).as<ui::Label>().text(), u"one");
    EXPECT_EQ(control(1).as<ui::Label>().text(), u"three");
    EXPECT_EQ(control(0, u"Other").tabCaption, u"Other");
}

TEST_F(ExplorerBuilding, ADefaultSubPaneWithoutACaptionIsOneToo) {
    explorer->AddPane(u"q", u"", u"", u"");
    explorer->AddSeparator(u"q", u"");
    EXPECT_EQ(pane(u"q").Pane(u"").Controls.size(), 1U);
}

TEST_F(ExplorerBuilding, EveryKindIsDescribed) {
    explorer->AddListView(u"p", u"Link-Target", u"WorksFor", u"job", u"");
    explorer->AddProperty(u"p", u"Person", u"");
    explorer->AddCombo(u"p", u"Company", u"WorksFor", u"Town", u"");
    explorer->AddToolbar(u"p", u"");
    explorer->AddSeparator(u"p", u"");
    explorer->AddLabel(u"p", u"text", true, 12, u"");
    const auto told = [this](std::size_t index) {
        const ExplorerControl& c = control(index);
        return Texts{c.typ, c.view, c.metatype, c.icon, c.tabCaption, c.extra, c.Control->name()};
    };
    EXPECT_EQ(told(0),
              (Texts{u"ListView", u"Link-Target", u"WorksFor", u"job", u"Main", u"", u"ListView1(1).View"}));
    EXPECT_EQ(told(1), (Texts{u"Property", u"", u"Person", u"", u"Main", u"", u"Property1(1).View"}));
    EXPECT_EQ(told(2), (Texts{u"Combo", u"Town", u"Company", u"", u"Main", u"WorksFor", u"Combo1(1).View"}));
    EXPECT_EQ(told(3), (Texts{u"EditToolbar", u"", u"", u"", u"Main", u"", u"EditToolbar1(1)"}));
    EXPECT_EQ(told(4), (Texts{u"Separator", u"", u"", u"", u"Main", u"", u"Separator(1)"}));
    EXPECT_EQ(told(5), (Texts{u"Label", u"", u"", u"", u"Main", u"", u"Label1(1)"}));
}

TEST_F(ExplorerBuilding, ElementsAreNumberedThroughTheWindow) {
    explorer->AddPane(u"q", u"", u"", u"");
    explorer->AddSeparator(u"p", u"");
    explorer->AddSeparator(u"q", u"");
    EXPECT_EQ(pane(u"q").Pane(u"").Controls[0].Control->name(), u"Separator(2)");
}

TEST_F(ExplorerBuilding, EachPaneHasABoxOfItsOwnBeforeThoseOfItsSubPanes) {
    explorer->AddSubPane(u"p", u"Other");
    explorer->AddPane(u"q", u"", u"", u"");
    EXPECT_EQ(page().Pane->name(), u"Pane(2)");
    EXPECT_EQ(page(u"Other").Pane->name(), u"Pane(3)");
    EXPECT_EQ(pane(u"q").Pane(u"").Pane->name(), u"Pane(5)");
    for (const char16_t* const own : {u"Pane(1)", u"Pane(4)"}) {
        const auto& box = get<ui::Panel>(own);
        EXPECT_FALSE(box.isVisible());
        EXPECT_EQ(box.parent(), &form().tabs());
        EXPECT_EQ(box.bounds(), page().Pane->bounds());
        EXPECT_TRUE(box.children().empty());
    }
    EXPECT_EQ(form().find(u"Pane(6)"), nullptr);
}

TEST_F(ExplorerBuilding, TheArraysBeginWithHiddenTemplates) {
    explorer->Init();
    explorer->PopUp(false);
    const std::size_t shown = world.desktop.livePeers();
    for (const char16_t* const name :
         {u"Pane(0)", u"ListView1(0).View", u"Property1(0).View", u"Combo1(0).View", u"EditToolbar1(0)",
          u"Label1(0)", u"Separator(0)"}) {
        auto& element = get<ui::Control>(name);
        EXPECT_FALSE(element.isVisible());
        EXPECT_EQ(element.peer(), nullptr);
    }
    EXPECT_EQ(get<ui::Panel>(u"Pane(0)").parent(), &form().tabs());
    explorer->AddTreeDesc(u"", u"Group", u"", u"A pane", u"", u"p");
    world.desktop.runPosted();
    click({u"A pane"});
    EXPECT_EQ(world.desktop.livePeers(), shown + 1) << "the page, not the pane's own box";
    EXPECT_EQ(get<ui::Control>(u"Pane(1)").peer(), nullptr);
    EXPECT_NE(get<ui::Control>(u"Pane(2)").peer(), nullptr);
}

TEST_F(ExplorerBuilding, ControlsStandBelowEachOther) {
    explorer->AddListView(u"p", u"Extension", u"Person", u"", u"");
    explorer->AddProperty(u"p", u"Person", u"");
    explorer->AddLabel(u"p", u"one", false, 8, u"");
    explorer->AddLabel(u"p", u"two", false, 8, u"");
    explorer->AddSeparator(u"p", u"");
    explorer->AddToolbar(u"p", u"");
    EXPECT_EQ(bounds(0).top, 0_tw);
    EXPECT_EQ(bounds(1).top, bounds(0).bottom()) << "no gap between data controls";
    EXPECT_EQ(bounds(2).top, bounds(1).bottom() + 150_tw);
    EXPECT_EQ(bounds(3).top, bounds(2).bottom() + 300_tw);
    EXPECT_EQ(bounds(4).top, bounds(3).bottom() + 300_tw);
    EXPECT_EQ(bounds(5).top, bounds(4).bottom() + 150_tw);
    EXPECT_EQ(page().CurrentHeight, bounds(5).bottom());
    for (std::size_t i = 0; i < 6; ++i) {
        EXPECT_EQ(bounds(i).left, 0_tw);
        EXPECT_EQ(bounds(i).width, page().Pane->bounds().width);
        EXPECT_GT(bounds(i).height, 0_tw);
        EXPECT_TRUE(control(i).Control->isVisible());
        EXPECT_EQ(control(i).Control->parent(), page().Pane);
    }
}

TEST_F(ExplorerBuilding, APropertyControlIsAsHighAsItNeeds) {
    for (int i = 0; i < 20; ++i)
        model.company->withProperty(std::u16string(u"P").append(automation::decimal(i)), u"String");
    explorer->AddProperty(u"p", u"Person", u"");
    explorer->AddProperty(u"p", u"Company", u"");
    const auto& first = control(0).as<controls::Property>();
    EXPECT_EQ(first.bounds().height, first.neededHeight());
    EXPECT_GT(bounds(1).height, bounds(0).height);
    EXPECT_EQ(first.metaObject(), Object(model.person));
}

TEST_F(ExplorerBuilding, ThePathGoesToThePropertyControl) {
    explorer->setPath(u"C:\\data");
    explorer->AddProperty(u"p", u"Person", u"");
    EXPECT_EQ(control(0).as<controls::Property>().path(), u"C:\\data");
}

TEST_F(ExplorerBuilding, ALabelShowsItsTextInItsFont) {
    explorer->AddLabel(u"p", u"Salt & pepper", true, 15, u"");
    Object(explorer.get()).call(u"AddLabel", u"p", u"plain");
    const auto& bold = control(0).as<ui::Label>();
    EXPECT_EQ(bold.font(), (ui::Font{u"", 15, true}));
    EXPECT_EQ(bold.text(), u"Salt && pepper") << "shown as it stands";
    const auto& plain = control(1).as<ui::Label>();
    EXPECT_EQ(plain.font(), (ui::Font{u"", 8, false}));
    EXPECT_GT(bold.bounds().height, plain.bounds().height);
}

TEST_F(ExplorerBuilding, AnExtensionIsListedWhenItIsDescribed) {
    explorer->AddListView(u"p", u"Extension", u"Person", u"", u"");
    auto& all = control(0).as<controls::ListView>();
    EXPECT_EQ(all.count(), 2U);
    EXPECT_EQ(all.list().columns().size(), 2U) << "name and age";
}

TEST_F(ExplorerBuilding, ListsOfLinksHaveTheirColumnsBeforeTheirRows) {
    for (const auto& [view, title] : {std::pair{u"Link-Source", u"source"}, std::pair{u"Link", u"target"},
                                      std::pair{u"Link-Target", u"target"}}) {
        explorer->AddListView(u"p", view, u"WorksFor", u"", u"");
        auto& links = page().Controls.back().as<controls::ListView>();
        EXPECT_EQ(links.count(), 0U);
        ASSERT_EQ(links.list().columns().size(), 2U);
        EXPECT_EQ(links.list().columns()[0].title, title);
        EXPECT_EQ(links.list().columns()[0].width, 1200_tw);
        EXPECT_EQ(links.list().columns()[1].title, u"Since");
        EXPECT_EQ(links.list().columns()[1].width, 1000_tw);
    }
}

TEST_F(ExplorerBuilding, OtherViewsWaitForTheHost) {
    model.script->restart();
    explorer->AddListView(u"p", u"Anything", u"no such type", u"", u"");
    EXPECT_EQ(model.script->calls(), 0);
    EXPECT_EQ(control(0).as<controls::ListView>().count(), 0U);
}

TEST_F(ExplorerBuilding, ARowBearsThePictureOfItsList) {
    form().smallImages()->set(u"job", ui::Picture{1, 1, {1, 2, 3, 255}});
    explorer->AddListView(u"p", u"Extension", u"Person", u"job", u"");
    auto& all = control(0).as<controls::ListView>();
    EXPECT_EQ(all.list().rowPicture(0), 0U);
}

// What is not there.
// ------------------------------------------------------------------------

TEST_F(ExplorerBuilding, UnknownPanesSubPanesAndParentsReachTheHost) {
    const auto error = [](const std::function<void()>& call) { return errorNumber(call); };
    constexpr std::int32_t kNotThere = 9;
    EXPECT_EQ(error([&] { explorer->AddTreeDesc(u"nobody", u"", u"", u"", u"", u""); }), kNotThere);
    EXPECT_EQ(error([&] { explorer->AddProperty(u"x", u"Person", u""); }), kNotThere);
    EXPECT_EQ(error([&] { explorer->AddSeparator(u"x", u""); }), kNotThere);
    EXPECT_EQ(error([&] { explorer->AddToolbar(u"x", u""); }), kNotThere);
    EXPECT_EQ(error([&] { explorer->AddListView(u"x", u"", u"", u"", u""); }), kNotThere);
    EXPECT_EQ(error([&] { explorer->AddSubPane(u"x", u"More"); }), kNotThere);
    EXPECT_EQ(error([&] { explorer->AddLabel(u"x", u"text", false, 8, u""); }), kNotThere);
    EXPECT_EQ(error([&] { explorer->AddCombo(u"x", u"Company", u"WorksFor", u"", u""); }), kNotThere);
    EXPECT_EQ(error([&] { explorer->AddProperty(u"p", u"Person", u"y"); }), kNotThere);
    EXPECT_EQ(error([&] { explorer->AddSeparator(u"p", u"y"); }), kNotThere);
    EXPECT_EQ(error([&] { explorer->AddToolbar(u"p", u"y"); }), kNotThere);
    EXPECT_EQ(error([&] { explorer->AddListView(u"p", u"", u"", u"", u"y"); }), kNotThere);
    EXPECT_EQ(error([&] { explorer->AddLabel(u"p", u"text", false, 8, u"y"); }), kNotThere);
    EXPECT_EQ(error([&] { explorer->AddCombo(u"p", u"Company", u"WorksFor", u"", u"y"); }), kNotThere);
    EXPECT_TRUE(world.boxes().empty());
    EXPECT_TRUE(page().Controls.empty());
    try {
        explorer->AddSeparator(u"x", u"");
        FAIL();
    } catch (const automation::Error& raised) {
        EXPECT_EQ(raised.description(), u"There is no pane 'x'");
    }
}

TEST_F(ExplorerBuilding, ASubPaneThatIsThereAlreadyReachesTheHost) {
    EXPECT_EQ(errorNumber([&] { explorer->AddSubPane(u"p", u"Main"); }), 457);
    EXPECT_EQ(pane(u"p").Panes().size(), 1U);
}

TEST_F(ExplorerBuilding, APaneThatIsThereAlreadyIsReported) {
    world.expectBox();
    explorer->AddPane(u"p", u"", u"", u"");
    EXPECT_EQ(lastPlace(), u"frmExplorer/AddPane");
    EXPECT_TRUE(world.boxes().back().starts_with(u"Error No: 457 "));
    EXPECT_EQ(pane(u"p").Caption, u"A pane");
    world.desktop.verify();
}

TEST_F(ExplorerBuilding, UnknownTypesReachTheHostAndTakeNoRoom) {
    EXPECT_EQ(errorNumber([&] { explorer->AddListView(u"p", u"Extension", u"Planet", u"", u""); }), 9);
    EXPECT_EQ(errorNumber([&] { explorer->AddListView(u"p", u"Link", u"Orbits", u"", u""); }), 9);
    EXPECT_EQ(errorNumber([&] { explorer->AddProperty(u"p", u"Planet", u""); }), 9);
    EXPECT_EQ(errorNumber([&] { explorer->AddCombo(u"p", u"Planet", u"Orbits", u"", u""); }), 9);
    EXPECT_TRUE(page().Controls.empty());
    EXPECT_EQ(page().CurrentHeight, 0_tw);
    for (const auto& child : page().Pane->children())
        EXPECT_FALSE(child->isVisible());
    EXPECT_TRUE(world.boxes().empty());
}

TEST_F(ExplorerBuilding, WithoutARepositoryTypesAreError91) {
    explorer->setRepository({});
    EXPECT_EQ(errorNumber([&] { explorer->AddProperty(u"p", u"Person", u""); }), 91);
}

}  // namespace
}  // namespace quorel::explorer
