// Drawings as files.

#include "platform/win32/ui/windows_drawing_export.h"

#include <objbase.h>
#include <wincodec.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <ostream>
#include <vector>

#include "platform/automation/error.h"
#include "platform/shell/whole_file.h"
#include "platform/win32/com/com_ptr.h"
#include "platform/win32/system_error.h"
#include "platform/win32/ui/com_scope.h"
#include "platform/win32/ui/gdi_canvas.h"
#include "platform/win32/ui/native_scope.h"
#include "platform/win32/ui/pictures.h"
#include "platform/win32/ui/services.h"
#include "platform/win32/ui/surface_canvas.h"

namespace quorel::win32 {

namespace {

/// So many pixels of a picture are held at a time.
constexpr std::int32_t kBandPixels = 8'000'000;
constexpr ui::Colour kWhite{255, 255, 255};
constexpr double kHundredthsOfAMillimetre = 2540;

using Bytes = std::vector<std::uint8_t>;

void replace(std::u16string_view path, const Bytes& bytes) {
    const bool replaced = shell::replaceFile(std::filesystem::path(path), [&bytes](std::ostream& out) {
        out.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    });
    if (replaced)
        return;
    std::u16string description = u"The drawing cannot be written to ";
    description += path;
    throw automation::Error(automation::error_number::kPathFileAccess, std::move(description),
                            u"Drawing export");
}

void check(HRESULT result) {
    if (FAILED(result))
        throw errorFromStatus(result, u"Drawing export");
}

/// A stream in memory, and what was written to it.
class MemoryStream {
  public:
    MemoryStream() { check(::CreateStreamOnHGlobal(nullptr, TRUE, stream_.out())); }
    [[nodiscard]] IStream* get() const noexcept { return stream_.get(); }
    [[nodiscard]] Bytes bytes() const {
        STATSTG status{};
        check(stream_->Stat(&status, STATFLAG_NONAME));
        Bytes bytes(static_cast<std::size_t>(status.cbSize.QuadPart));
        const LARGE_INTEGER start{};
        check(stream_->Seek(start, STREAM_SEEK_SET, nullptr));
        ULONG read = 0;
        check(stream_->Read(bytes.data(), static_cast<ULONG>(bytes.size()), &read));
        bytes.resize(read);
        return bytes;
    }

  private:
    ComPtr<IStream> stream_;
};

/// Takes a picture from its top to its bottom.
class PngEncoder {
  public:
    PngEncoder(std::int32_t width, std::int32_t height, double dpi) : width_(width) {
        ComPtr<IWICImagingFactory> factory;
        check(::CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                 IID_IWICImagingFactory, factory.outVoid()));
        check(factory->CreateEncoder(GUID_ContainerFormatPng, nullptr, encoder_.out()));
        check(encoder_->Initialize(stream_.get(), WICBitmapEncoderNoCache));
        ComPtr<IPropertyBag2> options;
        check(encoder_->CreateNewFrame(frame_.out(), options.out()));
        check(frame_->Initialize(options.get()));
        check(frame_->SetSize(static_cast<UINT>(width), static_cast<UINT>(height)));
        check(frame_->SetResolution(dpi, dpi));
        WICPixelFormatGUID format = GUID_WICPixelFormat24bppBGR;
        check(frame_->SetPixelFormat(&format));
        check(format == GUID_WICPixelFormat24bppBGR ? S_OK : E_FAIL);
    }

    void addRows(const ui::PixelSurface& surface, std::int32_t rows) {
        rows_.clear();
        rows_.reserve(static_cast<std::size_t>(width_) * static_cast<std::size_t>(rows) * 3);
        for (std::int32_t y = 0; y < rows; ++y) {
            const std::uint32_t* const row = surface.pixels + static_cast<std::ptrdiff_t>(y) * surface.width;
            std::for_each(row, row + width_, [this](std::uint32_t pixel) {
                for (const int shift : {0, 8, 16})
                    rows_.push_back(static_cast<std::uint8_t>(pixel >> shift));
            });
        }
        check(frame_->WritePixels(static_cast<UINT>(rows), static_cast<UINT>(width_) * 3,
                                  static_cast<UINT>(rows_.size()), rows_.data()));
    }

    [[nodiscard]] Bytes finish() {
        check(frame_->Commit());
        check(encoder_->Commit());
        return stream_.bytes();
    }

  private:
    std::int32_t width_;
    MemoryStream stream_;
    ComPtr<IWICBitmapEncoder> encoder_;
    ComPtr<IWICBitmapFrameEncode> frame_;
    Bytes rows_;
};

/// Being recorded; ended in any case.
class MetafileRecording {
  public:
    explicit MetafileRecording(ui::Size drawing) {
        const auto hundredths = [](ui::Twips length) {
            return static_cast<LONG>(
                std::lround(length.value * kHundredthsOfAMillimetre / ui::kTwipsPerInch));
        };
        const RECT frame{0, 0, hundredths(drawing.width), hundredths(drawing.height)};
        dc_ = ::CreateEnhMetaFileW(nullptr, nullptr, &frame, nullptr);
        if (dc_ == nullptr)
            throwLastError(u"CreateEnhMetaFile");
        // The file counts in pixels of the screen, as many a millimetre as that says it has.
        const auto pixels = [this](LONG frameSide, int resolution, int size) {
            return std::max(1, ::MulDiv(frameSide, ::GetDeviceCaps(dc_, resolution),
                                        100 * std::max(1, ::GetDeviceCaps(dc_, size))));
        };
        ::SetMapMode(dc_, MM_ANISOTROPIC);
        ::SetWindowExtEx(dc_, std::max(1, drawing.width.value), std::max(1, drawing.height.value), nullptr);
        ::SetViewportExtEx(dc_, pixels(frame.right, HORZRES, HORZSIZE),
                           pixels(frame.bottom, VERTRES, VERTSIZE), nullptr);
    }
    ~MetafileRecording() { static_cast<void>(end()); }
    MetafileRecording(const MetafileRecording&) = delete;
    MetafileRecording& operator=(const MetafileRecording&) = delete;

    [[nodiscard]] HDC dc() const noexcept { return dc_; }
    [[nodiscard]] EnhancedMetafile end() noexcept {
        const HDC dc = std::exchange(dc_, nullptr);
        return EnhancedMetafile(dc != nullptr ? ::CloseEnhMetaFile(dc) : nullptr);
    }

  private:
    HDC dc_ = nullptr;
};

[[nodiscard]] Bytes bytesOf(HENHMETAFILE file) {
    Bytes bytes(file != nullptr ? ::GetEnhMetaFileBits(file, 0, nullptr) : 0);
    if (bytes.empty() ||
        ::GetEnhMetaFileBits(file, static_cast<UINT>(bytes.size()), bytes.data()) != bytes.size())
        throwLastError(u"GetEnhMetaFileBits");
    return bytes;
}

[[nodiscard]] std::int32_t pixelsOf(ui::Twips length, double dpi, std::int32_t most) {
    const double pixels = std::round(length.value * dpi / ui::kTwipsPerInch);
    return static_cast<std::int32_t>(std::clamp(pixels, 1.0, static_cast<double>(most)));
}

}  // namespace

double WindowsDrawingExport::writePng(std::u16string_view path, ui::Size drawing, std::int32_t dpi,
                                      const Painter& painter) {
    const NativeScope scope(desktop_.services()->controls);
    const ComScope com;
    const double used = ui::exportResolution(drawing, dpi);
    const std::int32_t width = pixelsOf(drawing.width, used, kMostPixelsASide);
    const std::int32_t height = pixelsOf(drawing.height, used, kMostPixelsASide);
    const std::int32_t bandHeight = std::clamp(kBandPixels / width, 1, height);
    CanvasTools tools(desktop_.services()->tools);
    DrawingSurface band(width, bandHeight);
    PngEncoder encoder(width, height, used);
    for (std::int32_t top = 0; top < height; top += bandHeight) {
        const ui::PixelRect bounds{0, 0, width, std::min(bandHeight, height - top)};
        ui::fillArea(band.pixels(), bounds, bounds, kWhite);
        SurfaceCanvas canvas(
            band, tools, ui::CanvasMapping(used / ui::kTwipsPerInch, {0, -static_cast<double>(top)}), bounds);
        painter(canvas);
        ::GdiFlush();
        encoder.addRows(band.pixels(), bounds.bottom);
    }
    replace(path, encoder.finish());
    return used;
}

void WindowsDrawingExport::writeEmf(std::u16string_view path, ui::Size drawing, const Painter& painter) {
    const NativeScope scope(desktop_.services()->controls);
    CanvasTools tools(desktop_.services()->tools);
    MetafileRecording recording(drawing);
    {
        GdiCanvas canvas(recording.dc(), tools);
        painter(canvas);
    }
    const EnhancedMetafile file = recording.end();
    replace(path, bytesOf(file.get()));
}

}  // namespace quorel::win32
