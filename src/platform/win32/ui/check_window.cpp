#include "platform/win32/ui/input_windows.h"
#include "platform/win32/ui/system_headers.h"

namespace quorel::win32 {

/// Not an automatic one: the control decides what a click makes of it.
NativeWindow::Description CheckWindow::describe() {
    return {u"BUTTON", WS_CHILD | WS_CLIPSIBLINGS | WS_TABSTOP | BS_3STATE | BS_MULTILINE};
}

void CheckWindow::mirror(ui::Change changes) {
    NativeWindow::mirror(changes);
    if (has(changes, ui::Change::Selection))
        send(BM_SETCHECK, static_cast<WPARAM>(box().value()));
}

void CheckWindow::commanded(WORD code) {
    if (code == BN_CLICKED)
        box().userToggled();
}

}  // namespace quorel::win32
