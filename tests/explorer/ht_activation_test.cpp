#include "platform/ui/plain_controls.h"
#include "tests/explorer/ht_explorer_fixture.h"

namespace quorel::explorer {
namespace {

using namespace ui::literals;

struct HTActivation : HTExplorerTest {
    HTActivation() { open(); }
};

// The entries.
// ------------------------------------------------------------------------

TEST_F(HTActivation, BelowATypeAreItsNodesAndBelowANodeItsLinks) {
    expand({u"Person"});
    EXPECT_EQ(below(at({u"Person"})), (Texts{u"Anna", u"Ben"}));
    expand({u"Person", u"Anna"});
    EXPECT_EQ(below(at({u"Person", u"Anna"})), (Texts{u"WorksFor", u"Knows", u"Knows (incoming)"}))
        << "those that leave come first";
    EXPECT_EQ(tree().itemPicture(at({u"Person", u"Anna", u"Knows"})), u"Link");
    expand({u"Company"});
    expand({u"Company", u"Acme"});
    EXPECT_EQ(below(at({u"Company", u"Acme"})), Texts{u"WorksFor (incoming)"});
}

TEST_F(HTActivation, BelowALinkIsTheNodeAtItsOtherEnd) {
    reach({u"Person", u"Anna", u"WorksFor", u"a", u"Acme"});
    EXPECT_EQ(below(at({u"Person", u"Anna", u"WorksFor"})), Texts{u"a"});
    EXPECT_EQ(tree().itemPicture(at({u"Person", u"Anna", u"WorksFor", u"a"})), u"Link");
    EXPECT_EQ(below(at({u"Person", u"Anna", u"WorksFor", u"a"})), Texts{u"Acme"});
    EXPECT_EQ(tree().itemPicture(at({u"Person", u"Anna", u"WorksFor", u"a", u"Acme"})), u"Node");
    reach({u"Company", u"Acme", u"WorksFor (incoming)", u"a", u"Anna"});
    EXPECT_EQ(below(at({u"Company", u"Acme", u"WorksFor (incoming)", u"a"})), Texts{u"Anna"});
}

TEST_F(HTActivation, ACycleGoesOnAsDeepAsItIsOpened) {
    TreeItemId item = at({u"Person"});
    const auto descend = [&](std::u16string_view text) {
        if (!tree().isExpanded(item))
            world.user.clickItemButton(tree(), item);
        for (TreeItemId child = tree().firstChild(item); child != TreeItemId::None;
             child = tree().nextSibling(child))
            if (tree().itemText(child) == text) {
                item = child;
                return;
            }
        FAIL() << automation::toUtf8(text);
    };
    descend(u"Anna");
    for (int round = 0; round < 25; ++round)
        for (const char16_t* text : {u"Knows", u"b", u"Ben", u"Knows (incoming)", u"b", u"Anna"})
            descend(text);
    world.user.clickItem(tree(), item);
    EXPECT_EQ(property(1).repObject(), Object(model.anna));
    EXPECT_LT(tree().itemCount(), 600U) << "nothing is made that nobody opens";
}

TEST_F(HTActivation, NothingIsAskedBeforeAnEntryIsOpened) {
    EXPECT_EQ(model.script->calls(), 0);
    expand({u"Person"});
    for (const std::u16string& call : model.script->log)
        EXPECT_TRUE(!call.starts_with(u"id") || call.ends_with(u".name")) << automation::toUtf8(call);
    const TreeItemId anna = at({u"Person", u"Anna"});
    model.script->restart();
    world.user.clickItemButton(tree(), anna);
    EXPECT_EQ(model.script->calls(), 0) << "the meta links are known";
}

TEST_F(HTActivation, VeryManyNodesComeInPages) {
    for (int i = 0; i < 250; ++i)
        static_cast<void>(model.repository->addNode(model.company, u"c" + automation::decimal(i)));
    expand({u"Company"});
    const Texts listed = below(at({u"Company"}));
    EXPECT_EQ(listed.size(), controls::TreeView::kPage + 1);
    EXPECT_EQ(listed.back(), u"100 more of 252");
}

TEST_F(HTActivation, WhatHasNoNameShowsWhatItHasInstead) {
    model.annaAtAcme->shownName.clear();
    model.acme->shownName.clear();
    const auto nothing = model.repository->addNode(model.company, u"");
    reach({u"Company"});
    expand({u"Company"});
    EXPECT_EQ(below(at({u"Company"})), (Texts{u"Rome", u"Zenith", nothing->identifier}))
        << "a property, the name, the identifier";
    reach({u"Person", u"Anna", u"WorksFor", u"Rome"});
    EXPECT_EQ(below(at({u"Person", u"Anna", u"WorksFor"})), Texts{u"Rome"}) << "the other end of the link";
}

// What is shown.
// ------------------------------------------------------------------------

TEST_F(HTActivation, ATypeShowsAllItsNodes) {
    click({u"Person"});
    EXPECT_EQ(caption(), u"Person");
    EXPECT_EQ(visibleTabs(), Texts{u"Instances"});
    EXPECT_EQ(firstColumn(1), (Texts{u"Anna", u"Ben"}));
}

TEST_F(HTActivation, ANodeShowsItsProperties) {
    click({u"Person", u"Anna"});
    EXPECT_EQ(visibleTabs(), Texts{u"Properties"});
    EXPECT_EQ(property(1).repObject(), Object(model.anna));
    click({u"Person", u"Anna", u"WorksFor", u"a", u"Acme"});
    EXPECT_EQ(caption(), u"Company");
    EXPECT_EQ(property(2).repObject(), Object(model.acme));
    EXPECT_TRUE(isWhole(get<ui::PictureBox>(u"CaptionBox").pictureAt(96)));
}

TEST_F(HTActivation, ALinkShowsItsOwnPropertiesAndTheLinksOfBothItsEnds) {
    const auto carl = model.repository->addNode(model.person, u"Carl");
    static_cast<void>(model.repository->addLink(model.worksFor, u"c", carl, model.acme));
    static_cast<void>(model.repository->addLink(model.worksFor, u"d", model.anna, model.zenith));
    click({u"Person", u"Anna", u"WorksFor", u"a"});
    EXPECT_EQ(caption(), u"WorksFor");
    EXPECT_EQ(visibleTabs(), Texts{u"Links"});
    EXPECT_EQ(property(3).repObject(), Object(model.annaAtAcme)) << "the link itself, not its target";
    EXPECT_EQ(firstColumn(3), (Texts{u"Acme", u"Zenith"})) << "where its source works";
    EXPECT_EQ(firstColumn(4), (Texts{u"Anna", u"Carl"})) << "who works for its target";
}

TEST_F(HTActivation, AMetaLinkBelowANodeShowsTheLinksAtItsEnd) {
    click({u"Person", u"Anna", u"WorksFor"});
    EXPECT_EQ(property(3).repObject(), Object());
    EXPECT_EQ(list(3).count(), 1U);
    EXPECT_EQ(list(4).count(), 0U) << "no person is worked for";
    click({u"Company", u"Acme", u"WorksFor (incoming)"});
    EXPECT_EQ(list(3).count(), 0U);
    EXPECT_EQ(list(4).count(), 1U);
    click({u"Person", u"Ben", u"Knows"});
    EXPECT_EQ(list(5).count(), 0U) << "Ben knows nobody";
    EXPECT_EQ(list(6).count(), 1U) << "a person may be at both ends";
}

TEST_F(HTActivation, AListOfAllNodesStaysAsItWasMade) {
    static_cast<void>(model.repository->addNode(model.person, u"Carl"));
    click({u"Person"});
    EXPECT_EQ(list(1).count(), 2U);
}

// Lists of meta links without instances.
// ------------------------------------------------------------------------

TEST_F(HTActivation, AListOfLinksThatDoNotExistIsHidden) {
    click({u"Person", u"Anna", u"WorksFor"});
    EXPECT_TRUE(list(3).isVisible());
    model.worksFor->extension->items.clear();
    click({u"Person", u"Anna", u"Knows"});
    click({u"Person", u"Anna", u"WorksFor"});
    EXPECT_FALSE(list(3).isVisible());
    EXPECT_FALSE(list(4).isVisible());
    EXPECT_TRUE(property(3).isVisible());
    model.worksFor->extension->add(u"id5", model.annaAtAcme);
    click({u"Person", u"Anna", u"Knows"});
    click({u"Person", u"Anna", u"WorksFor"});
    EXPECT_TRUE(list(3).isVisible()) << "the first link is there again";
}

TEST_F(HTActivation, AHiddenLastListIsStillTheOneThatIsStretched) {
    model.worksFor->extension->items.clear();
    click({u"Person", u"Anna", u"WorksFor"});
    ASSERT_FALSE(list(4).isVisible());
    const subPane& page = form().Panes(u"2 WorksFor").Pane(u"Links");
    const ui::Size area = form().tabs().clientBounds().size();
    EXPECT_EQ(page.Pane->bounds().size(), area);
    const ui::Twips properties = property(3).neededHeight();
    EXPECT_EQ(property(3).bounds().height, properties) << "not the last one, though the last that is seen";
    EXPECT_EQ(list(3).bounds().top, properties);
    EXPECT_EQ(list(4).bounds().top, list(3).bounds().bottom());
    EXPECT_EQ(list(4).bounds().height, area.height - list(4).bounds().top - 200_tw);
    EXPECT_EQ(list(4).bounds().width, area.width);
}

TEST_F(HTActivation, ControlsAreLaidOutOnceMoreWhenTheyAreFilled) {
    click({u"Person", u"Anna", u"WorksFor"});
    const ui::Rect before = list(4).bounds();
    // Whoever moved it while it was filled.
    model.script->onCall = [this](const std::u16string& call) {
        if (call == u"WorksFor.Extension")
            list(4).setBounds({0_tw, list(4).bounds().top, 10_tw, 10_tw});
    };
    click({u"Person", u"Anna", u"Knows"});
    click({u"Person", u"Anna", u"WorksFor"});
    model.script->onCall = {};
    EXPECT_EQ(list(4).bounds(), before);
}

TEST_F(HTActivation, ResizeGivesEverySubPaneTheRoomInsideTheTabs) {
    for (const auto& page : form().Panes(u"2 Knows").Panes())
        page->Pane->setBounds({0_tw, 0_tw, 100_tw, 100_tw});
    form().Resize();
    for (const auto& page : form().Panes(u"2 Knows").Panes())
        EXPECT_EQ(page->Pane->bounds().size(), form().tabs().clientBounds().size());
    world.user.resize(form(), {12000_tw, 8000_tw});
    for (const auto& page : form().Panes(u"2 Knows").Panes())
        EXPECT_EQ(page->Pane->bounds().size(), form().tabs().clientBounds().size());
}

// Editing and finding.
// ------------------------------------------------------------------------

TEST_F(HTActivation, AChangedPropertyOfALinkIsWrittenWhenItIsLeft) {
    click({u"Person", u"Anna", u"WorksFor", u"a"});
    property(3).beginEdit(0);
    world.user.enterText(get<ui::TextBox>(u"Property1(3).Text"), u"2001");
    click({u"Person"});
    EXPECT_EQ(model.annaAtAcme->values[u"Since"].toInteger(), 2001);
    EXPECT_TRUE(world.boxes().empty());
}

TEST_F(HTActivation, ATextIsFoundInEachNodeOnce) {
    EXPECT_TRUE(hierarchy().find(u"anna"));
    EXPECT_EQ(tree().selected(), at({u"Person", u"Anna"}));
    EXPECT_EQ(caption(), u"Person");
    EXPECT_FALSE(hierarchy().find(u"anna")) << "below other nodes she is not looked for";
    EXPECT_TRUE(hierarchy().find(u"company"));
    EXPECT_EQ(tree().selected(), at({u"Company"}));
}

TEST_F(HTActivation, F5KeepsWhatIsOpenAlongACycle) {
    click({u"Person", u"Anna", u"Knows", u"b", u"Ben"});
    world.user.press(form(), {ui::Key::F5});
    EXPECT_EQ(tree().selected(), at({u"Person", u"Anna", u"Knows", u"b", u"Ben"}));
    EXPECT_EQ(property(1).repObject(), Object(model.ben));
}

}  // namespace
}  // namespace quorel::explorer
