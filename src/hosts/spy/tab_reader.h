#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

namespace quorel::spy {

/// Reads a tab control of another process through the messages that it answers to anyone.
class TabReader {
  public:
    explicit TabReader(HWND tabs) : tabs_(tabs) {}

    /// As they are read: without the doubling of `&`.
    [[nodiscard]] std::vector<std::wstring> captions() const;
    /// -1 when none is selected.
    [[nodiscard]] int selected() const;
    /// The middle of the tab with that caption in screen pixels.
    [[nodiscard]] std::optional<POINT> middleOf(const std::wstring& caption) const;

  private:
    HWND tabs_;
};

}  // namespace quorel::spy
