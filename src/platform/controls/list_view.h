#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/automation/error.h"
#include "platform/automation/object.h"
#include "platform/controls/cell_cache.h"
#include "platform/controls/list_columns.h"
#include "platform/controls/row_store.h"
#include "platform/controls/row_view.h"
#include "platform/controls/sort_key.h"
#include "platform/ui/control.h"
#include "platform/ui/desktop.h"
#include "platform/ui/virtual_list.h"

namespace quorel::ui {
class Label;
class TextBox;
}  // namespace quorel::ui

namespace quorel::controls {

/// Whose name begins the rows of a list of links: that of the source, or of the target for both other modes.
/// The values are the mode's numbers.
enum class LinkMode : std::uint8_t { Source = 0, Link = 1, Target = 2 };

/// Which rows are checked: the owner keeps it.
class RowChecks {
  public:
    virtual ~RowChecks() = default;
    [[nodiscard]] virtual bool isChecked(const automation::Object& row) const = 0;
    virtual void setChecked(const automation::Object& row, bool checked) = 0;
};

/// A list whose rows are repository objects. A row costs its reference and a few bytes; a row object is asked
/// nothing until its row is seen, sorted, filtered or searched.
///
/// Made of plain controls: the list bears the name given, this container is "<name>.View", the filter box
/// "<name>.Filter" (hidden until Ctrl+F), the text beside it "<name>.Shown" ("n of m").
///
/// Typing and the filter look into the column that the list is sorted by, or into the name: one cell a row.
///
/// The user sorts by a click on a header (up, down, as filled), types to find, filters with Ctrl+F and ends
/// that with Esc, copies rows with their headers (Ctrl+C), and finds the same in the context menu.
///
/// Fills replace the rows and the columns and end sorting and filtering. They throw what the repository
/// throws; the rows read until then stay and can be used. The host may do anything while it is asked, even
/// empty, refill or destroy the list: what a fill that was overtaken has read is dropped.
class ListView : public ui::Panel, private ui::RowSource {
  public:
    ListView(std::u16string_view name, ui::Desktop& desktop);
    ~ListView() override;

    // Fills. Elements that are Nothing are left out; an element that is no object is error 13.
    // --------------------------------------------------------------------
    /// `repository.MetaNodes`; the column is the name.
    void fillWithMetaNodes(const automation::Object& repository, bool withColumns);
    /// `repository.MetaLinks`; the column is the name.
    void fillWithMetaLinks(const automation::Object& repository, bool withColumns);
    /// `metaNode.Extension`; the name, and with columns one for each of `metaNode.Properties`.
    void fillWithExtension(const automation::Object& metaNode, bool withColumns);
    /// `metaLink.Extension`; name, source and target (the names of the ends), and with columns one for each
    /// of `metaLink.Properties`.
    void fillWithLinks(const automation::Object& metaLink, bool withColumns);
    /// `metaNode.incoming` or `metaNode.outgoing`; with columns the column is the name, without them the
    /// columns that are there stay.
    void fillWithIncomingMetaLinks(const automation::Object& metaNode, bool withColumns);
    void fillWithOutgoingMetaLinks(const automation::Object& metaNode, bool withColumns);
    /// `node.Incoming_(metaLink.name)` or `node.Outgoing_(metaLink.name)`. The columns that are there stay;
    /// in front of them is the name of the node at the other end.
    void fillWithIncomingLinks(const automation::Object& node, const automation::Object& metaLink);
    void fillWithOutgoingLinks(const automation::Object& node, const automation::Object& metaLink);

    /// Makes the columns of a list of that meta link's links: the name of one end, then its properties. Rows
    /// come with `SetList_Outgoing`.
    void setMetaLink(const automation::Object& metaLink, LinkMode mode);
    /// The links that leave the node, or reach it when not `outgoing`; none for Nothing. The columns stay.
    void SetList_Outgoing(const automation::Object& node, const automation::Object& metaLink, bool outgoing);

    // Columns that the owner gives, for the fills that keep them (see `ListColumns`).
    // --------------------------------------------------------------------
    void addColumn(std::u16string_view caption, std::u16string_view key, ui::Twips width);
    void addPropertyColumn(std::u16string_view caption, std::u16string_view key, LinkEnd end,
                           ui::Twips width);

    /// Adds a row: at the end, or where the sorting puts it. While a filter is on, it is shown if it matches.
    void addObject(const automation::Object& object);
    /// Removes the row of the object (found as `setSelectedObject` finds it), if there is one.
    void removeObject(const automation::Object& object);
    /// Reads the row of the object (found as `setSelectedObject` finds it) anew when it is next seen. Its
    /// place in a sorted or filtered list stays.
    void refreshObject(const automation::Object& object);

    /// Drops the rows, the selection and the filter.
    void clearRows();
    /// Drops the columns and the sorting. Widths that the user gave come back with columns of the same name.
    void resetColumns();
    /// Both of them: no reference is held any more.
    void empty();

    /// The object of the selected row, empty when none is selected.
    [[nodiscard]] automation::Object selectedObject() const;
    /// Selects the row of the object, by identity, else by `Identifier` (of meta objects: `name`), and brings
    /// it into view; a filter that hides it ends. An empty reference, or an object that has no row, takes the
    /// selection away. Nobody has clicked: `onClick` does not come. Throws what the object throws when it is
    /// asked for its identifier; rows that cannot tell theirs are passed over.
    void setSelectedObject(const automation::Object& object);

    [[nodiscard]] std::size_t count() const noexcept { return rows_.size(); }
    /// The rows that the filter lets through; all of them when there is none.
    [[nodiscard]] std::size_t shownCount() const noexcept { return view_.size(); }

    /// The object at that place in the order of the rows, also of those that the filter hides.
    [[nodiscard]] automation::Object objectAt(std::size_t place) const;

    /// A check box before each row, which a click and, of the selected row, Space change; none for null.
    /// `checks` must outlive the list or be taken away. The user checks all or none of the rows that are
    /// shown by entries of the context menu, Ctrl+A and Ctrl+Shift+A.
    void setChecks(RowChecks* checks);
    static constexpr ui::KeyChord kCheckAll{ui::key('A'), ui::Modifiers::Control};
    static constexpr ui::KeyChord kCheckNone{ui::key('A'), ui::Modifiers::Control | ui::Modifiers::Shift};
    /// All rows that the filter lets through.
    void checkAll(bool checked);

    /// The picture before every row, by its key; none for "". `images` come in the size of lists.
    void setIcons(std::shared_ptr<ui::ImageList> images, std::u16string_view key);
    [[nodiscard]] const std::u16string& icon() const noexcept { return icon_; }

    /// The background of the rows.
    void setPaneColour(ui::Colour colour);

    ui::Event<> onClick;        ///< the user selected a row, by mouse or keyboard
    ui::Event<> onDoubleClick;  ///< also Enter on the selected row
    /// `selectedObject` may be another one now, whoever changed it. Comes before `onClick`.
    ui::Event<> onSelectionChanged;
    ui::Event<> onCheck;         ///< the user has checked rows, or no longer
    ui::Event<> onCountChanged;  ///< `count` or `shownCount` may be different now, whoever changed it
    /// A visible cell could not be read; it shows a mark. Comes once a fill, from the message loop.
    ui::Event<const automation::Error&> onCellError;

    /// The parts, for owners that add entries to the list's context menu or place their focus.
    [[nodiscard]] ui::VirtualList& list() noexcept { return *list_; }
    [[nodiscard]] ui::TextBox& filterBox() noexcept { return *filterBox_; }

    // What the context menu offers.
    // --------------------------------------------------------------------
    void copySelectedRow();
    void copyAllRows();
    void openFilter();
    void closeFilter();
    void sortBy(std::size_t column, ui::SortOrder order);

    /// Bytes held for the rows beside their references.
    [[nodiscard]] std::size_t bookkeepingBytes() const noexcept { return view_.bytes(); }

  private:
    struct FillRequest {
        RowKind kind;
        automation::Object owner;
        std::u16string_view collection;
        bool withProperties = false;
        bool keepsColumns = false;
        automation::Object along{};  ///< of the links of a node: their meta link
        LinkEnd farEnd = LinkEnd::Target;
    };
    /// Tells whether rows, columns or order were replaced since it was made.
    class Overtaken;

    // What the list shows.
    [[nodiscard]] std::size_t rowCount() const override { return view_.size(); }
    [[nodiscard]] std::u16string cellText(std::size_t viewRow, std::size_t column) override;
    void prepareRows(std::size_t first, std::size_t last) override;
    [[nodiscard]] std::u16string rowPicture(std::size_t /*viewRow*/) override { return icon_; }
    [[nodiscard]] bool isChecked(std::size_t viewRow) override;
    void boundsChanged() override;
    void cellFailed(const automation::Error& error);
    /// The whole text of a cell, "" when it cannot be read.
    [[nodiscard]] std::u16string textOf(const automation::Object& object, std::size_t column) const;
    void placeChildren();
    void showColumns();
    [[nodiscard]] ui::Twips widthOf(std::size_t column) const;

    // Filling and changing rows.
    void fill(const FillRequest& request);
    void prepareColumns(const FillRequest& request);
    void readRows(const FillRequest& request, std::uint64_t generation, RowStore& incoming);
    void readProperties(const automation::Object& metaObject, std::uint64_t generation);
    void enumerate(const automation::Object& collection, std::uint64_t generation, RowStore& incoming) const;
    void install(std::uint64_t generation, RowStore incoming);
    void dropRows();
    void dropColumns();
    void endSorting();
    [[nodiscard]] std::optional<std::size_t> selectedRow() const;
    [[nodiscard]] std::optional<std::size_t> rowOf(const automation::Object& object) const;
    [[nodiscard]] std::optional<std::size_t> rowWithKeyOf(const automation::Object& object) const;
    /// The view has changed: shows its rows with that row selected.
    void showRows(std::optional<std::size_t> selected);

    // Sorting, finding, filtering, copying.
    void setFilterColumn(std::size_t column);
    void clickedColumn(std::size_t column);
    [[nodiscard]] SortKey keyOf(const automation::Object& object, std::size_t column) const;
    [[nodiscard]] std::optional<std::vector<std::uint32_t>> sortedOrder(std::size_t column,
                                                                        ui::SortOrder order) const;
    [[nodiscard]] std::size_t sortedPosition(const automation::Object& object) const;
    void find(const std::u16string& text, std::size_t start, std::optional<std::size_t>& found) const;
    void filterChanged();
    [[nodiscard]] bool matches(const automation::Object& object, std::u16string_view folded) const;
    void toggleCheck(std::size_t viewRow);
    [[nodiscard]] bool keyForChecks(ui::KeyChord chord);
    void tellShown();
    void copyRows(std::size_t first, std::size_t last);
    void buildMenu();
    void prepareMenu();
    void keyInList(ui::KeyEvent& event);
    void keyInFilter(ui::KeyEvent& event);

    ui::Desktop& desktop_;
    ui::TextBox* filterBox_;
    ui::Label* shownLabel_;
    ui::VirtualList* list_;

    RowStore rows_;
    RowView view_;
    ListColumns columns_;
    RowChecks* checks_ = nullptr;
    CellCache cache_;
    std::map<std::u16string, ui::Twips> userWidths_;
    std::u16string filter_;  // folded
    std::u16string icon_;
    std::size_t sortColumn_ = 0;
    std::size_t filterColumn_ = 0;
    ui::SortOrder sortOrder_ = ui::SortOrder::None;
    std::uint64_t generation_ = 0;   // counts replacements of rows and columns
    std::uint64_t arrangement_ = 0;  // counts changes of rows, order and filter
    bool cellErrorReported_ = false;
    std::shared_ptr<const bool> alive_ = std::make_shared<const bool>(true);
};

}  // namespace quorel::controls
