#include "matrix/visited_sources.h"

#include <gtest/gtest.h>

#include "tests/support/repository_double.h"

namespace quorel::matrix {
namespace {

using automation::make;
using automation::Object;

struct VisitedSourcesTest : ::testing::Test {
    testing::ScriptRef script = std::make_shared<testing::Script>();
    std::vector<Object> nodes;
    VisitedSources visited;

    VisitedSourcesTest() {
        for (int i = 0; i < 5; ++i)
            nodes.emplace_back(make<testing::CollectionDouble>(script, u"node"));
    }
    void visit(std::initializer_list<std::size_t> all) {
        for (const std::size_t each : all)
            visited.visit(nodes[each]);
    }
};

TEST_F(VisitedSourcesTest, NothingVisitedIsNowhereToGo) {
    EXPECT_FALSE(visited.canGoBack());
    EXPECT_FALSE(visited.canGoForward());
    EXPECT_EQ(visited.goBack(), Object());
    EXPECT_EQ(visited.goForward(), Object());
    visit({0});
    EXPECT_FALSE(visited.canGoBack());
}

TEST_F(VisitedSourcesTest, GoesBackAndForwardInOrder) {
    visit({0, 1, 2});
    EXPECT_EQ(visited.goBack(), nodes[1]);
    EXPECT_EQ(visited.goBack(), nodes[0]);
    EXPECT_FALSE(visited.canGoBack());
    EXPECT_EQ(visited.goBack(), Object());
    EXPECT_EQ(visited.goForward(), nodes[1]);
    EXPECT_EQ(visited.goForward(), nodes[2]);
    EXPECT_FALSE(visited.canGoForward());
}

TEST_F(VisitedSourcesTest, ANewNodeForgetsWhatWasGoneBackFrom) {
    visit({0, 1, 2});
    static_cast<void>(visited.goBack());
    visit({3});
    EXPECT_FALSE(visited.canGoForward());
    EXPECT_EQ(visited.goBack(), nodes[1]);
    EXPECT_EQ(visited.goForward(), nodes[3]);
}

TEST_F(VisitedSourcesTest, TheSameNodeAgainIsNoVisit) {
    visit({0, 1, 1, 1});
    EXPECT_EQ(visited.goBack(), nodes[0]);
    visit({0});
    EXPECT_TRUE(visited.canGoForward()) << "nothing was forgotten";
    visit({1, 0, 1});
    EXPECT_EQ(visited.goBack(), nodes[0]);
    EXPECT_EQ(visited.goBack(), nodes[1]) << "a node that comes again later is a visit";
}

TEST_F(VisitedSourcesTest, NothingIsNoVisit) {
    visited.visit(Object());
    visit({0});
    visited.visit(Object());
    EXPECT_FALSE(visited.canGoBack());
}

TEST_F(VisitedSourcesTest, TheOldestAreForgottenWhenThereAreTooMany) {
    for (std::size_t i = 0; i < VisitedSources::kMost + 50; ++i)
        visited.visit(nodes[i % nodes.size()]);
    std::size_t back = 0;
    while (visited.canGoBack()) {
        static_cast<void>(visited.goBack());
        ++back;
    }
    EXPECT_EQ(back, VisitedSources::kMost - 1);
}

TEST_F(VisitedSourcesTest, ClearLetsGoOfTheNodes) {
    const std::int64_t before = automation::NativeObject::liveCount();
    visited.visit(make<testing::CollectionDouble>(script, u"mine"));
    visit({0});
    EXPECT_EQ(automation::NativeObject::liveCount(), before + 1);
    visited.clear();
    EXPECT_EQ(automation::NativeObject::liveCount(), before);
    EXPECT_FALSE(visited.canGoBack());
    EXPECT_FALSE(visited.canGoForward());
}

TEST_F(VisitedSourcesTest, NoMemberOfANodeIsCalled) {
    visit({0, 1, 0, 2});
    static_cast<void>(visited.goBack());
    static_cast<void>(visited.goForward());
    EXPECT_TRUE(script->log.empty());
}

/// Its end comes back to the list that let go of it.
class Returning final : public automation::NativeObject {
  public:
    explicit Returning(VisitedSources& visited) : visited_(visited) {}
    ~Returning() override { visited_.clear(); }
    [[nodiscard]] const automation::ClassTable& classTable() const override {
        static const automation::ClassTable table = automation::ClassTable::of<Returning>(u"Returning");
        return table;
    }

  private:
    VisitedSources& visited_;
};

TEST_F(VisitedSourcesTest, AnObjectMayComeBackWhenItIsLetGo) {
    visit({0});
    visited.visit(make<Returning>(visited));
    static_cast<void>(visited.goBack());
    visit({1});
    EXPECT_FALSE(visited.canGoBack()) << "the end of the object cleared the list";
    visited.visit(make<Returning>(visited));
    visited.clear();
    EXPECT_FALSE(visited.canGoBack());
}

}  // namespace
}  // namespace quorel::matrix
