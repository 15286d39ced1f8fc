#include "diagram/box_finder.h"

#include <gtest/gtest.h>

#include <optional>
#include <random>

namespace quorel::diagram {
namespace {

using namespace ui::literals;
using Found = std::vector<std::size_t>;

[[nodiscard]] Box boxAt(std::int32_t left, std::int32_t top, std::u16string text = u"") {
    Box box;
    box.text = text;
    box.key = std::move(text);
    box.place = {{left}, {top}, 1000_tw, 500_tw};
    return box;
}

TEST(BoxBeside, IsTheNearestThatWay) {
    //   0   1   2
    //     3
    //   4       5
    const std::vector<Box> boxes{boxAt(0, 0),      boxAt(2000, 0), boxAt(4000, 0),
                                 boxAt(900, 1500), boxAt(0, 3000), boxAt(4000, 3000)};
    EXPECT_EQ(boxBeside(boxes, 0, Direction::Right), 1U);
    EXPECT_EQ(boxBeside(boxes, 1, Direction::Right), 2U);
    EXPECT_EQ(boxBeside(boxes, 2, Direction::Left), 1U);
    EXPECT_EQ(boxBeside(boxes, 0, Direction::Down), 3U);
    EXPECT_EQ(boxBeside(boxes, 3, Direction::Down), 4U);
    EXPECT_EQ(boxBeside(boxes, 2, Direction::Down), 5U);
    EXPECT_EQ(boxBeside(boxes, 5, Direction::Up), 2U);
    EXPECT_EQ(boxBeside(boxes, 0, Direction::Left), std::nullopt);
    EXPECT_EQ(boxBeside(boxes, 0, Direction::Up), std::nullopt);
    EXPECT_EQ(boxBeside(boxes, 5, Direction::Right), std::nullopt);
}

TEST(BoxBeside, PrefersTheNextRowToOneStraightBelowThatIsFar) {
    const std::vector<Box> boxes{boxAt(0, 0), boxAt(1300, 1400), boxAt(0, 4000)};
    EXPECT_EQ(boxBeside(boxes, 0, Direction::Down), 1U);
}

TEST(BoxBeside, PrefersOneStraightAheadToOneThatIsNearerButAside) {
    const std::vector<Box> boxes{boxAt(0, 0), boxAt(1600, 1000), boxAt(0, 2500)};
    EXPECT_EQ(boxBeside(boxes, 0, Direction::Down), 2U);
}

TEST(BoxBeside, OfTwoAsNearIsTheStraighterThenTheFirst) {
    const std::vector<Box> boxes{boxAt(0, 0), boxAt(900, 1000), boxAt(100, 1000), boxAt(-100, 1000)};
    EXPECT_EQ(boxBeside(boxes, 0, Direction::Down), 2U);
}

TEST(BoxBeside, BoxesOnOnePlaceAreBesideNothing) {
    const std::vector<Box> boxes{boxAt(0, 0), boxAt(0, 0)};
    for (const Direction each : {Direction::Left, Direction::Right, Direction::Up, Direction::Down})
        EXPECT_EQ(boxBeside(boxes, 0, each), std::nullopt);
}

TEST(BoxBeside, EveryWayEnds) {
    std::mt19937 random(7);
    for (int round = 0; round < 50; ++round) {
        std::vector<Box> boxes;
        for (int i = 0; i < 30; ++i)
            boxes.push_back(boxAt(static_cast<std::int32_t>(random() % 20000),
                                  static_cast<std::int32_t>(random() % 20000)));
        for (const Direction each : {Direction::Left, Direction::Right, Direction::Up, Direction::Down}) {
            std::size_t steps = 0;
            for (std::optional<std::size_t> at = 0; at; at = boxBeside(boxes, *at, each))
                ASSERT_LE(++steps, boxes.size());
        }
    }
}

TEST(BoxNearest, IsTheOneWithTheNearestMiddle) {
    const std::vector<Box> boxes{boxAt(0, 0), boxAt(2000, 0), boxAt(2000, 2000)};
    EXPECT_EQ(boxNearest(boxes, {1400_tw, 250_tw}), 0U);
    EXPECT_EQ(boxNearest(boxes, {1600_tw, 250_tw}), 1U);
    EXPECT_EQ(boxNearest(boxes, {9000_tw, 9000_tw}), 2U);
    EXPECT_EQ(boxNearest({}, {0_tw, 0_tw}), std::nullopt);
}

TEST(NameOf, IsTheLastLine) {
    EXPECT_EQ(nameOf(boxAt(0, 0, u"<<MetaClass>> \r\nPerson")), u"Person");
    EXPECT_EQ(nameOf(boxAt(0, 0, u"Person")), u"Person");
    EXPECT_EQ(nameOf(boxAt(0, 0, u"a\r\n")), u"");
}

TEST(BoxesWith, NamesComeBeforePropertiesWhateverTheCase) {
    DiagramModel model;
    Box with = boxAt(0, 0, u"<<MetaClass>> \r\nOrder");
    with.properties = {{u"personName", u"String"}, {u"PersonAge", u"Integer"}};
    model.addBox(with);
    model.addBox(boxAt(0, 0, u"<<MetaClass>> \r\nPERSON"));
    model.addBox(boxAt(0, 0, u"<<MetaClass>> \r\nAddress"));
    model.addBox(boxAt(0, 0, u"<<MetaClass>> \r\nContactPerson"));
    EXPECT_EQ(boxesWith(model, u"person"), (Found{1, 3, 0}));
    EXPECT_EQ(boxesWith(model, u"DRES"), (Found{2}));
    // What all have over their names tells nothing, and types are no names.
    EXPECT_EQ(boxesWith(model, u"MetaClass"), Found{});
    EXPECT_EQ(boxesWith(model, u"Integer"), Found{});
    EXPECT_EQ(boxesWith(model, u""), Found{});
}

}  // namespace
}  // namespace quorel::diagram
