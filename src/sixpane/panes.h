#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "platform/ui/colour.h"

namespace quorel::sixpane {

/// The six lists, column by column, each type pane before the instance pane below it.
enum class Pane : std::size_t { SourceMetaNode, SourceNode, MetaLink, Link, TargetMetaNode, TargetNode };

inline constexpr std::size_t kPaneCount = 6;

/// What never changes about a pane. Each type pane is a darker shade of its instance pane's colour.
struct PaneTraits {
    Pane pane;
    std::u16string_view name;     ///< of the list control
    std::u16string_view caption;  ///< with its access key
    std::u16string_view counted;  ///< what the status line counts
    ui::Colour colour;
};

inline constexpr std::array<PaneTraits, kPaneCount> kPanes{{
    {Pane::SourceMetaNode, u"SourceMetaNode", u"&Source meta nodes", u"Source meta nodes", {210, 210, 255}},
    {Pane::SourceNode, u"SourceNode", u"S&ource nodes", u"Source nodes", {235, 235, 255}},
    {Pane::MetaLink, u"MetaLink", u"&Meta links", u"Meta links", {210, 255, 210}},
    {Pane::Link, u"Link", u"&Links", u"Links", {235, 255, 235}},
    {Pane::TargetMetaNode, u"TargetMetaNode", u"&Target meta nodes", u"Target meta nodes", {255, 255, 210}},
    {Pane::TargetNode, u"TargetNode", u"T&arget nodes", u"Target nodes", {255, 255, 235}},
}};

[[nodiscard]] constexpr std::size_t indexOf(Pane pane) noexcept {
    return static_cast<std::size_t>(pane);
}

/// The pane of the same kind at the other end of the links.
[[nodiscard]] constexpr Pane otherEnd(Pane pane) noexcept {
    const std::size_t index = indexOf(pane);
    return static_cast<Pane>(index % 2 + kPaneCount - 2 - (index - index % 2));
}

/// The type pane above an instance pane.
[[nodiscard]] constexpr Pane typesOf(Pane instances) noexcept {
    return static_cast<Pane>(indexOf(instances) - 1);
}

}  // namespace quorel::sixpane
