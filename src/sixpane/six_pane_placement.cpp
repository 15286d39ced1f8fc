#include "sixpane/six_pane_placement.h"

#include <array>

namespace quorel::sixpane {

namespace {

constexpr std::u16string_view kWindow = u"frmSixPane";

std::array<frame::KeptShare, 5> sharesOf(Splits& splits) {
    return {{{u"FirstColumn", splits.columns.data()},
             {u"SecondColumn", &splits.columns[1]},
             {u"SourceRow", splits.rows.data()},
             {u"LinkRow", &splits.rows[1]},
             {u"TargetRow", &splits.rows[2]}}};
}

}  // namespace

std::optional<Placement> readPlacement(shell::SettingsStore& settings) {
    Placement placement;
    const auto window = frame::readWindowPlacement(settings, kWindow, sharesOf(placement.splits));
    if (!window)
        return std::nullopt;
    placement.window = *window;
    return placement;
}

void writePlacement(shell::SettingsStore& settings, const Placement& placement) {
    Splits splits = placement.splits;
    frame::writeWindowPlacement(settings, kWindow, placement.window, sharesOf(splits));
}

}  // namespace quorel::sixpane
