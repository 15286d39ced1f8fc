#include "diagram/box_finder.h"

#include <algorithm>
#include <string>
#include <tuple>

#include "platform/automation/text.h"

namespace quorel::diagram {

namespace {

using Length = std::int64_t;

/// A box as seen in a direction: `start` to `end` along it, `low` to `high` across.
struct Seen {
    Length start = 0, end = 0, low = 0, high = 0;
};

[[nodiscard]] Seen seen(const ui::Rect& place, Direction direction) noexcept {
    const Length left = place.left.value;
    const Length top = place.top.value;
    const Length right = left + place.width.value;
    const Length bottom = top + place.height.value;
    switch (direction) {
        case Direction::Left:
            return {-right, -left, top, bottom};
        case Direction::Right:
            return {left, right, top, bottom};
        case Direction::Up:
            return {-bottom, -top, left, right};
        case Direction::Down:
            break;
    }
    return {top, bottom, left, right};
}

constexpr Length kWeightAside = 3;

}  // namespace

std::optional<std::size_t> boxBeside(const std::vector<Box>& boxes, std::size_t from, Direction direction) {
    const Seen here = seen(boxes.at(from).place, direction);
    std::optional<std::size_t> best;
    std::tuple<Length, Length> bestWay;
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        const Seen there = seen(boxes[i].place, direction);
        if (i == from || there.start + there.end <= here.start + here.end)
            continue;
        const Length ahead = std::max<Length>(there.start - here.end, 0);
        const Length aside = std::max<Length>({there.low - here.high, here.low - there.high, 0});
        const Length slant = std::abs(there.low + there.high - here.low - here.high);
        const std::tuple way{ahead + aside * kWeightAside, slant};
        if (!best || way < bestWay) {
            best = i;
            bestWay = way;
        }
    }
    return best;
}

std::optional<std::size_t> boxNearest(const std::vector<Box>& boxes, ui::Point to) {
    std::optional<std::size_t> best;
    double shortest = 0;
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        const ui::Rect& place = boxes[i].place;
        const double dx = place.left.value + place.width.value / 2.0 - to.x.value;
        const double dy = place.top.value + place.height.value / 2.0 - to.y.value;
        const double way = dx * dx + dy * dy;
        if (!best || way < shortest) {
            best = i;
            shortest = way;
        }
    }
    return best;
}

std::u16string_view nameOf(const Box& box) noexcept {
    const std::u16string_view text = box.text;
    const std::size_t lineEnd = text.rfind(u'\n');
    return lineEnd == std::u16string_view::npos ? text : text.substr(lineEnd + 1);
}

std::vector<std::size_t> boxesWith(const DiagramModel& model, std::u16string_view text) {
    if (text.empty())
        return {};
    const std::u16string wanted = automation::foldCase(text);
    const auto has = [&wanted](std::u16string_view in) {
        return automation::foldCase(in).find(wanted) != std::u16string::npos;
    };
    std::vector<std::size_t> found, byProperty;
    for (std::size_t i = 0; i < model.boxes.size(); ++i) {
        const Box& box = model.boxes[i];
        if (has(nameOf(box)))
            found.push_back(i);
        else if (std::any_of(box.properties.begin(), box.properties.end(),
                             [&has](const PropertyLine& line) { return has(line.name); }))
            byProperty.push_back(i);
    }
    found.insert(found.end(), byProperty.begin(), byProperty.end());
    return found;
}

}  // namespace quorel::diagram
