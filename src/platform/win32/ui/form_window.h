#pragma once

#include <memory>

#include "platform/ui/form.h"
#include "platform/win32/ui/keyboard_hook.h"
#include "platform/win32/ui/menus.h"
#include "platform/win32/ui/modal_lock.h"
#include "platform/win32/ui/native_window.h"
#include "platform/win32/ui/system_headers.h"
#include "platform/win32/ui/taskbar_button.h"

namespace quorel::win32 {

/// The top-level window of a form. Its class is the form's name.
class FormWindow : public NativeWindow {
  public:
    FormWindow(std::shared_ptr<Frame> frame, ui::Form& form) : NativeWindow(std::move(frame), form) {}

    /// Serves the thread's messages until the form is hidden or its window gone. A WM_QUIT ends it, hides the
    /// form and is passed on.
    void runModal();

    void refresh() override;

  private:
    static constexpr UINT kEchoTime = 500;  // milliseconds
    static constexpr UINT_PTR kEchoTimer = 0x51;

    /// One modal run; shared with the window, which ends it when it hides.
    struct ModalRun {
        explicit ModalRun(HWND window) : lock(window) {}
        ModalLock lock;
        bool ended = false;
    };

    [[nodiscard]] Description describe() override;
    [[nodiscard]] ui::PixelRect placeAtOpening() const override;
    void opened() override;
    void mirror(ui::Change changes) override;
    void mirrorVisible() override;
    LRESULT serve(UINT message, WPARAM w, LPARAM l) override;
    void rescaled() override;

    [[nodiscard]] ui::Form* form() const noexcept;
    [[nodiscard]] DWORD style() const noexcept;
    [[nodiscard]] DWORD extendedStyle() const noexcept;
    [[nodiscard]] SIZE outerSize(ui::Size client) const;
    [[nodiscard]] POINT openingPoint(SIZE outer) const;
    void placeForOpening();
    void mirrorBounds();
    void mirrorStyle();
    void mirrorMenu();
    void matchClientSize();
    void show();
    void hide();
    void endModalRun() noexcept;

    [[nodiscard]] std::optional<LRESULT> serveForm(UINT message, WPARAM w, LPARAM l);
    [[nodiscard]] std::optional<LRESULT> servePlace(UINT message, WPARAM w, LPARAM l);
    void dropped(HDROP files) const;
    void chooseFromMenu(UINT command) const;
    void moved(bool sizeToo);
    void resized();
    [[nodiscard]] bool isEcho(const RECT& client);
    void limitSize(MINMAXINFO& limits) const;
    void moveToResolution(std::int32_t dpi, const RECT& wanted);
    void focusInside();
    void settingsChanged();

    TaskbarButton taskbarButton_;
    NativeMenu menu_;
    bool menuStale_ = false;
    bool inMenu_ = false;
    bool shown_ = false;
    bool placed_ = false;
    int placing_ = 0;
    SIZE formerClient_{};        ///< before the last change of size by program
    ULONGLONG formerUntil_ = 0;  ///< how long that size may come back as an echo
    std::shared_ptr<KeyboardHook> keyboard_;
    std::shared_ptr<ModalRun> modal_;
};

}  // namespace quorel::win32
