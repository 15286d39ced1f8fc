#include "tests/platform/controls/list_view_fixture.h"
#include "tests/support/repository_double.h"

namespace quorel::controls::testing {
namespace {

using automation::make;
using automation::Ref;

/// Persons work for companies; the links have two properties.
class LinkListTest : public ListViewTest {
  protected:
    LinkListTest() {
        worksFor->withProperty(u"Since", u"Integer").withProperty(u"LinkName", u"String");
        annaAtAcme->values[u"Since"] = 1999;
        annaAtAcme->values[u"LinkName"] = u"a property like any other";
        script->restart();
    }
    ~LinkListTest() override {
        view.empty();
        repository->clear();
    }
    [[nodiscard]] std::vector<std::int32_t> widths() {
        std::vector<std::int32_t> all;
        for (const ui::Column& each : view.list().columns())
            all.push_back(each.width.value);
        return all;
    }

    quorel::testing::ScriptRef script = std::make_shared<quorel::testing::Script>();
    Ref<quorel::testing::RepositoryDouble> repository = make<quorel::testing::RepositoryDouble>(script);
    Ref<quorel::testing::MetaDouble> person = repository->addMetaNode(u"Person");
    Ref<quorel::testing::MetaDouble> company = repository->addMetaNode(u"Company");
    Ref<quorel::testing::MetaDouble> worksFor = repository->addMetaLink(u"WorksFor", person, company);
    Ref<quorel::testing::InstanceDouble> anna = repository->addNode(person, u"Anna");
    Ref<quorel::testing::InstanceDouble> acme = repository->addNode(company, u"Acme");
    Ref<quorel::testing::InstanceDouble> annaAtAcme = repository->addLink(worksFor, u"job", anna, acme);
};

TEST_F(LinkListTest, TheMetaLinkMakesTheColumns) {
    view.setMetaLink(worksFor, LinkMode::Source);
    EXPECT_EQ(titles(), (Texts{u"source", u"Since", u"LinkName"}));
    EXPECT_EQ(widths(), (std::vector<std::int32_t>{1200, 1000, 1000}));
    for (const LinkMode mode : {LinkMode::Link, LinkMode::Target}) {
        view.setMetaLink(worksFor, mode);
        EXPECT_EQ(titles(), (Texts{u"target", u"Since", u"LinkName"}));
    }
    EXPECT_EQ(view.count(), 0U);
}

TEST_F(LinkListTest, ListsTheLinksThatLeaveTheNode) {
    view.setMetaLink(worksFor, LinkMode::Target);
    view.SetList_Outgoing(anna, worksFor, true);
    EXPECT_EQ(look(), (Rows{{u"Acme", u"1999", u"a property like any other"}}));
    view.SetList_Outgoing(acme, worksFor, true);
    EXPECT_EQ(view.count(), 0U);
    EXPECT_EQ(titles().size(), 3U) << "the columns stay";
}

TEST_F(LinkListTest, ListsTheLinksThatReachTheNode) {
    view.setMetaLink(worksFor, LinkMode::Source);
    view.SetList_Outgoing(acme, worksFor, false);
    EXPECT_EQ(column(0), Texts{u"Anna"});
    EXPECT_EQ(view.list().columns()[0].width, ui::Twips{1200});
}

TEST_F(LinkListTest, NothingHasNoLinks) {
    view.setMetaLink(worksFor, LinkMode::Target);
    view.SetList_Outgoing(anna, worksFor, true);
    script->restart();
    view.SetList_Outgoing({}, worksFor, true);
    EXPECT_EQ(view.count(), 0U);
    EXPECT_EQ(script->calls(), 0);
}

TEST_F(LinkListTest, RowsAreNotAskedBeforeTheyAreSeen) {
    view.setMetaLink(worksFor, LinkMode::Target);
    view.SetList_Outgoing(anna, worksFor, true);
    for (const std::u16string& call : script->log)
        EXPECT_FALSE(call.starts_with(u"id3.")) << automation::toUtf8(call);
}

TEST_F(LinkListTest, AFailedFillLeavesWhatWasRead) {
    view.setMetaLink(worksFor, LinkMode::Target);
    script->restart();
    view.SetList_Outgoing(anna, worksFor, true);
    const int calls = script->calls();
    for (int failing = 1; failing <= calls; ++failing) {
        script->restart(failing);
        EXPECT_EQ(errorOf([&] { view.SetList_Outgoing(anna, worksFor, true); }), 1000);
        script->restart();
        view.SetList_Outgoing(anna, worksFor, true);
        EXPECT_EQ(view.count(), 1U);
    }
}

TEST_F(LinkListTest, TheHostMayEmptyTheListInsideEveryCall) {
    for (int call = 1;; ++call) {
        int calls = 0;
        script->onCall = [&](const std::u16string&) {
            if (++calls == call)
                view.empty();
        };
        view.setMetaLink(worksFor, LinkMode::Target);
        view.SetList_Outgoing(anna, worksFor, true);
        script->onCall = {};
        if (calls < call)
            break;
        ASSERT_LT(call, 100);
    }
    EXPECT_EQ(view.count(), 1U);
}

TEST_F(LinkListTest, EveryRowBearsTheIcon) {
    const auto images = std::make_shared<ui::ImageList>();
    images->set(u"job", ui::Picture{1, 1, {1, 2, 3, 255}});
    view.setMetaLink(worksFor, LinkMode::Target);
    view.SetList_Outgoing(anna, worksFor, true);
    EXPECT_EQ(view.list().rowPicture(0), std::nullopt);
    view.setIcons(images, u"job");
    EXPECT_EQ(view.list().rowPicture(0), 0U);
    view.setIcons(images, u"");
    EXPECT_EQ(view.list().rowPicture(0), std::nullopt);
}

}  // namespace
}  // namespace quorel::controls::testing
