#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ui/control.h"
#include "platform/ui/desktop.h"

namespace quorel::ui {

class Button;
class MenuBar;

enum class Modality : bool { Modeless, Modal };

enum class Navigation : bool { Back, Forward };

/// A window. Held by `std::shared_ptr`; every event of a form or its controls keeps the form alive until the
/// outermost handler has returned, so a handler may drop the last other reference.
///
/// Loaded (hidden, no native window) → shown ⇄ hidden → unloaded (native windows gone, state kept); `load` or
/// `show` loads again. The close box asks `onQueryUnload`, then unloads. A form that is destroyed while
/// loaded drops its native windows without raising an event.
///
/// The peer of a form makes its window hidden; after the peers of what it holds are made, `apply` with
/// `Change::Visible` shows it.
class Form : public Container, public std::enable_shared_from_this<Form> {
  public:
    Form(Desktop& desktop, std::u16string_view name);
    ~Form() override;
    void accept(ControlVisitor& visitor) override;

    [[nodiscard]] Desktop& desktop() const noexcept { return desktop_; }
    /// Visible is what `show` and `hide` decide.
    void setVisible(bool visible) = delete;

    /// Runs `onLoad` unless the form is loaded already.
    void load();
    [[nodiscard]] bool isLoaded() const noexcept { return loaded_; }
    /// Modal: returns when the form is hidden or unloaded. Modeless: has no owner window and returns at once.
    /// Loads the form first. Throws `Error` 400 when a visible form is to be shown modally.
    void show(Modality modality);
    /// Ends a modal show; the state stays.
    void hide();
    /// Hides, raises `onUnload`, drops the native windows. Nothing happens when the form is not loaded.
    void unload();
    [[nodiscard]] bool isModal() const noexcept { return modal_; }
    /// Paints now what has changed, for who works without serving messages; what the user does waits.
    void refresh();

    /// The inner size, without caption, frame and menu bar.
    [[nodiscard]] Size clientSize() const noexcept { return clientSize_; }
    /// Not below the minimum size. Also raises `onResize`, as a resize by the user does.
    void setClientSize(Size size);
    void setMinimumClientSize(Size size);
    [[nodiscard]] Size minimumClientSize() const noexcept { return minimumClientSize_; }
    [[nodiscard]] bool isResizable() const noexcept { return resizable_; }
    void setResizable(bool resizable);
    /// Where the window opens; without a call it opens centred on the screen it would appear on.
    void setPosition(Point position);
    [[nodiscard]] bool hasPosition() const noexcept { return positioned_; }
    [[nodiscard]] bool isMaximized() const noexcept { return maximized_; }
    void setMaximized(bool maximized);
    /// How far a long operation is, 0 to 1, shown where the system lists its windows; none when there is
    /// none.
    [[nodiscard]] std::optional<double> progress() const noexcept { return progress_; }
    void setProgress(std::optional<double> progress);

    MenuBar& menuBar();
    [[nodiscard]] MenuBar* menuBarIfAny() const noexcept { return menuBar_.get(); }

    /// Pressed by Enter and by Esc where the focused control does not want them.
    void setDefaultButton(Button* button);
    [[nodiscard]] Button* defaultButton() const noexcept { return defaultButton_; }
    void setCancelButton(Button* button) noexcept { cancelButton_ = button; }
    [[nodiscard]] Button* cancelButton() const noexcept { return cancelButton_; }
    [[nodiscard]] Control* focusedControl() const noexcept { return focused_; }

    Event<> onLoad;
    Event<> onResize;
    Event<bool&> onQueryUnload;  ///< set the argument to keep the window open
    Event<> onUnload;
    /// The user goes back or forward: by the mouse buttons or keys made for it, by Alt+Left and Alt+Right
    /// where nothing else takes them.
    Event<Navigation> onNavigate;
    /// The user drops files or folders on the form, by their whole paths. A form takes them if somebody
    /// listens when it is first shown.
    Event<const std::vector<std::u16string>&> onDropFiles;

    // What the user does, reported by the peer.
    // --------------------------------------------------------------------
    /// Nothing happens when the size is the present one, so a peer may report its own moves.
    void userResized(Size clientSize);
    void userMoved(Point position, bool maximized);
    void userClosed();
    /// The focus went to `control`, or to none of the form's. Nothing happens when it is there already. Not
    /// for a window that is deactivated: the control that gets the focus back keeps it meanwhile.
    void userFocused(Control* control);
    /// True if somebody listens.
    bool userNavigated(Navigation where);
    /// True if somebody listens and the form can be used.
    bool userDroppedFiles(const std::vector<std::u16string>& files);
    /// Menu shortcuts and `onKeyDown` of the focused control and then of the form; true if one of them took
    /// the key.
    [[nodiscard]] bool userKeyDown(KeyChord chord);

  private:
    friend class Container;
    friend class Control;
    [[nodiscard]] const Form* asForm() const noexcept override { return this; }
    void realize() override;
    /// Puts the focus on a control that can have it, the next one in tab order if the present one cannot.
    void repairFocus();
    void takeFocus();

    Desktop& desktop_;
    std::unique_ptr<MenuBar> menuBar_;
    Size clientSize_;
    Size minimumClientSize_;
    Button* defaultButton_ = nullptr;
    Button* cancelButton_ = nullptr;
    Control* focused_ = nullptr;
    bool loaded_ = false;
    bool modal_ = false;
    bool resizable_ = true;
    bool positioned_ = false;
    bool maximized_ = false;
    std::optional<double> progress_;
};

}  // namespace quorel::ui
