#include "platform/win32/ui/picture_decoder.h"

#include <objbase.h>
#include <wincodec.h>
#include <windows.h>

#include <utility>

#include "platform/win32/com/com_ptr.h"
#include "platform/win32/ui/com_scope.h"

namespace quorel::win32 {

namespace {

void check(HRESULT result, std::u16string_view path) {
    if (FAILED(result))
        ui::refusePicture(path, u"the file is damaged");
}

[[nodiscard]] ui::Picture pixelsOf(IWICBitmapFrameDecode& frame, std::u16string_view path) {
    UINT width = 0, height = 0;
    check(frame.GetSize(&width, &height), path);
    if (width == 0 || height == 0 || width > static_cast<UINT>(ui::kLongestPictureSide) ||
        height > static_cast<UINT>(ui::kLongestPictureSide) ||
        std::int64_t{width} * height > ui::kMostPicturePixels)
        ui::refusePicture(path, u"the picture is not what it announces");
    ComPtr<IWICBitmapSource> rgba;
    check(::WICConvertBitmapSource(GUID_WICPixelFormat32bppBGRA, &frame, rgba.out()), path);
    ui::Picture picture{static_cast<std::int32_t>(width), static_cast<std::int32_t>(height), {}};
    picture.rgba.resize(std::size_t{width} * height * 4);
    check(rgba->CopyPixels(nullptr, width * 4, static_cast<UINT>(picture.rgba.size()), picture.rgba.data()),
          path);
    for (std::size_t i = 0; i < picture.rgba.size(); i += 4)
        std::swap(picture.rgba[i], picture.rgba[i + 2]);
    return picture;
}

[[nodiscard]] std::vector<ui::Picture> decodeFrames(const ui::PictureFile& file, std::u16string_view path) {
    const ComScope com;
    ComPtr<IWICImagingFactory> factory;
    check(::CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER, IID_IWICImagingFactory,
                             factory.outVoid()),
          path);
    ComPtr<IWICStream> stream;
    check(factory->CreateStream(stream.out()), path);
    check(stream->InitializeFromMemory(const_cast<BYTE*>(file.bytes.data()),
                                       static_cast<DWORD>(file.bytes.size())),
          path);
    ComPtr<IWICBitmapDecoder> decoder;
    check(factory->CreateDecoderFromStream(stream.get(), nullptr, WICDecodeMetadataCacheOnDemand,
                                           decoder.out()),
          path);
    UINT count = 0;
    check(decoder->GetFrameCount(&count), path);
    std::vector<ui::Picture> frames;
    for (UINT i = 0; i < count; ++i) {
        ComPtr<IWICBitmapFrameDecode> frame;
        check(decoder->GetFrame(i, frame.out()), path);
        frames.push_back(pixelsOf(*frame.get(), path));
    }
    return frames;
}

}  // namespace

std::vector<ui::Picture> decodePicture(const ui::PictureFile& file, std::u16string_view path) {
    const bool drawn =
        file.kind == ui::PictureKind::Metafile || file.kind == ui::PictureKind::EnhancedMetafile;
    std::vector<ui::Picture> frames;
    if (!drawn)
        frames = decodeFrames(file, path);
    else
        for (const std::int32_t times : {1, 2}) {
            const ui::PixelSize size{file.frames[0].width * times, file.frames[0].height * times};
            const bool fits = size.width <= ui::kLongestPictureSide &&
                              size.height <= ui::kLongestPictureSide &&
                              std::int64_t{size.width} * size.height <= ui::kMostPicturePixels;
            if (fits)
                frames.push_back(drawMetafile(file, size));
        }
    if (frames.empty() || !ui::isWhole(frames.front()))
        ui::refusePicture(path, u"the file is damaged");
    return frames;
}

}  // namespace quorel::win32
