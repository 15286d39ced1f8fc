#include "frame/window_placement.h"

#include <algorithm>
#include <array>
#include <vector>

#include "platform/automation/number_text.h"
#include "platform/automation/text.h"
#include "platform/ui/desktop.h"

namespace quorel::frame {

namespace {

constexpr std::u16string_view kApplication = u"QuorelUtility";
/// No window is further out or larger; keeps sums of two measures within 32 bits.
constexpr double kLargest = 1'000'000;
constexpr std::int32_t kWhole = 10'000;

std::optional<std::int32_t> readNumber(shell::SettingsStore& settings, std::u16string_view window,
                                       std::u16string_view key) {
    const std::optional<std::u16string> text = settings.read(kApplication, window, key);
    const std::optional<double> number = text ? automation::parseNumber(*text) : std::nullopt;
    if (!number || !(*number >= -kLargest && *number <= kLargest))
        return std::nullopt;
    return static_cast<std::int32_t>(*number);
}

}  // namespace

std::optional<WindowPlacement> readWindowPlacement(shell::SettingsStore& settings, std::u16string_view window,
                                                   std::span<const KeptShare> shares) {
    const std::optional<std::int32_t> width = readNumber(settings, window, u"Width");
    const std::optional<std::int32_t> height = readNumber(settings, window, u"Height");
    if (!width || !height || *width <= 0 || *height <= 0)
        return std::nullopt;
    std::vector<std::int32_t> values;
    for (const KeptShare& share : shares) {
        const std::optional<std::int32_t> value = readNumber(settings, window, share.key);
        if (!value || *value < 0 || *value > kWhole)
            return std::nullopt;
        values.push_back(*value);
    }
    WindowPlacement placement;
    placement.size = {{*width}, {*height}};
    const std::optional<std::int32_t> left = readNumber(settings, window, u"Left");
    const std::optional<std::int32_t> top = readNumber(settings, window, u"Top");
    if (left && top)
        placement.position = {{*left}, {*top}};
    placement.maximized = readNumber(settings, window, u"Maximized").value_or(0) != 0;
    for (std::size_t i = 0; i < values.size(); ++i)
        *shares[i].value = values[i];
    return placement;
}

void writeWindowPlacement(shell::SettingsStore& settings, std::u16string_view window,
                          const WindowPlacement& placement, std::span<const KeptShare> shares) {
    const auto write = [&](std::u16string_view key, std::int32_t value) {
        settings.write(kApplication, window, key, automation::decimal(value));
    };
    write(u"Width", placement.size.width.value);
    write(u"Height", placement.size.height.value);
    for (const KeptShare& share : shares)
        write(share.key, *share.value);
    if (placement.position) {
        write(u"Left", placement.position->x.value);
        write(u"Top", placement.position->y.value);
    }
    write(u"Maximized", placement.maximized ? 1 : 0);
}

ui::Rect fitInto(const ui::Rect& workArea, ui::Rect window) noexcept {
    window.width = std::min(window.width, workArea.width);
    window.height = std::min(window.height, workArea.height);
    window.left = std::clamp(window.left, workArea.left, workArea.right() - window.width);
    window.top = std::clamp(window.top, workArea.top, workArea.bottom() - window.height);
    return window;
}

void place(ui::Form& window, const WindowPlacement& placement) {
    const ui::Rect workArea = window.desktop().workArea();
    const ui::Point position = placement.position.value_or(ui::Point{workArea.left, workArea.top});
    const ui::Rect fitted =
        fitInto(workArea, {position.x, position.y, placement.size.width, placement.size.height});
    if (placement.position)
        window.setPosition({fitted.left, fitted.top});
    window.setClientSize(fitted.size());
    window.setMaximized(placement.maximized);
}

WindowPlacement placementOf(const ui::Form& window, const WindowPlacement& former) {
    WindowPlacement placement = former;
    // A maximized window's size is the screen's.
    if (!window.isMaximized()) {
        placement.size = window.clientSize();
        if (window.hasPosition())
            placement.position = ui::Point{window.bounds().left, window.bounds().top};
    }
    placement.maximized = window.isMaximized();
    return placement;
}

}  // namespace quorel::frame
