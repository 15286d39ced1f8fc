// Shows every plain control until its window is closed: `ui_gallery [modal]`.

#include <windows.h>

#include <cstring>

#include "platform/win32/ui/windows_desktop.h"
#include "tests/platform/win32/ui/gallery_form.h"

int main(int count, char** arguments) {
    using namespace quorel;
    win32::WindowsDesktop desktop(::GetModuleHandleW(nullptr));
    win32::testing::Gallery gallery(desktop);
    gallery.addDrawings();
    const auto close = [&] { gallery.form->unload(); };
    gallery.ok->onClick.connect(close);
    gallery.cancel->onClick.connect(close);
    gallery.form->onUnload.connect([] { ::PostQuitMessage(0); });
    if (count > 1 && std::strcmp(arguments[1], "modal") == 0) {
        gallery.form->show(ui::Modality::Modal);
        return 0;
    }
    gallery.form->show(ui::Modality::Modeless);
    MSG message{};
    while (::GetMessageW(&message, nullptr, 0, 0) > 0) {
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
    return 0;
}
