#include "platform/win32/ui/frame.h"

#include <algorithm>
#include <utility>

#include "platform/ui/shown_text.h"
#include "platform/win32/text.h"
#include "platform/win32/ui/native_text.h"
#include "platform/win32/ui/system_headers.h"

namespace quorel::win32 {

namespace {

constexpr UINT kPlaceFlags = SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOOWNERZORDER;
constexpr int kWidestToolTip = 400;

[[nodiscard]] TTTOOLINFOW toolOf(HWND form, HWND control) noexcept {
    TTTOOLINFOW tool{};
    tool.cbSize = sizeof(tool);
    tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
    tool.hwnd = form;
    tool.uId = reinterpret_cast<UINT_PTR>(control);
    return tool;
}

}  // namespace

Frame::Frame(std::shared_ptr<Services> shared) : services_(std::move(shared)), thread_(services_->thread()) {}

Frame::~Frame() = default;

void Frame::setDpi(std::int32_t dpi) {
    dpi_ = dpi;
    font_ = services_->tools.font(dpi);
}

void Frame::enter() noexcept {
    ++serving_;
    thread_->enter();
}

void Frame::leave() noexcept {
    while (serving_ == 1 && !retired_.empty()) {
        const std::vector<HWND> retired = std::exchange(retired_, {});
        for (const HWND window : retired)
            ::DestroyWindow(window);
    }
    --serving_;
    thread_->leave();
}

void Frame::destroy(HWND window) noexcept {
    if (serving_ == 0) {
        ::DestroyWindow(window);
        return;
    }
    ::ShowWindow(window, SW_HIDE);
    retired_.push_back(window);
}

void Frame::place(HWND window, const ui::PixelRect& where) noexcept {
    if (layouts_ > 0)
        moves_.push_back({window, where});
    else
        ::SetWindowPos(window, nullptr, where.left, where.top, where.right - where.left,
                       where.bottom - where.top, kPlaceFlags);
}

void Frame::endLayout() noexcept {
    if (--layouts_ > 0)
        return;
    std::vector<Move> moves = std::exchange(moves_, {});
    const auto parentOf = [](const Move& move) { return ::GetAncestor(move.window, GA_PARENT); };
    std::stable_sort(moves.begin(), moves.end(),
                     [&](const Move& a, const Move& b) { return parentOf(a) < parentOf(b); });
    for (auto first = moves.begin(); first != moves.end();) {
        const auto last = std::find_if(first, moves.end(),
                                       [&](const Move& move) { return parentOf(move) != parentOf(*first); });
        HDWP batch = ::BeginDeferWindowPos(static_cast<int>(last - first));
        for (; first != last; ++first) {
            const ui::PixelRect& to = first->where;
            batch = ::DeferWindowPos(batch, first->window, nullptr, to.left, to.top, to.right - to.left,
                                     to.bottom - to.top, kPlaceFlags);
        }
        ::EndDeferWindowPos(batch);
    }
}

void Frame::makeToolTips() {
    toolTips_ = ::CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr,
                                  WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, CW_USEDEFAULT, CW_USEDEFAULT,
                                  CW_USEDEFAULT, CW_USEDEFAULT, form_, nullptr, services_->module, nullptr);
    ::SendMessageW(toolTips_, TTM_SETMAXTIPWIDTH, 0, ::MulDiv(kWidestToolTip, dpi_, 96));
}

void Frame::setToolTip(HWND control, const std::u16string& text) {
    forgetToolTip(control);
    if (text.empty())
        return;
    if (toolTips_ == nullptr || ::IsWindow(toolTips_) == FALSE)
        makeToolTips();
    std::u16string shown = ui::shownText(text);
    TTTOOLINFOW tool = toolOf(form_, control);
    tool.lpszText = wideBuffer(shown);
    ::SendMessageW(toolTips_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

void Frame::forgetToolTip(HWND control) noexcept {
    if (toolTips_ == nullptr)
        return;
    TTTOOLINFOW tool = toolOf(form_, control);
    ::SendMessageW(toolTips_, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

}  // namespace quorel::win32
