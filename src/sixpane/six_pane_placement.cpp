#include "sixpane/six_pane_placement.h"

#include <algorithm>
#include <array>

#include "platform/automation/number_text.h"
#include "platform/automation/text.h"

namespace quorel::sixpane {

namespace {

constexpr std::u16string_view kApplication = u"QuorelUtility";
constexpr std::u16string_view kSection = u"frmSixPane";
/// No window is further out or larger; keeps sums of two measures within 32 bits.
constexpr double kLargest = 1'000'000;

/// One number of a placement and its key.
struct Entry {
    std::u16string_view key;
    std::int32_t* value;
};

/// The entries that are always there, in the order in which they are written.
std::array<Entry, 7> entriesOf(Placement& placement) {
    return {{{u"Width", &placement.size.width.value},
             {u"Height", &placement.size.height.value},
             {u"FirstColumn", placement.splits.columns.data()},
             {u"SecondColumn", &placement.splits.columns[1]},
             {u"SourceRow", placement.splits.rows.data()},
             {u"LinkRow", &placement.splits.rows[1]},
             {u"TargetRow", &placement.splits.rows[2]}}};
}

std::optional<std::int32_t> readNumber(shell::SettingsStore& settings, std::u16string_view key) {
    const std::optional<std::u16string> text = settings.read(kApplication, kSection, key);
    const std::optional<double> number = text ? automation::parseNumber(*text) : std::nullopt;
    if (!number || !(*number >= -kLargest && *number <= kLargest))
        return std::nullopt;
    return static_cast<std::int32_t>(*number);
}

bool makesSense(const Placement& placement) noexcept {
    const auto isShare = [](std::int32_t split) { return split >= 0 && split <= 10000; };
    return placement.size.width.value > 0 && placement.size.height.value > 0 &&
           std::all_of(placement.splits.columns.begin(), placement.splits.columns.end(), isShare) &&
           std::all_of(placement.splits.rows.begin(), placement.splits.rows.end(), isShare);
}

}  // namespace

std::optional<Placement> readPlacement(shell::SettingsStore& settings) {
    Placement placement;
    for (const Entry& entry : entriesOf(placement)) {
        const std::optional<std::int32_t> number = readNumber(settings, entry.key);
        if (!number)
            return std::nullopt;
        *entry.value = *number;
    }
    const std::optional<std::int32_t> left = readNumber(settings, u"Left");
    const std::optional<std::int32_t> top = readNumber(settings, u"Top");
    if (left && top)
        placement.position = {{*left}, {*top}};
    placement.maximized = readNumber(settings, u"Maximized").value_or(0) != 0;
    return makesSense(placement) ? std::optional(placement) : std::nullopt;
}

void writePlacement(shell::SettingsStore& settings, const Placement& placement) {
    Placement copy = placement;
    for (const Entry& entry : entriesOf(copy))
        settings.write(kApplication, kSection, entry.key, automation::decimal(*entry.value));
    if (placement.position) {
        settings.write(kApplication, kSection, u"Left", automation::decimal(placement.position->x.value));
        settings.write(kApplication, kSection, u"Top", automation::decimal(placement.position->y.value));
    }
    settings.write(kApplication, kSection, u"Maximized", placement.maximized ? u"1" : u"0");
}

ui::Rect fitInto(const ui::Rect& workArea, ui::Rect window) noexcept {
    window.width = std::min(window.width, workArea.width);
    window.height = std::min(window.height, workArea.height);
    window.left = std::clamp(window.left, workArea.left, workArea.right() - window.width);
    window.top = std::clamp(window.top, workArea.top, workArea.bottom() - window.height);
    return window;
}

}  // namespace quorel::sixpane
