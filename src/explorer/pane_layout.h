#pragma once

#include <cstdint>
#include <string_view>

#include "platform/ui/units.h"

namespace quorel::explorer {

/// What can be placed on a sub pane.
enum class ControlKind : std::uint8_t { ListView, Property, Combo, EditToolbar, Separator, Label };

/// The kind's name, as `ExplorerControl::typ` bears it.
[[nodiscard]] std::u16string_view typeName(ControlKind kind) noexcept;

/// Where the next control of a sub pane goes, in twips.
struct Placement {
    ui::Twips top;
    ui::Twips nextHeight;  ///< the sub pane's `CurrentHeight` afterwards
    friend constexpr bool operator==(const Placement&, const Placement&) = default;
};

/// Controls that show data touch each other; a separator or label has 150 twips above it and below.
[[nodiscard]] Placement placeControl(ControlKind kind, ui::Twips currentHeight, ui::Twips height) noexcept;

/// How high the last control of a sub pane is: down to 200 twips above the lower edge, never less than
/// nothing.
[[nodiscard]] ui::Twips stretchedHeight(ui::Twips scaleHeight, ui::Twips top) noexcept;

}  // namespace quorel::explorer
