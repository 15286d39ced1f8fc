#pragma once

#include <memory>

#include "platform/ui/peer.h"
#include "platform/win32/ui/native_window.h"

namespace quorel::win32 {

/// The peer that a control holds: its hand on the native window, which may outlive it for the rest of a
/// message.
class ControlPeer : public ui::Peer {
  public:
    explicit ControlPeer(std::shared_ptr<NativeWindow> window) : window_(std::move(window)) {}
    ~ControlPeer() override { window_->retire(); }

    void apply(ui::Change changes) override { std::shared_ptr(window_)->apply(changes); }
    void takeFocus() override { std::shared_ptr(window_)->takeFocus(); }

    void refresh() override { std::shared_ptr(window_)->refresh(); }
    void popUpMenu(ui::MenuItem& menu, ui::MenuPlace place) override {
        std::shared_ptr(window_)->popUpMenu(menu, place);
    }
    [[nodiscard]] std::optional<ui::Rect> cellBounds(ui::CellIndex cell) const override {
        return std::shared_ptr(window_)->cellBounds(cell);
    }
    void invalidate(const ui::Rect& area) override { std::shared_ptr(window_)->invalidate(area); }
    void applyItem(ui::TreeItemId item, ui::TreeChange change) override {
        std::shared_ptr(window_)->applyItem(item, change);
    }

    [[nodiscard]] NativeWindow& window() const noexcept { return *window_; }

  private:
    std::shared_ptr<NativeWindow> window_;
};

/// The native window of a control of a Windows desktop; null when it has none now.
[[nodiscard]] inline NativeWindow* windowOf(const ui::Control& control) noexcept {
    const auto* const peer = dynamic_cast<const ControlPeer*>(control.peer());
    return peer != nullptr ? &peer->window() : nullptr;
}

/// Its handle; null when it has none now.
[[nodiscard]] inline HWND handleOf(const ui::Control& control) noexcept {
    const NativeWindow* const window = windowOf(control);
    return window != nullptr ? window->handle() : nullptr;
}

}  // namespace quorel::win32
