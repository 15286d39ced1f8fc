#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/headless/recording_canvas.h"
#include "platform/ui/drawing_export.h"

namespace quorel::headless {

/// Writes and prints nothing, but keeps what it was asked to, with all that was drawn.
class DrawingExport final : public ui::DrawingExport {
  public:
    enum class Kind : std::uint8_t { Png, Emf, Print };
    struct Job {
        Kind kind;
        std::u16string target;  ///< the path, or the title on the printer's list
        ui::Size drawing;
        double dpi = 0;  ///< of a PNG
        RecordingCanvas canvas;
    };

    [[nodiscard]] const std::vector<Job>& jobs() const noexcept { return jobs_; }
    /// The user cancels whatever is to be printed from here on.
    void setCancels(bool cancels) noexcept { cancels_ = cancels; }
    /// No file can be written from here on: error 75.
    void setFails(bool fails) noexcept { fails_ = fails; }

    double writePng(std::u16string_view path, ui::Size drawing, std::int32_t dpi,
                    const Painter& painter) override;
    void writeEmf(std::u16string_view path, ui::Size drawing, const Painter& painter) override;
    [[nodiscard]] bool print(std::u16string_view title, ui::Size drawing, const Painter& painter,
                             ui::Form* owner) override;

  private:
    void run(Kind kind, std::u16string_view target, ui::Size drawing, double dpi, const Painter& painter);

    std::vector<Job> jobs_;
    bool cancels_ = false;
    bool fails_ = false;
};

}  // namespace quorel::headless
