// Drawings on paper.

#include <algorithm>

#include "platform/automation/error.h"
#include "platform/ui/form.h"
#include "platform/win32/system_error.h"
#include "platform/win32/text.h"
#include "platform/win32/ui/control_peer.h"
#include "platform/win32/ui/gdi_canvas.h"
#include "platform/win32/ui/modal_lock.h"
#include "platform/win32/ui/native_scope.h"
#include "platform/win32/ui/native_text.h"
#include "platform/win32/ui/pictures.h"
#include "platform/win32/ui/services.h"
#include "platform/win32/ui/system_headers.h"
#include "platform/win32/ui/windows_drawing_export.h"
// The system's, behind those that it needs.
#include <cderr.h>

namespace quorel::win32 {

namespace {

constexpr std::size_t kMostTitleUnits = 200;
/// The platform's number of errors of printers.
constexpr std::int32_t kPrinterError = 482;

/// What the user has chosen; no device when he has chosen none.
struct Printer {
    GlobalMemory mode, names;
    MemoryDc device;
};

[[nodiscard]] Printer choosePrinter(HWND owner) {
    PRINTDLGW dialog{};
    dialog.lStructSize = sizeof(dialog);
    dialog.hwndOwner = owner;
    dialog.Flags = PD_RETURNDC | PD_NOWARNING | PD_NOPAGENUMS | PD_NOSELECTION | PD_HIDEPRINTTOFILE |
                   PD_USEDEVMODECOPIESANDCOLLATE;
    dialog.nCopies = 1;
    const ModalLock lock(owner);
    const bool chosen = ::PrintDlgW(&dialog) != FALSE;
    Printer printer{GlobalMemory(dialog.hDevMode), GlobalMemory(dialog.hDevNames), MemoryDc(dialog.hDC)};
    const DWORD failure = chosen ? 0 : ::CommDlgExtendedError();
    if (failure == PDERR_NODEFAULTPRN || failure == PDERR_NODEVICES)
        throw automation::Error(kPrinterError, u"There is no printer to print the drawing with",
                                u"Drawing export");
    if (failure != 0)
        throw errorFromStatus(static_cast<HRESULT>(0x80070000U | (failure & 0xFFFFU)), u"Print dialog");
    if (!chosen)
        printer.device.reset();
    return printer;
}

void turnPage(const Printer& printer, bool across) {
    auto* const mode = static_cast<DEVMODEW*>(::GlobalLock(printer.mode.get()));
    if (mode == nullptr)
        return;
    if ((mode->dmFields & DM_ORIENTATION) != 0) {
        mode->dmOrientation = across ? DMORIENT_LANDSCAPE : DMORIENT_PORTRAIT;
        ::ResetDCW(printer.device.get(), mode);
    }
    ::GlobalUnlock(printer.mode.get());
}

void checkPrinting(int result, std::u16string_view title) {
    if (result > 0)
        return;
    std::u16string description = u"The drawing cannot be printed: ";
    description += title;
    throw automation::Error(kPrinterError, std::move(description), u"Drawing export");
}

}  // namespace

void drawOnPage(HDC device, ui::Size drawing, const ui::DrawingExport::Painter& painter,
                DrawingTools& tools) {
    const auto caps = [device](int what) { return static_cast<double>(::GetDeviceCaps(device, what)); };
    const double width = std::max(1, drawing.width.value), height = std::max(1, drawing.height.value);
    const double share = std::min({1.0, caps(HORZRES) / (width * caps(LOGPIXELSX) / ui::kTwipsPerInch),
                                   caps(VERTRES) / (height * caps(LOGPIXELSY) / ui::kTwipsPerInch)});
    const auto side = [share](double twips, double dpi) {
        return std::max(1, ui::CanvasMapping::rounded(twips * share * dpi / ui::kTwipsPerInch));
    };
    const int across = side(width, caps(LOGPIXELSX)), down = side(height, caps(LOGPIXELSY));
    const int saved = ::SaveDC(device);
    ::SetMapMode(device, MM_ANISOTROPIC);
    ::SetWindowExtEx(device, static_cast<int>(width), static_cast<int>(height), nullptr);
    ::SetViewportExtEx(device, across, down, nullptr);
    ::SetViewportOrgEx(device, (static_cast<int>(caps(HORZRES)) - across) / 2,
                       (static_cast<int>(caps(VERTRES)) - down) / 2, nullptr);
    CanvasTools canvasTools(tools);
    {
        GdiCanvas canvas(device, canvasTools);
        painter(canvas);
    }
    ::RestoreDC(device, saved);
}

bool WindowsDrawingExport::print(std::u16string_view title, ui::Size drawing, const Painter& painter,
                                 ui::Form* owner) {
    const auto services = desktop_.services();
    const NativeScope scope(services->controls);
    const HWND window = owner != nullptr ? handleOf(*owner) : nullptr;
    const Printer printer = choosePrinter(window != nullptr ? window : ::GetActiveWindow());
    if (!printer.device)
        return false;
    turnPage(printer, drawing.width > drawing.height);
    const std::u16string name = shownLine(title, kMostTitleUnits);
    DOCINFOW document{};
    document.cbSize = sizeof(document);
    document.lpszDocName = wide(name);
    checkPrinting(::StartDocW(printer.device.get(), &document), title);
    try {
        checkPrinting(::StartPage(printer.device.get()), title);
        drawOnPage(printer.device.get(), drawing, painter, services->tools);
        checkPrinting(::EndPage(printer.device.get()), title);
    } catch (...) {
        ::AbortDoc(printer.device.get());
        throw;
    }
    checkPrinting(::EndDoc(printer.device.get()), title);
    return true;
}

}  // namespace quorel::win32
