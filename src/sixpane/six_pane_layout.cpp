#include "sixpane/six_pane_layout.h"

#include <algorithm>

namespace quorel::sixpane {

namespace {

using ui::Rect;
using ui::Size;
using ui::Twips;
using namespace ui::literals;

constexpr Twips kPaneMargin = 90_tw;
constexpr Twips kSplitter = 75_tw;
constexpr Twips kCaptionPadding = 45_tw;
constexpr Twips kButtonPadding = 105_tw;
constexpr Twips kButtonGap = 30_tw;
constexpr Twips kStatusPadding = 120_tw;
constexpr Twips kLeastPaneWidth = 1500_tw;
constexpr Twips kLeastPaneHeight = 1260_tw;  // with its caption
constexpr std::int32_t kWhole = 10000;

/// The part of the window that the panes share.
struct Room {
    Twips width, height;  // without the splitters
};

Room roomFor(Size client, Twips lineHeight) noexcept {
    return {std::max(client.width - kPaneMargin * 2 - kSplitter * 2, 0_tw),
            std::max(client.height - kPaneMargin - kSplitter - (lineHeight + kStatusPadding), 0_tw)};
}

Twips share(Twips room, std::int32_t split) noexcept {
    return {static_cast<std::int32_t>(static_cast<std::int64_t>(room.value) * split / kWhole)};
}

std::int32_t splitOf(Twips length, Twips room) noexcept {
    // Rounded up, so that `share` gives back the length.
    const std::int64_t scaled = static_cast<std::int64_t>(length.value) * kWhole;
    return room.value > 0 ? static_cast<std::int32_t>((scaled + room.value - 1) / room.value) : 0;
}

/// A length between what the parts before and behind it need; where there is too little for all, equal
/// shares.
Twips bounded(Twips length, Twips room, Twips least, std::int32_t partsBefore,
              std::int32_t partsBehind) noexcept {
    const std::int32_t parts = partsBefore + partsBehind;
    if (room < least * parts)
        return room * partsBefore / parts;
    return std::clamp(length, least * partsBefore, room - least * partsBehind);
}

/// The right ends of the three columns within the room.
std::array<Twips, 3> columnEnds(Twips room, const Splits& splits) noexcept {
    const Twips first = bounded(share(room, splits.columns[0]), room, kLeastPaneWidth, 1, 2);
    Twips second = bounded(share(room, splits.columns[1]), room, kLeastPaneWidth, 2, 1);
    if (room >= kLeastPaneWidth * 3)
        second = std::max(second, first + kLeastPaneWidth);
    return {first, second, room};
}

Twips upperHeight(Twips room, std::int32_t split) noexcept {
    return bounded(share(room, split), room, kLeastPaneHeight, 1, 1);
}

void placePane(SixPaneLayout& layout, std::size_t pane, const Rect& area, Twips lineHeight) noexcept {
    const Twips caption = std::min(lineHeight + kCaptionPadding, area.height);
    layout.captions[pane] = {area.left, area.top, area.width, caption};
    layout.panes[pane] = {area.left, area.top + caption, area.width, area.height - caption};
}

/// An instance pane: its caption is high enough for the two square buttons at its right.
void placeInstances(SixPaneLayout& layout, std::size_t column, const Rect& area, Twips lineHeight) noexcept {
    const Twips side = std::min({lineHeight + kButtonPadding, area.height, area.width / 3});
    const Twips deleteLeft = area.left + area.width - side;
    const Twips newLeft = deleteLeft - kButtonGap - side;
    layout.commands[2 * column] = {newLeft, area.top, side, side};
    layout.commands[2 * column + 1] = {deleteLeft, area.top, side, side};
    const std::size_t pane = 2 * column + 1;
    const Twips caption = std::min(lineHeight + kCaptionPadding, side);
    layout.captions[pane] = {area.left, area.top + side - caption,
                             std::max(newLeft - kButtonGap - area.left, 0_tw), caption};
    layout.panes[pane] = {area.left, area.top + side, area.width, area.height - side};
}

}  // namespace

SixPaneLayout layoutSixPane(Size client, Twips lineHeight, const Splits& splits) noexcept {
    const Room room = roomFor(client, lineHeight);
    const std::array<Twips, 3> ends = columnEnds(room.width, splits);
    SixPaneLayout layout;
    Twips left = kPaneMargin;
    Twips previousEnd = 0_tw;
    for (std::size_t column = 0; column < 3; ++column) {
        const Twips width = ends[column] - previousEnd;
        const Twips upper = upperHeight(room.height, splits.rows[column]);
        const Twips splitterTop = kPaneMargin + upper;
        placePane(layout, 2 * column, {left, kPaneMargin, width, upper}, lineHeight);
        layout.rowSplitters[column] = {left, splitterTop, width, kSplitter};
        placeInstances(layout, column, {left, splitterTop + kSplitter, width, room.height - upper},
                       lineHeight);
        if (column < 2)
            layout.columnSplitters[column] = {left + width, kPaneMargin, kSplitter, room.height + kSplitter};
        left += width + kSplitter;
        previousEnd = ends[column];
    }
    const Twips statusHeight = lineHeight + kStatusPadding;
    layout.statusBar = {0_tw, std::max(client.height - statusHeight, 0_tw), client.width, statusHeight};
    return layout;
}

std::array<Twips, kPaneCount> sharePanels(Twips width, const std::array<Twips, kPaneCount>& wanted) noexcept {
    std::int64_t all = 0;
    for (const Twips each : wanted)
        all += each.value;
    std::array<Twips, kPaneCount> widths{};
    for (std::size_t i = 0; i < kPaneCount && all > 0; ++i)
        widths[i] = {static_cast<std::int32_t>(wanted[i].value * std::int64_t{width.value} / all)};
    return widths;
}

Size leastSixPaneSize(Twips lineHeight) noexcept {
    return {kLeastPaneWidth * 3 + kSplitter * 2 + kPaneMargin * 2,
            kLeastPaneHeight * 2 + kSplitter + kPaneMargin + lineHeight + kStatusPadding};
}

Splits withColumnSplit(const Splits& splits, std::size_t splitter, Twips left, Size client) noexcept {
    const Twips room = roomFor(client, 0_tw).width;
    Splits result = splits;
    const bool isFirst = splitter == 0;
    const Twips wanted = left - kPaneMargin - (isFirst ? 0_tw : kSplitter);
    const std::array<Twips, 3> ends = columnEnds(room, splits);
    Twips end = bounded(wanted, room, kLeastPaneWidth, isFirst ? 1 : 2, isFirst ? 2 : 1);
    // The other splitter does not move along.
    if (room >= kLeastPaneWidth * 3)
        end = isFirst ? std::min(end, ends[1] - kLeastPaneWidth) : std::max(end, ends[0] + kLeastPaneWidth);
    result.columns[splitter] = splitOf(end, room);
    return result;
}

Splits withRowSplit(const Splits& splits, std::size_t column, Twips top, Size client,
                    Twips lineHeight) noexcept {
    const Twips room = roomFor(client, lineHeight).height;
    Splits result = splits;
    result.rows[column] = splitOf(bounded(top - kPaneMargin, room, kLeastPaneHeight, 1, 1), room);
    return result;
}

}  // namespace quorel::sixpane
