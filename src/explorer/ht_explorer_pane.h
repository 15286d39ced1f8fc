#pragma once

#include <string_view>

#include "explorer/explorer_pane.h"

namespace quorel::explorer {

/// A pane of an explorer that follows the metamodel. Its properties are those of the very object that an
/// entry stands for, a link's too; its lists of links show what is at both ends. Nothing else on it is
/// filled.
class HTExplorerPane final : public ExplorerPane {
  public:
    /// As `AddProperty` and `AddListView` on the default sub pane, of a meta node or meta link and its name.
    void AddPropertyOf(const automation::Object& type, std::u16string_view name) {
        addPropertyOf(name, type, {});
    }
    void AddListOf(std::u16string_view view, const automation::Object& type, std::u16string_view name,
                   std::u16string_view listIcon) {
        addListOf(view, name, type, listIcon, {});
    }
    /// Gives its sub panes the room inside the tabs first.
    void Resize() override;

  protected:
    void fill(const ExplorerControl& control, const controls::TreeEntry& entry) override;
    void filled() override { Resize(); }

  private:
    void fillLinkList(const ExplorerControl& control, const controls::TreeEntry& entry);
};

}  // namespace quorel::explorer
