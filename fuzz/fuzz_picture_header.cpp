// What a picture says of itself: any bytes are refused, or announce sizes that may be taken memory for.

#include "input.h"
#include "platform/automation/error.h"
#include "platform/ui/picture_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using quorel::fuzz::promise;
    try {
        const quorel::ui::PictureFile file = quorel::ui::checkPictureFile({data, data + size}, u"");
        promise(!file.frames.empty(), "a picture has a size");
        promise(file.bytes.size() == size, "the content is kept");
        for (const quorel::ui::PixelSize frame : file.frames)
            promise(frame.width > 0 && frame.height > 0 && frame.width <= quorel::ui::kLongestPictureSide &&
                        std::int64_t{frame.width} * frame.height <= quorel::ui::kMostPicturePixels,
                    "the size is one that is allowed");
    } catch (const quorel::automation::Error& error) {
        promise(error.number() == 481, "what is no picture is error 481");
    }
    return 0;
}
