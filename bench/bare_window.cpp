// An empty window of the same toolkit, for how long a program needs until it is there.

#include <windows.h>

#include <memory>

#include "platform/ui/form.h"
#include "platform/win32/ui/windows_desktop.h"

int WINAPI wWinMain(HINSTANCE module, HINSTANCE, PWSTR, int) {
    quorel::win32::WindowsDesktop desktop(module);
    const auto window = std::make_shared<quorel::ui::Form>(desktop, u"frmBare");
    window->setText(u"Bare");
    window->setClientSize({{13500}, {8400}});
    window->onUnload.connect([] { ::PostQuitMessage(0); });
    window->show(quorel::ui::Modality::Modeless);
    MSG message{};
    while (::GetMessageW(&message, nullptr, 0, 0) > 0) {
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
    return 0;
}
