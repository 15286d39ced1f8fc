#include "platform/win32/ui/menus.h"

#include <array>
#include <utility>

#include "platform/win32/text.h"
#include "platform/win32/ui/native_text.h"

namespace quorel::win32 {

namespace {

constexpr std::size_t kMostCaptionUnits = 200;

[[nodiscard]] std::u16string keyText(ui::Key key) {
    static constexpr std::array<std::pair<ui::Key, std::u16string_view>, 15> kNames{
        {{ui::Key::Backspace, u"Backspace"},
         {ui::Key::Tab, u"Tab"},
         {ui::Key::Enter, u"Enter"},
         {ui::Key::Escape, u"Esc"},
         {ui::Key::Space, u"Space"},
         {ui::Key::PageUp, u"Page Up"},
         {ui::Key::PageDown, u"Page Down"},
         {ui::Key::End, u"End"},
         {ui::Key::Home, u"Home"},
         {ui::Key::Left, u"Left"},
         {ui::Key::Up, u"Up"},
         {ui::Key::Right, u"Right"},
         {ui::Key::Down, u"Down"},
         {ui::Key::Insert, u"Ins"},
         {ui::Key::Delete, u"Del"}}};
    for (const auto& [named, text] : kNames)
        if (named == key)
            return std::u16string(text);
    const auto code = static_cast<std::uint16_t>(key);
    if (code < VK_F1 || code > VK_F24)
        return std::u16string(1, static_cast<char16_t>(code));
    const int number = code - VK_F1 + 1;
    std::u16string text = u"F";
    if (number >= 10)
        text += static_cast<char16_t>(u'0' + number / 10);
    return text + static_cast<char16_t>(u'0' + number % 10);
}

[[nodiscard]] std::u16string labelOf(const ui::MenuItem& item) {
    std::u16string label = shownLine(item.caption(), kMostCaptionUnits);
    if (const std::u16string shortcut = shortcutText(item.shortcut()); !shortcut.empty())
        label += u"\t" + shortcut;
    return label;
}

[[nodiscard]] bool hasVisible(const ui::MenuItem& parent) {
    for (const auto& item : parent.items())
        if (item->isVisible() && !item->isSeparator())
            return true;
    return false;
}

void fill(HMENU menu, const ui::MenuItem& parent, MenuPath& at, std::vector<MenuPath>& commands);

void append(HMENU menu, const ui::MenuItem& item, MenuPath& at, std::vector<MenuPath>& commands) {
    UINT flags = MF_STRING | (item.isEnabled() ? MF_ENABLED : MF_GRAYED) |
                 (item.isChecked() ? MF_CHECKED : MF_UNCHECKED);
    const std::u16string label = labelOf(item);
    if (item.items().empty()) {
        commands.push_back(at);
        ::AppendMenuW(menu, flags, kFirstCommand + commands.size() - 1, wide(label));
        return;
    }
    const HMENU inner = ::CreatePopupMenu();
    fill(inner, item, at, commands);
    ::AppendMenuW(menu, flags | MF_POPUP, reinterpret_cast<UINT_PTR>(inner), wide(label));
}

void fill(HMENU menu, const ui::MenuItem& parent, MenuPath& at, std::vector<MenuPath>& commands) {
    bool separate = false;
    at.push_back(0);
    for (const auto& item : parent.items()) {
        if (item->isVisible() && item->isSeparator())
            separate = ::GetMenuItemCount(menu) > 0;
        if (item->isVisible() && !item->isSeparator()) {
            if (std::exchange(separate, false))
                ::AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
            append(menu, *item, at, commands);
        }
        ++at.back();
    }
    at.pop_back();
}

}  // namespace

std::u16string shortcutText(ui::KeyChord chord) {
    if (chord.key == ui::Key::None)
        return {};
    std::u16string text;
    if (has(chord.modifiers, ui::Modifiers::Control))
        text += u"Ctrl+";
    if (has(chord.modifiers, ui::Modifiers::Alt))
        text += u"Alt+";
    if (has(chord.modifiers, ui::Modifiers::Shift))
        text += u"Shift+";
    return text + keyText(chord.key);
}

NativeMenu buildMenu(const ui::MenuItem& root, bool bar) {
    NativeMenu built;
    if (!hasVisible(root))
        return built;
    built.handle = counted<CountedMenu>(bar ? ::CreateMenu() : ::CreatePopupMenu(), Counted::Menu);
    MenuPath at;
    fill(built.handle.get(), root, at, built.commands);
    return built;
}

ui::MenuItem* resolve(const ui::MenuItem& root, const MenuPath& path) noexcept {
    const ui::MenuItem* item = &root;
    for (const std::size_t index : path) {
        if (index >= item->items().size())
            return nullptr;
        item = item->items()[index].get();
    }
    return path.empty() ? nullptr : const_cast<ui::MenuItem*>(item);
}

std::optional<MenuPath> commandPath(const NativeMenu& menu, UINT command) {
    if (command < kFirstCommand || command - kFirstCommand >= menu.commands.size())
        return std::nullopt;
    return menu.commands[command - kFirstCommand];
}

std::optional<MenuPath> trackMenu(const ui::MenuItem& menu, HWND owner, POINT at) {
    const NativeMenu native = buildMenu(menu, false);
    if (!native.handle)
        return std::nullopt;
    const BOOL command =
        ::TrackPopupMenuEx(native.handle.get(), TPM_RETURNCMD | TPM_RIGHTBUTTON, at.x, at.y, owner, nullptr);
    return commandPath(native, static_cast<UINT>(command));
}

}  // namespace quorel::win32
