#pragma once

#include <cstddef>
#include <initializer_list>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "platform/headless/headless_desktop.h"
#include "platform/headless/recording_canvas.h"
#include "platform/ui/combo_box.h"
#include "platform/ui/control.h"
#include "platform/ui/drawing_area.h"
#include "platform/ui/keys.h"
#include "platform/ui/menu.h"
#include "platform/ui/plain_controls.h"
#include "platform/ui/scroll_panel.h"
#include "platform/ui/tab_strip.h"
#include "platform/ui/tree.h"
#include "platform/ui/type_ahead.h"
#include "platform/ui/virtual_list.h"

namespace quorel::headless {

/// The user was asked for what no user can do: act on something invisible, disabled or behind a modal window.
class CannotDo : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// Finds a control by name and kind. Throws `CannotDo` when the form has none.
template <class T>
[[nodiscard]] T& get(const ui::Container& container, std::u16string_view name);

/// A user with mouse and keyboard. Every action ends with the posted tasks run, and throws `CannotDo` when it
/// could not be performed. The form stays alive during the action whatever its handlers do.
class User {
  public:
    explicit User(HeadlessDesktop& desktop) : desktop_(desktop) {}

    // Mouse
    // --------------------------------------------------------------------
    void click(ui::Control& control);
    void click(ui::Form& form, std::u16string_view control);
    void selectRow(ui::VirtualList& list, std::size_t row);
    void doubleClickRow(ui::VirtualList& list, std::size_t row);
    /// Selects the row, as a click anywhere in it does, and reports the cell.
    void clickCell(ui::VirtualList& list, ui::CellIndex cell);
    /// Turns the wheel or moves the scroll bar until that row is the first, as far as it goes.
    void scrollTo(ui::VirtualList& list, std::size_t topRow);
    void scrollTo(ui::Tree& tree, std::size_t topLine);
    void clickBelowRows(ui::VirtualList& list);
    /// A click on the row's check box.
    void clickBox(ui::VirtualList& list, std::size_t row);
    void clickColumn(ui::VirtualList& list, std::size_t column);
    void resizeColumn(ui::VirtualList& list, std::size_t column, ui::Twips width);
    /// Right click (on the row) and a choice, by the name of the entry.
    void chooseContextMenu(ui::Control& control, std::u16string_view entry);
    void chooseContextMenu(ui::VirtualList& list, std::size_t row, std::u16string_view entry);
    /// A click on an item that is shown; two of them fast, which also open or close it; on its button.
    void clickItem(ui::Tree& tree, ui::TreeItemId item);
    void doubleClickItem(ui::Tree& tree, ui::TreeItemId item);
    void clickItemButton(ui::Tree& tree, ui::TreeItemId item);
    /// Right click, which selects the item, and a choice.
    void chooseContextMenu(ui::Tree& tree, ui::TreeItemId item, std::u16string_view entry);
    void clickTab(ui::TabStrip& strip, std::size_t index);
    /// Turns the wheel or moves the scroll bar.
    void scrollTo(ui::ScrollPanel& panel, ui::Twips top);
    /// An entry of the menu bar, by its name.
    void chooseMenu(ui::Form& form, std::u16string_view entry);
    void closeBox(ui::Form& form);
    void resize(ui::Form& form, ui::Size clientSize);
    /// Drops the list down and chooses.
    void choose(ui::ComboBox& box, std::size_t index);
    /// The mouse buttons made for it.
    void navigate(ui::Form& form, ui::Navigation where);
    /// Files or folders, dragged from elsewhere.
    void drop(ui::Form& form, const std::vector<std::u16string>& files);
    void dragSplitter(ui::Splitter& splitter, ui::Twips position);
    /// Over a drawing, at a place in it. A button that is down takes the mouse out of it, too.
    void moveMouse(ui::DrawingArea& area, ui::Point at, ui::Modifiers modifiers = ui::Modifiers::None);
    void pressMouse(ui::DrawingArea& area, ui::Point at, ui::MouseButton button = ui::MouseButton::Left,
                    ui::Modifiers modifiers = ui::Modifiers::None);
    void releaseMouse(ui::DrawingArea& area, ui::Point at, ui::Modifiers modifiers = ui::Modifiers::None);
    void clickAt(ui::DrawingArea& area, ui::Point at, ui::MouseButton button = ui::MouseButton::Left,
                 ui::Modifiers modifiers = ui::Modifiers::None);
    void doubleClickAt(ui::DrawingArea& area, ui::Point at);
    /// In two moves.
    void drag(ui::DrawingArea& area, ui::Point from, ui::Point to,
              ui::MouseButton button = ui::MouseButton::Left);
    /// 120 a notch, upwards.
    void turnWheel(ui::DrawingArea& area, ui::Point at, std::int32_t wheel,
                   ui::Modifiers modifiers = ui::Modifiers::None);
    void leaveMouse(ui::DrawingArea& area);
    /// Something else takes the mouse while a button is down.
    void loseMouse(ui::DrawingArea& area);

    // Keyboard
    // --------------------------------------------------------------------
    /// A key for whatever has the focus: first menu shortcuts and `onKeyDown`, then the control's own keys,
    /// then the dialog keyboard (Tab, Enter, Esc, access keys).
    void press(ui::Form& form, ui::KeyChord chord);
    /// Types into whatever has the focus, character by character. In a list it types to find.
    void type(ui::Form& form, std::u16string_view text);
    /// Goes into the box and replaces its text by one paste.
    void enterText(ui::TextBox& box, std::u16string_view text);
    void enterText(ui::ComboBox& box, std::u16string_view text);

    // Eyes
    // --------------------------------------------------------------------
    /// Looks at rows as a repaint does: every cell of them once, told to the source beforehand.
    std::vector<std::vector<std::u16string>> look(ui::VirtualList& list, std::size_t first,
                                                  std::size_t count);
    /// The texts of the lines in view.
    std::vector<std::u16string> look(ui::Tree& tree);
    /// What a painting of all of it draws; of what is to be painted anew.
    RecordingCanvas look(ui::DrawingArea& area);
    RecordingCanvas lookAtChanges(ui::DrawingArea& area);

  private:
    /// Checks that a user can act on it and keeps the form alive.
    [[nodiscard]] std::shared_ptr<ui::Form> reach(ui::Control& control) const;
    void reachRow(const ui::VirtualList& list, std::size_t row) const;
    void chooseFrom(ui::MenuItem& menu, std::u16string_view entry) const;
    void pressOwnKey(ui::Form& form, ui::Control& focused, ui::KeyChord chord);
    /// The user selects a row, which comes into view.
    static void moveSelection(ui::VirtualList& list, std::size_t row);
    [[nodiscard]] bool pressInList(ui::VirtualList& list, ui::KeyChord chord) const;
    [[nodiscard]] bool pressInBox(ui::TextBox& box, ui::KeyChord chord) const;
    [[nodiscard]] static bool pressInCombo(ui::ComboBox& box, ui::KeyChord chord);
    static void typeInCombo(ui::ComboBox& box, std::u16string_view character);
    [[nodiscard]] static bool pressInSplitter(ui::Splitter& splitter, ui::KeyChord chord);
    void checkMouse(const ui::DrawingArea& area, ui::Point at) const;
    void reachItem(const ui::Tree& tree, ui::TreeItemId item) const;
    static void toggle(ui::Tree& tree, ui::TreeItemId item);
    [[nodiscard]] static bool pressInTree(ui::Tree& tree, ui::KeyChord chord);
    [[nodiscard]] static bool pressInTabs(ui::TabStrip& strip, ui::KeyChord chord);

    /// What one call of `type` has typed where it finds things.
    struct Typed {
        std::u16string list{};
        ui::TypeAhead tree{};
    };
    void typeUnit(ui::Form& form, std::u16string_view character, Typed& typed);

    HeadlessDesktop& desktop_;
};

/// The item at the end of a path of texts from the top. Throws `CannotDo` when there is none.
[[nodiscard]] ui::TreeItemId itemAt(const ui::Tree& tree, std::initializer_list<std::u16string_view> path);

[[noreturn]] void cannotFind(const ui::Container& container, std::u16string_view name);

template <class T>
T& get(const ui::Container& container, std::u16string_view name) {
    if (auto* const found = dynamic_cast<T*>(container.find(name)))
        return *found;
    cannotFind(container, name);
}

}  // namespace quorel::headless
