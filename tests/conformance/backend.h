#pragma once

// What the conformance suite needs of a backend: a desktop, and a user who acts on its windows from outside.
// The suite is compiled into one program per backend; each program defines `makeBackend`.

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ui/check_box.h"
#include "platform/ui/combo_box.h"
#include "platform/ui/control.h"
#include "platform/ui/desktop.h"
#include "platform/ui/drawing_area.h"
#include "platform/ui/form.h"
#include "platform/ui/keys.h"
#include "platform/ui/menu.h"
#include "platform/ui/plain_controls.h"
#include "platform/ui/progress_bar.h"
#include "platform/ui/scroll_panel.h"
#include "platform/ui/tab_strip.h"
#include "platform/ui/tree.h"
#include "platform/ui/virtual_list.h"

namespace quorel::conformance {

/// One desktop and its user. The actions travel as the platform's own input does (on Windows as messages to
/// the native windows), and return when everything they caused has been handled, posted tasks too. An action
/// on what a user could not act on fails by `std::runtime_error`. After an action the form may be gone: the
/// backend keeps no reference to controls beyond it.
class Backend {
  public:
    virtual ~Backend() = default;

    [[nodiscard]] virtual ui::Desktop& desktop() = 0;

    /// Runs what is pending: posted tasks and, where there are any, messages.
    virtual void settle() = 0;
    /// `actions` are performed by the user while the next modal show of a form runs, once it is visible and
    /// its loop is served. They must end the show.
    virtual void duringModal(std::function<void(ui::Form&)> actions) = 0;

    // What the user does.
    // --------------------------------------------------------------------
    /// A click with the left button in the middle of a button, a check box, a picture box or a text box; two
    /// of them fast.
    virtual void click(ui::Control& control) = 0;
    virtual void doubleClick(ui::Control& control) = 0;
    /// Replaces the whole text of a box by `text`, typed or pasted.
    virtual void enterText(ui::TextBox& box, std::u16string_view text) = 0;
    /// Drops the list of a combo box down and chooses.
    virtual void chooseItem(ui::ComboBox& box, std::size_t index) = 0;
    /// Types characters by their keys into what has the focus.
    virtual void typeKeys(ui::Form& form, std::u16string_view text) = 0;
    /// The mouse's own button for back or forward, over the control.
    virtual void navigate(ui::Control& control, ui::Navigation where) = 0;
    /// Files that are dragged from elsewhere; a form that takes none is what the user could not act on.
    virtual void drop(ui::Form& form, const std::vector<std::u16string>& files) = 0;
    /// In the next menu that the program pops up, which shows what is below `menu`, the user chooses the
    /// entry of that name; leaves it when the name is empty.
    virtual void duringMenu(ui::Form& form, const ui::MenuItem& menu, std::u16string_view entry) = 0;
    /// A key goes to the control that has the focus.
    virtual void press(ui::Form& form, ui::KeyChord chord) = 0;
    /// A click into a visible row; two of them fast; a click under the last row.
    virtual void clickRow(ui::VirtualList& list, std::size_t row) = 0;
    virtual void doubleClickRow(ui::VirtualList& list, std::size_t row) = 0;
    virtual void clickBelowRows(ui::VirtualList& list) = 0;
    virtual void clickCell(ui::VirtualList& list, ui::CellIndex cell) = 0;
    /// A click on the row's check box.
    virtual void clickBox(ui::VirtualList& list, std::size_t row) = 0;
    /// A click into the scroll bar, under its thumb.
    virtual void pageDown(ui::VirtualList& list) = 0;
    virtual void resizeColumn(ui::VirtualList& list, std::size_t column, ui::Twips width) = 0;
    virtual void clickColumn(ui::VirtualList& list, std::size_t column) = 0;
    /// Types characters into the list or tree that has the focus, to find something.
    virtual void typeToFind(ui::Control& control, std::u16string_view text) = 0;
    /// A click on an item that is shown; two of them fast; one on its button.
    virtual void clickItem(ui::Tree& tree, ui::TreeItemId item) = 0;
    virtual void doubleClickItem(ui::Tree& tree, ui::TreeItemId item) = 0;
    virtual void clickItemButton(ui::Tree& tree, ui::TreeItemId item) = 0;
    /// Right click on an item and a choice, by the entry's name.
    virtual void chooseContextMenu(ui::Tree& tree, ui::TreeItemId item, std::u16string_view entry) = 0;
    virtual void clickTab(ui::TabStrip& strip, std::size_t index) = 0;
    /// Moves the scroll bar's thumb.
    virtual void scrollTo(ui::ScrollPanel& panel, ui::Twips top) = 0;
    /// Chooses an entry of the form's menu bar by its name.
    virtual void chooseMenu(ui::Form& form, std::u16string_view entry) = 0;
    /// Opens the control's context menu and chooses an entry by its name.
    virtual void chooseContextMenu(ui::Control& control, std::u16string_view entry) = 0;
    virtual void closeBox(ui::Form& form) = 0;
    virtual void resize(ui::Form& form, ui::Size clientSize) = 0;
    virtual void dragSplitter(ui::Splitter& splitter, ui::Twips position) = 0;
    /// The mouse over a drawing, at a place in it.
    virtual void moveMouse(ui::DrawingArea& area, ui::Point at) = 0;
    virtual void pressMouse(ui::DrawingArea& area, ui::Point at,
                            ui::MouseButton button = ui::MouseButton::Left,
                            ui::Modifiers modifiers = ui::Modifiers::None) = 0;
    virtual void releaseMouse(ui::DrawingArea& area, ui::Point at,
                              ui::MouseButton button = ui::MouseButton::Left,
                              ui::Modifiers modifiers = ui::Modifiers::None) = 0;
    virtual void doubleClickAt(ui::DrawingArea& area, ui::Point at) = 0;
    virtual void turnWheel(ui::DrawingArea& area, ui::Point at, std::int32_t wheel,
                           ui::Modifiers modifiers = ui::Modifiers::None) = 0;
    virtual void leaveMouse(ui::DrawingArea& area) = 0;
    /// Something else takes the mouse.
    virtual void loseMouse(ui::DrawingArea& area) = 0;
    /// What has become dirty is painted.
    virtual void repaint(ui::DrawingArea& area) = 0;

    // What the user sees, read from the backend's own windows where it has any.
    // --------------------------------------------------------------------
    [[nodiscard]] virtual bool seesForm(const ui::Form& form) = 0;
    [[nodiscard]] virtual bool seesControl(const ui::Control& control) = 0;
    /// Seen, and by a mouse that points at its middle, too.
    [[nodiscard]] virtual bool seesOnTop(const ui::Control& control) = 0;
    /// What the mouse resting on the cell is told.
    [[nodiscard]] virtual std::u16string seenToolTip(ui::VirtualList& list, ui::CellIndex cell) = 0;
    /// The text that the native window holds: the control's by `ui::shownText`, marks of access keys and all.
    [[nodiscard]] virtual std::u16string seenText(const ui::Control& control) = 0;
    [[nodiscard]] virtual ui::CheckValue seenCheck(const ui::CheckBox& box) = 0;
    /// How much of the bar is filled, in hundredths.
    [[nodiscard]] virtual int seenProgress(const ui::ProgressBar& bar) = 0;
    [[nodiscard]] virtual std::u16string seenCell(ui::VirtualList& list, std::size_t row,
                                                  std::size_t column) = 0;
    [[nodiscard]] virtual bool seesChecked(ui::VirtualList& list, std::size_t row) = 0;
    [[nodiscard]] virtual std::size_t seenRowCount(ui::VirtualList& list) = 0;
    /// The key of the picture before a row, read by the place of its native picture; empty for none.
    [[nodiscard]] virtual std::u16string seenPicture(ui::VirtualList& list, std::size_t row) = 0;
    /// The items that a tree shows, two blanks before each for every one above it, then "- " for an open one,
    /// "+ " for one that can be opened, ". " for any other, its text, " [key]" of its picture, "!" when bold
    /// and "*" when selected.
    [[nodiscard]] virtual std::vector<std::u16string> seenItems(const ui::Tree& tree) = 0;
    /// The lines in view are painted.
    virtual void look(ui::Tree& tree) = 0;
    /// True if the item is inside the tree's window now.
    [[nodiscard]] virtual bool seesItem(const ui::Tree& tree, ui::TreeItemId item) = 0;
    /// The captions of a strip's tabs, with a "*" before that of the selected one.
    [[nodiscard]] virtual std::vector<std::u16string> seenTabs(const ui::TabStrip& strip) = 0;
    /// Where a control's upper edge is in what it stands in.
    [[nodiscard]] virtual ui::Twips seenTop(const ui::Control& control) = 0;
    /// How wide the picture is that the box shows, in the middle of it.
    [[nodiscard]] virtual ui::Twips seenPictureWidth(const ui::PictureBox& box) = 0;
    /// How high a line of the label's font is, in points.
    [[nodiscard]] virtual int seenPoints(const ui::Label& label) = 0;
    /// Live peers, of all forms.
    [[nodiscard]] virtual std::size_t peerCount() = 0;

    /// Throws when something went wrong where it could not be thrown, e.g. in what `duringModal` was given,
    /// or when that never came. Called at the end of every test.
    virtual void verify() = 0;
};

/// A fresh desktop, with no form of an earlier test left on it.
[[nodiscard]] std::unique_ptr<Backend> makeBackend();

}  // namespace quorel::conformance
