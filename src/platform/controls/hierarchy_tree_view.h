#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/automation/value.h"
#include "platform/controls/list_columns.h"
#include "platform/controls/tree_view.h"

namespace quorel::controls {

/// The kinds of entries of a hierarchy, as their descriptions' `typ` names them: nodes, with the types over
/// them, and links, with the meta links over them.
inline constexpr std::u16string_view kNodeEntry = u"Node";
inline constexpr std::u16string_view kLinkEntry = u"Link";

/// What a hierarchy asks about an entry that stands for a node or a link.
enum class RequestCode : std::uint8_t {
    Text = 0,     ///< what it shows: a string
    Type = 1,     ///< the name of the node's meta node: a string
    Search = 2,   ///< whether the text `sought` is found in it: a boolean
    Identity = 3  ///< what it is known again by when everything is read anew: a string
};

/// One question. Whoever answers it sets `answer`; while that is empty the hierarchy helps itself with the
/// entry's name, static type and identifier.
struct DataRequest {
    RequestCode code;
    const TreeEntry& entry;
    std::u16string_view sought{};  ///< folded, as `automation::foldCase` does
    automation::Value answer{};
};

/// A tree that goes through a whole repository along its links: the types that were chosen for the top, below
/// a type its nodes, below a node its meta links, outgoing ones first, below a meta link the node's links
/// along it, and below a link the node at its other end, below which it goes on, as deep as somebody opens
/// it. What its entries show it asks by `onDataRequest`; what fails there is a failure to list.
///
/// It is looked for a text in types and nodes, each once: first those that show it, then those of which
/// `Search` says that they have it elsewhere.
class HierarchyTreeView final : public TreeView {
  public:
    using TreeView::TreeView;

    /// Forgets the types, too.
    void initialise() override;

    /// Whether nodes have their links below them, at first not: of link types that are added from then on.
    [[nodiscard]] bool followsLinks() const noexcept { return followsLinks_; }
    void setFollowsLinks(bool follows) noexcept { followsLinks_ = follows; }

    // The metamodel. Names are unique; a link type whose end is no type here is not followed from there.
    // --------------------------------------------------------------------
    /// Nodes of the type are shown by the pane `paneId`.
    void addNodeType(std::u16string_view name, std::u16string_view paneId);
    /// Links of the type, and what is over them below a node, are shown by the pane `paneId`.
    void addLinkType(std::u16string_view name, std::u16string_view source, std::u16string_view target,
                     std::u16string_view paneId);
    /// An entry at the top for a type that was added, shown by the pane `paneId`.
    void addTopLevel(std::u16string_view name, std::u16string_view paneId);

    /// The node whose links an entry of the kind "Link" shows at that end: of a link its own, of a meta link
    /// the node above where that is at that end, else Nothing. Throws what the repository throws.
    [[nodiscard]] static automation::Object linkEnd(const TreeEntry& entry, LinkEnd end);

    /// Asked while entries are listed or looked for.
    ui::Event<DataRequest&> onDataRequest;

  protected:
    [[nodiscard]] std::u16string askText(const TreeEntry& entry) override;
    [[nodiscard]] std::u16string askIdentifier(const TreeEntry& entry) override;
    [[nodiscard]] std::shared_ptr<const TreeDescription> askDescription(const TreeEntry& entry) override;
    [[nodiscard]] std::vector<TreeSearch::Match> matchesFor(const std::u16string& folded) override;

  private:
    /// Of the nodes of one type; below it their meta links.
    struct NodeType {
        std::shared_ptr<TreeDescription> nodes;
        std::size_t outgoing = 0;  ///< how many of the meta links below leave
    };

    [[nodiscard]] automation::Value ask(RequestCode code, const TreeEntry& entry,
                                        std::u16string_view sought = {}) const;
    [[nodiscard]] std::shared_ptr<TreeDescription> metaLink(std::u16string_view name,
                                                            std::u16string_view farType,
                                                            std::u16string_view paneId, EntryKind kind);

    std::map<std::u16string, NodeType, std::less<>> types_;
    bool followsLinks_ = false;
};

}  // namespace quorel::controls
