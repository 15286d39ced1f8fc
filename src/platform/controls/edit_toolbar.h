#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "platform/ui/control.h"
#include "platform/ui/plain_controls.h"

namespace quorel::controls {

enum class EditCommand : std::size_t { New, Delete, Edit, Refresh };

inline constexpr std::size_t kEditCommandCount = 4;

/// Four buttons that ask for something to be done to whatever its owner has beside it.
///
/// Made of plain buttons: "<name>.New", "<name>.Delete", "<name>.Edit", "<name>.Refresh"; this container
/// bears the name itself.
class EditToolbar : public ui::Panel {
  public:
    explicit EditToolbar(std::u16string_view name);

    /// Every command can be chosen again. `flags` are kept for those that come; none mean anything yet.
    void initialise(std::int32_t flags);
    void setCommandEnabled(EditCommand command, bool enabled);
    [[nodiscard]] bool isCommandEnabled(EditCommand command) const;
    /// Runs the command whose key it is (Ins, Del, Alt+Enter, F5), for the control whose key went down. True
    /// if it is one, whether or not it can be chosen now.
    bool runKey(ui::KeyChord chord);

    ui::Event<EditCommand> onCommand;

    [[nodiscard]] ui::Button& button(EditCommand command) noexcept {
        return *buttons_[static_cast<std::size_t>(command)];
    }
    [[nodiscard]] static ui::Twips neededHeight() noexcept;

  private:
    void boundsChanged() override;

    std::array<ui::Button*, kEditCommandCount> buttons_{};
};

}  // namespace quorel::controls
