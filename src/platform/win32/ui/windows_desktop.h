#pragma once

#include <windows.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/ui/cancel_key.h"
#include "platform/ui/desktop.h"

namespace quorel::win32 {

struct Services;

/// The desktop of the system: native windows, themed, in each monitor's resolution. `module` is the DLL or
/// program that the code is part of; window classes are registered for it, and its resource 2 is the manifest
/// that asks for the themed controls. A thread that shows windows runs a message loop; any plain one will do.
class WindowsDesktop : public ui::Desktop, public ui::CancelKey {
  public:
    explicit WindowsDesktop(HINSTANCE module);
    ~WindowsDesktop() override;

    [[nodiscard]] std::unique_ptr<ui::Peer> makePeer(ui::Control& control) override;
    void runModal(ui::Form& form) override;
    void post(std::function<void()> task) override;
    /// Owned by the window of `owner` if that is shown, else by the thread's active window; in either case no
    /// other window of the thread takes input. A text of more than 4,000 characters is cut.
    ui::MessageAnswer showMessage(const ui::Message& message, ui::Form* owner) override;

    [[nodiscard]] std::u16string clipboardText() override;
    void setClipboardText(std::u16string_view text) override;
    void setPointer(ui::Pointer pointer) override;
    [[nodiscard]] ui::Rect workArea() override;
    [[nodiscard]] ui::Size textSize(std::u16string_view line) override;
    [[nodiscard]] ui::Size textSize(std::u16string_view line, const ui::Font& font) override;
    [[nodiscard]] ui::Size labelSize(std::u16string_view text, const ui::Font& font,
                                     std::optional<ui::Twips> width) override;
    [[nodiscard]] std::vector<ui::Picture> loadPicture(std::u16string_view path) override;
    [[nodiscard]] ui::Borders tabBorders() override;
    [[nodiscard]] ui::Twips scrollBarWidth() override;
    [[nodiscard]] bool takeCancelKey() override;

    /// True if no posted task waits: a library may be unloaded when this holds and it has no window either.
    [[nodiscard]] bool isIdle() const;
    [[nodiscard]] const std::shared_ptr<Services>& services() const noexcept { return services_; }

  private:
    /// Thousands of controls that are laid out one after the other ask for the same line. What was measured
    /// holds for a moment, in which the user changes no font.
    struct MeasuredLine {
        std::u16string line;
        ui::Size size;
        std::uint64_t milliseconds = 0;  ///< when
    };
    /// Which fonts the system has for ours; they hold for a moment, too.
    struct MeasuringFonts {
        std::vector<std::pair<ui::Font, HFONT>> known;
        std::int32_t dpi = 0;
        std::uint64_t milliseconds = 0;
    };
    [[nodiscard]] ui::Size measured(std::u16string_view line, const ui::Font& font);
    [[nodiscard]] HFONT measuringFont(std::int32_t dpi, const ui::Font& font);

    std::shared_ptr<Services> services_;
    std::mutex measuring_, choosing_;
    MeasuredLine last_;
    MeasuringFonts fonts_;
};

}  // namespace quorel::win32
