#include "hosts/navigator/program.h"

#include <shlobj.h>
#include <windows.h>

#include <memory>

#include "frame/guarded.h"
#include "frame/report_error.h"
#include "navigator/batch.h"
#include "navigator/frm_navigator.h"
#include "platform/win32/com/bridge.h"
#include "platform/win32/com/this_module.h"
#include "platform/win32/system_error.h"
#include "platform/win32/text.h"

namespace quorel::hosts {

namespace {

constexpr std::u16string_view kOwnFolder = u"\\Quorel Navigator";

void freeTaskMemory(wchar_t* text) noexcept {
    ::CoTaskMemFree(text);
}

[[nodiscard]] std::u16string userFolder() {
    win32::Unique<wchar_t*, freeTaskMemory> folder;
    win32::check(::SHGetKnownFolderPath(FOLDERID_LocalAppData, KF_FLAG_DONT_VERIFY, nullptr, folder.out()),
                 u"finding the folder of the user's data");
    return std::u16string(win32::narrowView(folder.get())).append(kOwnFolder);
}

[[nodiscard]] std::u16string wholePath(const std::u16string& file) {
    std::u16string path(0x8000, u'\0');
    const DWORD length = ::GetFullPathNameW(win32::wide(file), static_cast<DWORD>(path.size()),
                                            reinterpret_cast<wchar_t*>(path.data()), nullptr);
    path.resize(length < path.size() ? length : 0);
    return path.empty() ? file : path;
}

}  // namespace

Program::Program()
    : desktop_(win32::thisModule()),
      fileDialogs_(desktop_),
      valuePickers_(desktop_),
      drawingExport_(desktop_),
      classes_(win32::createPlatformObject),
      environment_{.desktop = desktop_,
                   .classes = classes_,
                   .clock = clock_,
                   .settings = settings_,
                   .fileDialogs = &fileDialogs_,
                   .valuePickers = &valuePickers_,
                   .pictureObjects = &pictureObjects_,
                   .folderBrowser = &fileDialogs_,
                   .libraryFolder = win32::thisModuleFolder(),
                   .drawingExport = &drawingExport_,
                   .cancelKey = &desktop_} {}

int Program::show(const std::u16string& file) {
    try {
        return serve(file);
    } catch (...) {
        frame::ReportError(desktop_, frame::caughtError(), u"Navigator", u"show");
        return navigator::kFailed;
    }
}

int Program::serve(const std::u16string& file) {
    const navigator::Services services{environment_, userFolder(), win32::thisModuleFolder()};
    const auto window = std::make_shared<navigator::frmNavigator>(services);
    window->onUnload.connect([] { ::PostQuitMessage(0); });
    window->show(ui::Modality::Modeless);
    if (!file.empty()) {
        window->ui::Form::refresh();
        window->openFile(wholePath(file));
    }
    MSG message{};
    while (::GetMessageW(&message, nullptr, 0, 0) > 0) {
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
    return static_cast<int>(message.wParam);
}

}  // namespace quorel::hosts
