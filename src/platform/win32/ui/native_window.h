#pragma once

#include <windows.h>

#include <memory>
#include <optional>
#include <string>

#include "platform/ui/control.h"
#include "platform/ui/menu.h"
#include "platform/win32/ui/frame.h"

namespace quorel::win32 {

/// The message that answers a control's name, as controls of the managed framework do, so that test tools
/// find windows by name: wParam is the room in characters with the closing NUL, lParam the buffer. Answers
/// the characters copied with the NUL, -1 when there is too little room, the bytes needed when lParam is
/// null.
[[nodiscard]] UINT getControlNameMessage() noexcept;

/// The native window of one control. It lives until both its peer has let go of it and its HWND is gone; in
/// between it is detached: it knows no control and does what the system does.
class NativeWindow : public std::enable_shared_from_this<NativeWindow> {
  public:
    NativeWindow(std::shared_ptr<Frame> frame, ui::Control& control)
        : frame_(std::move(frame)), control_(&control) {}
    virtual ~NativeWindow() = default;
    NativeWindow(const NativeWindow&) = delete;
    NativeWindow& operator=(const NativeWindow&) = delete;

    /// Ours behind the handle; null for any other window.
    [[nodiscard]] static NativeWindow* of(HWND window) noexcept;

    /// Makes the HWND, a child of `parent`. Once, before anything else.
    void open(HWND parent);
    /// The control is going: detaches and destroys the HWND as soon as that is safe.
    void retire() noexcept;

    void apply(ui::Change changes);
    /// For drawings.
    virtual void invalidate(const ui::Rect&) {}
    /// For trees.
    virtual void applyItem(ui::TreeItemId, ui::TreeChange) {}
    virtual void takeFocus();
    /// For forms.
    virtual void refresh() {}
    void popUpMenu(ui::MenuItem& menu, ui::MenuPlace place);
    /// For lists: the visible part of a cell, relative to the window's outer edges.
    [[nodiscard]] virtual std::optional<ui::Rect> cellBounds(ui::CellIndex) { return std::nullopt; }

    [[nodiscard]] HWND handle() const noexcept { return handle_; }
    [[nodiscard]] ui::Control* control() const noexcept { return control_; }
    [[nodiscard]] const std::shared_ptr<Frame>& frame() const noexcept { return frame_; }

    /// While a modal window runs, the window takes no input whatever its control says.
    void setLocked(bool locked) noexcept;

    // For the parent's procedure, which hears these first.
    // -------------------------------------------------------------------------------
    virtual void commanded(WORD code);
    [[nodiscard]] virtual std::optional<LRESULT> notified(NMHDR& header);
    /// Sets up `dc` and answers the brush of the background.
    [[nodiscard]] virtual HBRUSH colours(HDC dc);

    /// Font, sizes and places anew, after the frame's resolution or the system's settings have changed.
    virtual void rescaled();

  protected:
    struct Description {
        std::u16string className;
        DWORD style = 0;
        DWORD extendedStyle = 0;
    };
    [[nodiscard]] virtual Description describe() = 0;
    /// Where the control wants it, and where what it stands in is scrolled to.
    [[nodiscard]] virtual ui::PixelRect place() const;
    [[nodiscard]] virtual HFONT font() const { return frame_->font(); }
    [[nodiscard]] virtual ui::PixelRect placeAtOpening() const { return place(); }
    /// The HWND stands, without the control's state.
    virtual void opened() {}
    /// Brings the HWND in line with the control's state.
    virtual void mirror(ui::Change changes);
    virtual void mirrorText();
    virtual void mirrorVisible();
    virtual LRESULT serve(UINT message, WPARAM w, LPARAM l);
    /// True if the wheel turns here whenever the mouse is here.
    [[nodiscard]] virtual bool takesWheel() const { return false; }
    /// A key that the control acts on before the form is asked.
    [[nodiscard]] virtual bool claimsKey(ui::KeyChord) const { return false; }
    /// A key that neither the form nor its dialog keyboard had a use for; true keeps it from the control,
    /// too.
    [[nodiscard]] virtual bool dropsKey(ui::KeyChord) const { return false; }
    /// Where a context menu asked for by key opens, in client coordinates.
    [[nodiscard]] virtual POINT contextPoint() const;
    /// Raises the event and shows the menu of the control; false when it has neither.
    [[nodiscard]] bool showContextMenu(LPARAM position);
    [[nodiscard]] bool navigate(UINT message, WPARAM w, LPARAM l);

    /// What the system's class would do.
    LRESULT original(UINT message, WPARAM w = 0, LPARAM l = 0) const noexcept;
    /// Sends the own HWND a message, through `serve`.
    LRESULT send(UINT message, WPARAM w = 0, LPARAM l = 0) const noexcept {
        return ::SendMessageW(handle_, message, w, l);
    }
    [[nodiscard]] Services& services() const noexcept { return frame_->services(); }
    [[nodiscard]] std::int32_t dpi() const noexcept { return frame_->dpi(); }
    /// The own background or the nearest ancestor's; none means the system's.
    [[nodiscard]] std::optional<ui::Colour> background() const;
    /// With that colour, or the system's.
    void fillBackground(HDC dc) const;
    /// The focus has come to the window or into it.
    void focused();
    [[nodiscard]] std::u16string nativeText() const;
    void setNativeText(const std::u16string& shown);
    /// The window has a tool tip that the control knows nothing of, to be forgotten with it.
    void toolTipSet() noexcept { hasToolTip_ = true; }

  private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM w, LPARAM l, UINT_PTR id,
                                      DWORD_PTR self);
    LRESULT guardedServe(UINT message, WPARAM w, LPARAM l) noexcept;
    LRESULT answerName(WPARAM room, LPARAM buffer) const;
    LRESULT serveKey(UINT message, WPARAM key, LPARAM flags);
    [[nodiscard]] bool pressKey(WPARAM key);
    [[nodiscard]] bool showsPointer(LPARAM hit) const;
    [[nodiscard]] bool passWheelOn(WPARAM w, LPARAM onScreen) const;
    [[nodiscard]] std::optional<LRESULT> reflect(UINT message, WPARAM w, LPARAM l);
    void standInTabOrder() const;
    void gone() noexcept;

    std::shared_ptr<Frame> frame_;
    ui::Control* control_;
    HWND handle_ = nullptr;
    bool locked_ = false;
    bool hasToolTip_ = false;
    std::shared_ptr<NativeWindow> self_;  ///< held by the HWND
};

}  // namespace quorel::win32
