#include "platform/ui/shown_text.h"
#include "platform/win32/text.h"
#include "platform/win32/ui/drawing_tools.h"
#include "platform/win32/ui/input_windows.h"
#include "platform/win32/ui/pictures.h"
#include "platform/win32/ui/system_headers.h"

namespace quorel::win32 {

namespace {

// Pixels at 96 dots per inch: the box alone, and the box with whatever may be between it and the caption.
constexpr int kBox = 13;
constexpr int kBoxAndGap = 22;
constexpr int kMostGivenUp = 16;

/// Of a caption that is broken between words.
[[nodiscard]] SIZE brokenSize(HFONT font, const std::u16string& caption, int width) {
    const MemoryDc dc(::CreateCompatibleDC(nullptr));
    const SelectScope selected(dc.get(), font);
    RECT room{0, 0, width, 0};
    ::DrawTextW(dc.get(), wide(caption), static_cast<int>(caption.size()), &room, DT_CALCRECT | DT_WORDBREAK);
    return {room.right, room.bottom};
}

}  // namespace

/// Not an automatic one: the control decides what a click makes of it.
NativeWindow::Description CheckWindow::describe() {
    return {u"BUTTON", WS_CHILD | WS_CLIPSIBLINGS | WS_TABSTOP | BS_3STATE | BS_MULTILINE};
}

void CheckWindow::mirror(ui::Change changes) {
    NativeWindow::mirror(changes);
    if (has(changes, ui::Change::Text) && !has(changes, ui::Change::Bounds))
        frame()->place(handle(), place());
    if (has(changes, ui::Change::Selection))
        send(BM_SETCHECK, static_cast<WPARAM>(box().value()));
}

/// Where the system forgets the gap beside the box when it breaks the caption, a line may be cut at the
/// right. So the window is as much narrower as it takes for the caption to break between the same words
/// either way.
ui::PixelRect CheckWindow::place() const {
    ui::PixelRect whole = NativeWindow::place();
    const std::u16string caption = ui::shownText(control()->text());
    const auto pixels = [this](int at96) { return ::MulDiv(at96, dpi(), USER_DEFAULT_SCREEN_DPI); };
    const auto sizeIn = [&](int width) { return brokenSize(font(), caption, width); };
    const int width = whole.right - whole.left;
    const LONG height = sizeIn(width - pixels(kBoxAndGap)).cy;
    for (int narrower = 0; narrower < pixels(kMostGivenUp); ++narrower) {
        const SIZE tight = sizeIn(width - narrower - pixels(kBoxAndGap));
        const SIZE loose = sizeIn(width - narrower - pixels(kBox));
        if (tight.cx == loose.cx && tight.cy == loose.cy && tight.cy == height) {
            whole.right -= narrower;
            break;
        }
    }
    return whole;
}

void CheckWindow::commanded(WORD code) {
    if (code == BN_CLICKED)
        box().userToggled();
}

}  // namespace quorel::win32
