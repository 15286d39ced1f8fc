#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ui/colour.h"
#include "platform/ui/event.h"
#include "platform/ui/keys.h"
#include "platform/ui/peer.h"
#include "platform/ui/units.h"

namespace quorel::ui {

class Container;
class ControlVisitor;
class Form;
class Menu;
class MenuItem;

/// A portable control: owns its state and raises its events; a peer mirrors it while its form is shown.
/// Created by `Container::add`, owned by its container. Setters change the state at once and tell the peer,
/// if there is one; events are raised by user actions only, never by setters.
class Control {
  public:
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;
    virtual ~Control();

    /// Which kind of control this is: each plain kind calls its own overload, so a backend decides in one
    /// place.
    virtual void accept(ControlVisitor& visitor) = 0;

    [[nodiscard]] const std::u16string& name() const noexcept { return name_; }
    [[nodiscard]] Container* parent() const noexcept { return parent_; }
    /// The form that holds the control (a form answers itself); null only for a control outside any form.
    [[nodiscard]] Form* form() noexcept;

    [[nodiscard]] const Rect& bounds() const noexcept { return bounds_; }
    void setBounds(const Rect& bounds);
    /// Caption, content or label; `&` marks an access key in captions.
    [[nodiscard]] const std::u16string& text() const noexcept { return text_; }
    void setText(std::u16string_view text);
    [[nodiscard]] bool isVisible() const noexcept { return visible_; }
    void setVisible(bool visible);
    [[nodiscard]] bool isEnabled() const noexcept { return enabled_; }
    void setEnabled(bool enabled);
    [[nodiscard]] const std::u16string& toolTip() const noexcept { return toolTip_; }
    void setToolTip(std::u16string_view text);
    /// Anything the owner wants to keep with the control.
    [[nodiscard]] const std::u16string& tag() const noexcept { return tag_; }
    void setTag(std::u16string_view tag) { tag_ = tag; }
    [[nodiscard]] std::optional<Colour> background() const noexcept { return background_; }
    void setBackground(std::optional<Colour> colour);
    [[nodiscard]] bool isTabStop() const noexcept { return tabStop_; }
    void setTabStop(bool stop) noexcept { tabStop_ = stop; }
    /// Stands over its siblings whatever the tab order, as an editor over the cell of a list does. Before the
    /// control is shown.
    [[nodiscard]] bool isRaised() const noexcept { return raised_; }
    void setRaised(bool raised) noexcept { raised_ = raised; }

    /// Shown on right-click and by the menu key; owned by the control. `onContextMenu` comes first, to
    /// prepare it.
    Menu& contextMenu();
    [[nodiscard]] Menu* contextMenuIfAny() const noexcept { return contextMenu_.get(); }

    /// Moves the focus here and raises no event; before the form is shown it decides where the focus begins.
    /// Nothing happens when the form is shown and the control is not usable.
    void focus();
    [[nodiscard]] bool hasFocus() const noexcept;
    /// Scrolls what it stands in, as far as that scrolls, until it can be seen; getting the focus does so.
    void bringIntoView();

    Event<> onGotFocus;
    Event<> onLostFocus;
    Event<KeyEvent&> onKeyDown;
    Event<> onContextMenu;

    /// Shows the entries below `menu` and runs what the user chooses; returns when the menu has closed.
    /// Nothing happens while the control is not usable or no entry is visible. `onContextMenu` is not raised.
    void popUpMenu(MenuItem& menu, MenuPlace place = MenuPlace::Mouse);

    /// The user asks for the context menu: raises `onContextMenu` and answers the menu to show; null when
    /// there is nothing to choose or the control is not usable any more.
    [[nodiscard]] Menu* userContextMenu();

    [[nodiscard]] Peer* peer() const noexcept { return peer_.get(); }
    /// True if the control, its ancestors and its form are visible.
    [[nodiscard]] bool isShown() const noexcept;
    /// True if `isShown` and it and its ancestors are enabled: what a user can act on.
    [[nodiscard]] bool isUsable() const noexcept;

  protected:
    explicit Control(std::u16string_view name);
    /// Tells the peer; called by setters after the state has changed.
    void changed(Change changes);
    /// For composed controls: the bounds have changed, so the children are to be placed anew.
    virtual void boundsChanged() {}
    /// The program has set another text.
    virtual void textSet() {}
    /// Keeps the form alive while the handlers of an event run. Null outside a form.
    [[nodiscard]] std::shared_ptr<const Form> keepFormAlive() const noexcept;

    std::u16string text_;

  private:
    friend class Container;
    friend class Form;
    friend class Menu;

    [[nodiscard]] virtual const Form* asForm() const noexcept { return nullptr; }
    [[nodiscard]] const Control& root() const noexcept;
    void usabilityChanged();
    /// Makes the peers of this control and, if it is a container, of what it shows.
    virtual void realize();
    virtual void unrealize() noexcept;

    std::u16string name_;
    Container* parent_ = nullptr;
    Rect bounds_;
    std::u16string toolTip_;
    std::u16string tag_;
    std::optional<Colour> background_;
    bool visible_ = true;
    bool enabled_ = true;
    bool tabStop_ = true;
    bool raised_ = false;
    std::unique_ptr<Menu> contextMenu_;
    std::unique_ptr<Peer> peer_;
};

/// A control that holds others; they are in tab order and live as long as it.
class Container : public Control {
  public:
    ~Container() override;

    template <class T, class... Args>
    T& add(std::u16string_view name, Args&&... arguments) {
        auto owned = std::make_unique<T>(name, std::forward<Args>(arguments)...);
        T& control = *owned;
        adopt(std::move(owned));
        return control;
    }
    [[nodiscard]] const std::vector<std::unique_ptr<Control>>& children() const noexcept { return children_; }
    /// Ends all that it holds, shown or not; none of it may be a form's default or cancel button. No event is
    /// raised; a focus that was there goes to another control.
    void clear();
    /// While it is not visible: drops the native windows of it and of all it holds, until it is shown again.
    void dropHiddenPeers() noexcept;
    /// The descendant of that name, in depth-first order; null if there is none.
    [[nodiscard]] Control* find(std::u16string_view name) const noexcept;
    /// How far what it holds is scrolled up: its children are seen that much higher than their bounds say.
    [[nodiscard]] virtual Twips scrolled() const noexcept { return {}; }

  protected:
    using Control::Control;
    /// For containers that scroll: one below it is to be seen.
    virtual void reveal(const Control& below) { static_cast<void>(below); }

  private:
    friend class Control;
    friend class Form;
    void adopt(std::unique_ptr<Control> control);
    void realize() override;
    void unrealize() noexcept override;

    std::vector<std::unique_ptr<Control>> children_;
};

/// A plain container without a look of its own, to group and to place.
class Panel : public Container {
  public:
    explicit Panel(std::u16string_view name) : Container(name) { setTabStop(false); }
    void accept(ControlVisitor& visitor) override;
};

}  // namespace quorel::ui
