#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ui/event.h"
#include "platform/ui/keys.h"

namespace quorel::ui {

class Control;
class Form;

/// One entry of a menu, or a submenu when it has entries of its own. A caption "-" is a separator.
class MenuItem {
  public:
    MenuItem(std::u16string_view name, std::u16string_view caption, KeyChord shortcut = {})
        : name_(name), caption_(caption), shortcut_(shortcut) {}
    MenuItem(const MenuItem&) = delete;
    MenuItem& operator=(const MenuItem&) = delete;
    virtual ~MenuItem() = default;

    MenuItem& add(std::u16string_view name, std::u16string_view caption, KeyChord shortcut = {});
    MenuItem& addSeparator();
    [[nodiscard]] const std::vector<std::unique_ptr<MenuItem>>& items() const noexcept { return items_; }
    /// The entry of that name below this one, in depth-first order; null if there is none.
    [[nodiscard]] MenuItem* find(std::u16string_view name) const noexcept;
    /// The entry below this one that `chord` chooses now: it and its ancestors visible and enabled.
    [[nodiscard]] MenuItem* findShortcut(KeyChord chord) const noexcept;

    [[nodiscard]] const std::u16string& name() const noexcept { return name_; }
    [[nodiscard]] const std::u16string& caption() const noexcept { return caption_; }
    void setCaption(std::u16string_view caption);
    [[nodiscard]] bool isSeparator() const noexcept { return caption_ == u"-"; }
    /// Works in the whole form for entries of a menu bar; shown beside the caption everywhere.
    [[nodiscard]] KeyChord shortcut() const noexcept { return shortcut_; }
    [[nodiscard]] bool isVisible() const noexcept { return visible_; }
    void setVisible(bool visible);
    [[nodiscard]] bool isEnabled() const noexcept { return enabled_; }
    void setEnabled(bool enabled);
    [[nodiscard]] bool isChecked() const noexcept { return checked_; }
    void setChecked(bool checked);

    Event<> onClick;

    /// Runs `onClick` if the entry and its ancestors are visible and enabled; otherwise nothing.
    void userClicked();
    /// True if it and its ancestors are visible and enabled.
    [[nodiscard]] bool isChoosable() const noexcept;

  protected:
    /// The root hears of every change below it.
    virtual void changed();
    /// The root keeps its form alive while the handlers of a click run.
    [[nodiscard]] virtual std::shared_ptr<const Form> keepFormAlive() const noexcept;

  private:
    friend class Control;

    std::u16string name_;
    std::u16string caption_;
    KeyChord shortcut_;
    bool visible_ = true;
    bool enabled_ = true;
    bool checked_ = false;
    MenuItem* parent_ = nullptr;
    std::vector<std::unique_ptr<MenuItem>> items_;
};

/// The context menu of a control.
class Menu : public MenuItem {
  public:
    explicit Menu(const Control& owner) : MenuItem({}, {}), owner_(owner) {}

  protected:
    [[nodiscard]] std::shared_ptr<const Form> keepFormAlive() const noexcept override;

  private:
    const Control& owner_;
};

/// The menu bar of a form. A bar without a visible entry takes no room.
class MenuBar : public MenuItem {
  public:
    explicit MenuBar(Form& form) : MenuItem({}, {}), form_(form) {}

  protected:
    void changed() override;
    [[nodiscard]] std::shared_ptr<const Form> keepFormAlive() const noexcept override;

  private:
    Form& form_;
};

}  // namespace quorel::ui
