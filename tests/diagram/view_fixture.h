#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "diagram/diagram_arrange.h"
#include "diagram/diagram_model.h"
#include "platform/automation/text.h"
#include "tests/support/test_world.h"

namespace quorel::diagram {

using namespace ui::literals;
using ui::Key;
using ui::KeyChord;
using ui::Modifiers;
using ui::Point;
using ui::Rect;

/// Boxes of 2000 by 1000 twips in a grid, `columns` of them side by side, 1000 twips apart; each is connected
/// to the one on its right and the one below. "B3" is the name of the fourth.
[[nodiscard]] inline std::shared_ptr<DiagramModel> gridOf(std::size_t boxes, std::size_t columns) {
    auto model = std::make_shared<DiagramModel>();
    const auto twips = [](std::size_t number) { return ui::Twips{static_cast<std::int32_t>(number)}; };
    for (std::size_t i = 0; i < boxes; ++i) {
        const std::u16string name = u"B" + automation::decimal(static_cast<std::int64_t>(i));
        Box box;
        box.key = name;
        box.text = u"<<MetaClass>> \r\n" + name;
        box.place = {twips(500 + i % columns * 3000), twips(500 + i / columns * 2000), 2000_tw, 1000_tw};
        box.properties = {{u"size" + name, u"Integer"}};
        model->addBox(std::move(box));
    }
    const auto connect = [&model](std::size_t from, std::size_t to) {
        Connection connection;
        connection.from = from;
        connection.to = to;
        model->addConnection(std::move(connection));
    };
    for (std::size_t i = 0; i < boxes; ++i) {
        if (i % columns + 1 < columns && i + 1 < boxes)
            connect(i, i + 1);
        if (i + columns < boxes)
            connect(i, i + columns);
    }
    connectStraight(*model, [](std::u16string_view line, const ui::Font&) {
        return ui::Size{100_tw * static_cast<std::int32_t>(line.size()), 200_tw};
    });
    return model;
}

[[nodiscard]] constexpr Point middleOf(const Rect& place) noexcept {
    return {place.left + place.width / 2, place.top + place.height / 2};
}

/// True if the point is on the edge of the box, up to a twip of rounding.
[[nodiscard]] inline bool touches(const Rect& box, Point at) {
    const auto near = [](ui::Twips a, ui::Twips b) { return a - b <= 1_tw && b - a <= 1_tw; };
    const bool inX = at.x >= box.left - 1_tw && at.x <= box.right() + 1_tw;
    const bool inY = at.y >= box.top - 1_tw && at.y <= box.bottom() + 1_tw;
    return (inX && (near(at.y, box.top) || near(at.y, box.bottom()))) ||
           (inY && (near(at.x, box.left) || near(at.x, box.right())));
}

}  // namespace quorel::diagram
