#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/win32/ui/system_headers.h"

namespace quorel::spy {

/// An item that a tree shows: the ones above it are open, though it may be scrolled out of view.
struct TreeLine {
    HTREEITEM item = nullptr;
    int depth = 0;
    std::wstring text;
    bool open = false;
    bool canOpen = false;
    bool selected = false;
};

/// Reads a tree view of another process through the messages that it answers to anyone.
class TreeReader {
  public:
    explicit TreeReader(HWND tree) : tree_(tree) {}

    /// At most `most` of the items shown, from the top.
    [[nodiscard]] std::vector<TreeLine> lines(int most) const;
    /// The item at the end of a path of texts from the top, joined by `/`; a `/` in a text is doubled.
    [[nodiscard]] std::optional<TreeLine> find(const std::wstring& path) const;
    /// The middle of the item's text in screen pixels, after scrolling to it; none while it is in a closed
    /// one.
    [[nodiscard]] std::optional<POINT> middleOf(const TreeLine& line) const;
    /// The same of the button before it; none when it has none.
    [[nodiscard]] std::optional<POINT> buttonOf(const TreeLine& line) const;

  private:
    [[nodiscard]] HTREEITEM next(WPARAM relation, HTREEITEM item) const;
    [[nodiscard]] TreeLine read(HTREEITEM item) const;
    [[nodiscard]] std::optional<RECT> textOf(HTREEITEM item) const;
    [[nodiscard]] bool isButton(POINT at) const;

    HWND tree_;
};

}  // namespace quorel::spy
