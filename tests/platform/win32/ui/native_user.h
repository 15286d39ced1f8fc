#pragma once

#include <windows.h>

#include <string>
#include <string_view>
#include <vector>

#include "platform/ui/control.h"
#include "platform/ui/form.h"
#include "platform/ui/keys.h"
#include "platform/ui/menu.h"
#include "platform/ui/tab_strip.h"
#include "platform/ui/tree.h"
#include "platform/ui/virtual_list.h"

namespace quorel::win32::testing {

/// Takes and dispatches messages until there are none: a host's plainest message loop. Answers how many.
int pump();

/// The same until there were none for a while: a window manager answers late to windows that have just been
/// shown or have changed their size, and later still on a busy machine.
void pumpPatiently();

/// The HWND of a control; throws std::runtime_error when it has none.
[[nodiscard]] HWND windowFor(const ui::Control& control);
/// Throws std::runtime_error when a user could not act on it: hidden, disabled, or in such a parent.
void requireUsable(HWND window);

/// Posts the messages of real input and pumps after each step.
void click(HWND window, POINT at);
void doubleClick(HWND window, POINT at);
[[nodiscard]] POINT middleOf(HWND window);
/// As the system hands files over that were dropped; throws std::runtime_error when the window takes none.
void drop(HWND window, const std::vector<std::u16string>& files);
/// A key goes down and up in the window that has the focus, in `form`, which is made the active window first.
void press(HWND form, ui::KeyChord chord);
void type(HWND form, std::u16string_view text);

/// A point in a row's first column, scrolled into view; throws std::runtime_error when there is no such row.
[[nodiscard]] POINT pointInRow(HWND list, std::size_t row);

/// A point in a cell, scrolled into view from above or below.
[[nodiscard]] POINT pointInBox(HWND list, std::size_t row);
[[nodiscard]] POINT pointInCell(HWND list, ui::CellIndex cell);

/// A point on an item, scrolled into view, and on its button; throw std::runtime_error when it has none.
[[nodiscard]] POINT pointInItem(const ui::Tree& tree, ui::TreeItemId item);
[[nodiscard]] POINT pointInButton(const ui::Tree& tree, ui::TreeItemId item);
[[nodiscard]] bool isItemInView(const ui::Tree& tree, ui::TreeItemId item);
/// The native items that are shown, as lines of the form that the conformance suite describes.
[[nodiscard]] std::vector<std::u16string> itemsOf(const ui::Tree& tree);

/// A point on the tab of that index in the strip; throws std::runtime_error when it is not there.
[[nodiscard]] POINT pointInTab(const ui::TabStrip& strip, std::size_t index);
/// The captions of the native tabs, with a "*" before the selected one's.
[[nodiscard]] std::vector<std::u16string> tabsOf(HWND strip);

/// The text that the form's tool tips have for that window; empty when they have none.
[[nodiscard]] std::u16string toolTipOf(HWND window);

[[nodiscard]] std::u16string textOf(HWND window);
[[nodiscard]] std::u16string cellOf(HWND list, std::size_t row, std::size_t column);

struct FoundBox {
    HWND window = nullptr;
    std::u16string text;
};
/// The message box with that title; null when there is none.
[[nodiscard]] FoundBox openBox(const wchar_t* title);

/// The command of the usable entry with that label, however deep; 0 when there is none.
[[nodiscard]] UINT findCommand(HMENU menu, std::u16string_view label);
/// What a menu shows for an entry.
[[nodiscard]] std::u16string labelFor(const ui::MenuItem& entry);
/// True while the thread is in the loop of an open menu.
[[nodiscard]] bool isMenuOpen();

/// The thread's windows whose control is there, children included.
[[nodiscard]] std::size_t livePeers();

}  // namespace quorel::win32::testing
