#pragma once

#include <cstdint>
#include <string_view>

#include "dialogs/progress_range.h"
#include "dialogs/repaint_pace.h"
#include "platform/ui/form.h"

namespace quorel::ui {
class Label;
class Panel;
class ProgressBar;
class StatusBar;
}  // namespace quorel::ui

namespace quorel::dialogs {

/// The window of a long operation: a title, a bar with its percentage, a line of text. It is painted while
/// the host works and serves no messages.
class frmProgress final : public ui::Form {
  public:
    frmProgress(ui::Desktop& desktop, shell::Clock& clock);

    void PopUp();
    void Init(const ProgressRange& range);
    void setProgressText(std::u16string_view text);
    void setTitle(std::u16string_view title);
    void setCaption(std::u16string_view caption);
    /// Advances the bar and shows how full it was before; false when it was full already.
    [[nodiscard]] bool incValue(std::int32_t by);
    void Destroy() noexcept {}

  private:
    void place();
    [[nodiscard]] ProgressRange range() const noexcept;

    ui::Panel& frame_;
    ui::Label& title_;
    ui::ProgressBar& bar_;
    ui::Label& percentage_;
    ui::StatusBar& status_;
    RepaintPace pace_;
};

}  // namespace quorel::dialogs
