#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace quorel::controls {

/// Which entries of a tree a description stands for, by its `typ`.
enum class EntryKind : std::uint8_t {
    Plain,      ///< any other `typ`: one entry with the caption
    Extension,  ///< "Extension": one for each node of the meta node `metatype`
    Links,      ///< "Links": one for each link of the meta link `metatype` that leaves the node above
    Folder,     ///< "Folder": one entry with the caption, which stands for the node above
    // No `typ` means these two: trees describe them themselves.
    LinksReaching,  ///< one for each link of the meta link `metatype` that reaches the node above
    FarNode         ///< the node at the other end of the link above
};

[[nodiscard]] EntryKind entryKindOf(std::u16string_view typ) noexcept;

/// What a host says of entries of a tree: each entry of a description has entries of those below it.
struct TreeDescription {
    std::u16string key;  ///< names it within its tree
    std::u16string typ, metatype, caption, icon, paneId;
    EntryKind kind = EntryKind::Plain;
    /// What is below its entries is not looked for: it stands elsewhere, too.
    bool endsSearch = false;
    std::vector<std::shared_ptr<TreeDescription>> below{};
};

}  // namespace quorel::controls
