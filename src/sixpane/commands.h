#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "sixpane/panes.h"

namespace quorel::sixpane {

/// What can be done to the instances of the panes, column by column.
enum class Command : std::size_t {
    NewSourceNode,
    DeleteSourceNode,
    NewLink,
    DeleteLink,
    NewTargetNode,
    DeleteTargetNode
};

inline constexpr std::size_t kCommandCount = 6;

enum class Deed : bool { Make, Delete };

/// What never changes about a command. The button bears the name; so does the entry of the pane's context
/// menu.
struct CommandTraits {
    Command command;
    Deed deed;
    Pane pane;  ///< beside which its button is, and in which its key works
    std::u16string_view name;
    std::u16string_view text;     ///< of the button, for those who cannot see the picture
    std::u16string_view caption;  ///< in the context menu
};

inline constexpr std::array<CommandTraits, kCommandCount> kCommands{{
    {Command::NewSourceNode, Deed::Make, Pane::SourceNode, u"NewSourceNode", u"New source node",
     u"&New node\u2026"},
    {Command::DeleteSourceNode, Deed::Delete, Pane::SourceNode, u"DeleteSourceNode", u"Delete source node",
     u"&Delete node"},
    {Command::NewLink, Deed::Make, Pane::Link, u"NewLink", u"New link", u"&New link\u2026"},
    {Command::DeleteLink, Deed::Delete, Pane::Link, u"DeleteLink", u"Delete link", u"&Delete link"},
    {Command::NewTargetNode, Deed::Make, Pane::TargetNode, u"NewTargetNode", u"New target node",
     u"&New node\u2026"},
    {Command::DeleteTargetNode, Deed::Delete, Pane::TargetNode, u"DeleteTargetNode", u"Delete target node",
     u"&Delete node"},
}};

[[nodiscard]] constexpr std::size_t indexOf(Command command) noexcept {
    return static_cast<std::size_t>(command);
}

inline constexpr std::size_t kDynamicCount = 6;

/// The entries of the menu array `Dynamic`, in the order of their indexes.
struct DynamicTraits {
    Deed deed;
    Pane pane;  ///< the one that the entry serves
    std::u16string_view name;
    std::u16string_view caption;      ///< in the menu bar
    std::u16string_view paneCaption;  ///< in the pane's context menu
};

inline constexpr std::array<DynamicTraits, kDynamicCount> kDynamic{{
    {Deed::Make, Pane::SourceMetaNode, u"Dynamic(0)", u"New &Source Meta Class\u2026",
     u"&New meta class\u2026"},
    {Deed::Delete, Pane::SourceMetaNode, u"Dynamic(1)", u"Delete S&ource Meta Class", u"&Delete meta class"},
    {Deed::Make, Pane::MetaLink, u"Dynamic(2)", u"New Meta &Association\u2026",
     u"&New meta association\u2026"},
    {Deed::Delete, Pane::MetaLink, u"Dynamic(3)", u"Delete Meta Asso&ciation", u"&Delete meta association"},
    {Deed::Make, Pane::TargetMetaNode, u"Dynamic(4)", u"New &Target Meta Class\u2026",
     u"&New meta class\u2026"},
    {Deed::Delete, Pane::TargetMetaNode, u"Dynamic(5)", u"Delete Ta&rget Meta Class", u"&Delete meta class"},
}};

}  // namespace quorel::sixpane
