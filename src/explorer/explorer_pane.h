#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "explorer/sub_pane.h"
#include "platform/automation/object.h"
#include "platform/controls/edit_toolbar.h"
#include "platform/controls/tree_entry.h"

namespace quorel::controls {
class Combo;
class ListView;
class Property;
}  // namespace quorel::controls

namespace quorel::explorer {

class ExplorerWindow;

/// A pane of an explorer: a stack of controls on one or several sub panes that show the object of a tree
/// entry. Built once, activated as often as wanted; nothing is taken away again. Owned by its window.
///
/// What fails is thrown, a caption that no sub pane bears as error 9; what the user does to its controls is
/// reported by the window.
class ExplorerPane {
  public:
    using Entry = std::shared_ptr<controls::TreeEntry>;

    ExplorerPane() = default;
    ExplorerPane(const ExplorerPane&) = delete;
    ExplorerPane& operator=(const ExplorerPane&) = delete;
    virtual ~ExplorerPane() = default;

    /// Makes the first sub pane, which is the default one.
    void Create(std::u16string_view paneKey, std::u16string_view paneIcon, std::u16string_view caption,
                ExplorerWindow& window, std::u16string_view defaultSubPane);

    std::u16string key;
    std::u16string icon;  ///< of its picture among the window's large ones
    std::u16string Caption;

    // Building. An empty sub pane is the default one.
    // --------------------------------------------------------------------
    /// Error 457 for a caption that is there already.
    subPane& AddSubPane(std::u16string_view caption);
    /// The views "Extension", "Link", "Link-Source" and "Link-Target" mean something.
    void AddListView(std::u16string_view view, std::u16string_view metaobject, std::u16string_view listIcon,
                     std::u16string_view subPaneCaption);
    void AddProperty(std::u16string_view metatype, std::u16string_view subPaneCaption);
    void AddCombo(std::u16string_view metaobject, std::u16string_view metaLink, std::u16string_view view,
                  std::u16string_view subPaneCaption);
    void AddToolbar(std::u16string_view subPaneCaption);
    void AddSeparator(std::u16string_view subPaneCaption);
    void AddLabel(std::u16string_view text, bool bold, std::int32_t size, std::u16string_view subPaneCaption);

    [[nodiscard]] subPane& Pane(std::u16string_view caption) const;
    [[nodiscard]] const std::vector<std::unique_ptr<subPane>>& Panes() const noexcept { return panes_; }
    [[nodiscard]] bool Active() const noexcept { return active_; }

    // Showing.
    // --------------------------------------------------------------------
    /// Shows the pane for the entry: its tabs, the default sub pane, caption and picture, and its data.
    void Activate(const Entry& entry);
    /// Writes what the user has changed and hides the pane. Nothing happens to one that is not active.
    void Deactivate();
    /// Shows that sub pane and hides the others.
    void ShowTab(std::u16string_view caption);
    /// Lays the controls out to the present size of their sub panes.
    virtual void Resize();

    /// Hides its sub panes, active or not, and drops their native windows.
    void hide();
    /// Writes what the user has changed.
    void commit();
    /// Reads everything that it shows anew.
    void refill();
    /// Lets go of every object of the repository, and hides.
    void release();

  protected:
    [[nodiscard]] ExplorerWindow& window() const noexcept { return *window_; }
    /// Shows the data of the entry in one control.
    virtual void fill(const ExplorerControl& control, const controls::TreeEntry& entry);
    /// Comes when all of them show it.
    virtual void filled() {}
    /// What `AddListView` and `AddProperty` do, for whoever has the type at hand; Nothing is looked up by its
    /// name.
    void addListOf(std::u16string_view view, std::u16string_view metaobject, automation::Object type,
                   std::u16string_view listIcon, std::u16string_view subPaneCaption);
    void addPropertyOf(std::u16string_view metatype, automation::Object type,
                       std::u16string_view subPaneCaption);
    void fillLinks(const ExplorerControl& control, const automation::Object& node);

  private:
    [[nodiscard]] subPane& target(std::u16string_view caption) const;
    /// Puts the control at the end of its sub pane and lets `initialise` make it what it is to be. One that
    /// cannot be made so is hidden and takes no room.
    template <class Initialise>
    void place(subPane& page, ExplorerControl control, ui::Twips height, Initialise&& initialise);
    void fillAll(const controls::TreeEntry& entry);
    void showTabs();
    void fillCombo(const ExplorerControl& control, const automation::Object& node);

    // What the user does to the controls (explorer_pane_editing.cpp).
    void connectList(subPane& page, controls::ListView& list);
    void connectCombo(controls::Combo& combo, const std::u16string& metaLink);
    void connectToolbar(subPane& page, controls::EditToolbar& toolbar);
    void replaceTarget(controls::Combo& combo, const std::u16string& metaLink,
                       const automation::Object& target);
    [[nodiscard]] const ExplorerControl* servedList(const subPane& page,
                                                    const controls::EditToolbar& toolbar) const;
    [[nodiscard]] controls::EditToolbar* toolbarOf(const subPane& page) const;
    void enableCommands(const subPane& page);
    void run(const ExplorerControl* list, controls::EditCommand command);
    void makeNew(const ExplorerControl* list);
    void makeNode(controls::ListView* list, const automation::Object& metaNode);
    void makeLink(const ExplorerControl& list);
    void deleteObject(const ExplorerControl* list);
    void editObject(const ExplorerControl* list);
    void dataChanged();

    ExplorerWindow* window_ = nullptr;
    ui::Panel* box_ = nullptr;  ///< the pane's own element: never shown, as large as every page
    std::vector<std::unique_ptr<subPane>> panes_;
    std::u16string defaultSubPane_;
    bool active_ = false;
    Entry entry_;
};

}  // namespace quorel::explorer
