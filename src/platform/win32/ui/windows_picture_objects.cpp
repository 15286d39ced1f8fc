#include "platform/win32/ui/windows_picture_objects.h"

#include <objbase.h>
#include <windows.h>
// The platform's pictures are declared behind what they are made of.
#include <olectl.h>

#include <cstring>

#include "platform/ui/picture.h"
#include "platform/win32/com/bridge.h"
#include "platform/win32/com/com_ptr.h"
#include "platform/win32/ui/picture_decoder.h"
#include "platform/win32/unique.h"

namespace quorel::win32 {

namespace {

using OwnBitmap = Unique<HBITMAP, deleteObject>;

void checkPicture(HRESULT status) {
    if (FAILED(status))
        ui::refusePicture(u"", u"it cannot be loaded");
}

/// The stream frees the memory.
[[nodiscard]] ComPtr<IStream> streamOf(const std::vector<std::uint8_t>& bytes) {
    GlobalMemory memory(::GlobalAlloc(GMEM_MOVEABLE, bytes.size()));
    void* const place = memory ? ::GlobalLock(memory.get()) : nullptr;
    if (place == nullptr)
        throw std::bad_alloc();
    std::memcpy(place, bytes.data(), bytes.size());
    ::GlobalUnlock(memory.get());
    ComPtr<IStream> stream;
    checkPicture(::CreateStreamOnHGlobal(memory.get(), TRUE, stream.out()));
    static_cast<void>(memory.release());
    return stream;
}

/// On white.
[[nodiscard]] OwnBitmap bitmapOf(const ui::Picture& picture) {
    BITMAPINFO info{};
    info.bmiHeader = {sizeof(BITMAPINFOHEADER), picture.width, -picture.height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* pixels = nullptr;
    OwnBitmap bitmap(::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &pixels, nullptr, 0));
    if (!bitmap)
        throw std::bad_alloc();
    auto* out = static_cast<std::uint8_t*>(pixels);
    for (std::size_t i = 0; i < picture.rgba.size(); i += 4, out += 4) {
        const unsigned alpha = picture.rgba[i + 3];
        for (std::size_t colour = 0; colour < 3; ++colour)
            out[2 - colour] = static_cast<std::uint8_t>(
                (picture.rgba[i + colour] * alpha + 255 * (255 - alpha) + 127) / 255);
        out[3] = 0xFF;
    }
    return bitmap;
}

[[nodiscard]] ComPtr<IPicture> decoded(const ui::PictureFile& content) {
    OwnBitmap bitmap = bitmapOf(decodePicture(content, u"").front());
    PICTDESC description{};
    description.cbSizeofstruct = sizeof(description);
    description.picType = PICTYPE_BITMAP;
    description.bmp.hbitmap = bitmap.get();
    ComPtr<IPicture> picture;
    checkPicture(::OleCreatePictureIndirect(&description, __uuidof(IPicture), TRUE, picture.outVoid()));
    static_cast<void>(bitmap.release());
    return picture;
}

[[nodiscard]] ComPtr<IPicture> loaded(const ui::PictureFile& content) {
    const ComPtr<IStream> stream = streamOf(content.bytes);
    ComPtr<IPicture> picture;
    checkPicture(::OleLoadPicture(stream.get(), static_cast<LONG>(content.bytes.size()), FALSE,
                                  __uuidof(IPicture), picture.outVoid()));
    return picture;
}

}  // namespace

automation::Object WindowsPictureObjects::makePicture(const ui::PictureFile& content) {
    const ComPtr<IPicture> picture =
        content.kind == ui::PictureKind::Png ? decoded(content) : loaded(content);
    return fromDispatch(picture.as<IDispatch>().get());
}

}  // namespace quorel::win32
