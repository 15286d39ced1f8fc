#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "navigator/navigator_layout.h"
#include "platform/ui/control.h"
#include "platform/ui/desktop.h"
#include "platform/ui/plain_controls.h"
#include "platform/ui/virtual_list.h"

namespace quorel::navigator {

/// What is shown while no repository is open: ways to begin, and the files that were opened last by name and
/// folder.
class WelcomePage final : public ui::Panel, private ui::RowSource {
  public:
    WelcomePage(std::u16string_view name, ui::Desktop& desktop);
    ~WelcomePage() override;

    void setFiles(std::vector<std::u16string> paths);
    [[nodiscard]] ui::Button& newButton() noexcept { return *buttons_[0]; }
    [[nodiscard]] ui::Button& openButton() noexcept { return *buttons_[1]; }
    [[nodiscard]] ui::Button& importButton() noexcept { return *buttons_[2]; }
    [[nodiscard]] ui::Button& sampleButton() noexcept { return *buttons_[3]; }

    ui::Event<const std::u16string&> onOpen;    ///< Enter on a file, or a double click
    ui::Event<const std::u16string&> onForget;  ///< Del on a file, or the context menu

  private:
    [[nodiscard]] std::size_t rowCount() const override { return paths_.size(); }
    [[nodiscard]] std::u16string cellText(std::size_t row, std::size_t column) override;
    void boundsChanged() override;
    void buildList();
    /// Raises the event for the selected file, if one is.
    void raise(const ui::Event<const std::u16string&>& event) const;

    ui::Desktop& desktop_;
    std::vector<std::u16string> paths_;
    ui::Label* title_;
    ui::Label* hint_;
    std::array<ui::Button*, kWelcomeButtons> buttons_{};
    ui::Label* recentCaption_;
    ui::VirtualList* recent_;
};

}  // namespace quorel::navigator
