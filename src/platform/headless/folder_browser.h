#pragma once

#include <deque>
#include <functional>
#include <string>
#include <utility>

#include "platform/headless/headless_desktop.h"
#include "platform/shell/folder_browser.h"

namespace quorel::headless {

/// A folder browser whose user is scripted beforehand; one that comes unexpected is a failure of the desktop,
/// and cancelled. Expectations that nobody met are for the test to look at.
class FolderBrowser final : public shell::FolderBrowser {
  public:
    struct Shown {
        std::u16string title;
        bool offersNewFolder = false;
    };
    using User = std::function<std::optional<std::u16string>(const Shown&)>;

    explicit FolderBrowser(HeadlessDesktop& desktop) : desktop_(desktop) {}

    /// What the user makes of the next one: a path, or nothing to cancel.
    void expect(User user) { expected_.push_back(std::move(user)); }
    [[nodiscard]] std::size_t unmet() const noexcept { return expected_.size(); }

    [[nodiscard]] std::optional<std::u16string> browse(std::u16string_view title,
                                                       bool offersNewFolder) override;

  private:
    HeadlessDesktop& desktop_;
    std::deque<User> expected_;
};

}  // namespace quorel::headless
