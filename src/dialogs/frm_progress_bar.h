#pragma once

#include <cstdint>
#include <string_view>

#include "dialogs/repaint_pace.h"
#include "platform/ui/form.h"

namespace quorel::ui {
class Label;
class ProgressBar;
}  // namespace quorel::ui

namespace quorel::dialogs {

/// A bar under a line of information, painted while the host works.
class frmProgressBar final : public ui::Form {
  public:
    frmProgressBar(ui::Desktop& desktop, shell::Clock& clock);

    void setInformation(std::u16string_view information);
    void setMinimum(std::int32_t minimum);
    void setMaximum(std::int32_t maximum);
    void setValue(std::int32_t value);
    void Destroy() noexcept {}

  private:
    void place();

    ui::Label& information_;
    ui::ProgressBar& bar_;
    RepaintPace pace_;
};

}  // namespace quorel::dialogs
