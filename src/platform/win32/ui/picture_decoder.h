#pragma once

#include <string_view>
#include <vector>

#include "platform/ui/picture.h"
#include "platform/ui/picture_file.h"

namespace quorel::win32 {

/// The pictures of a checked file, by the system's own decoders. Throws `automation::Error` 481, which names
/// `path`, when they find it damaged or to be larger than it announced.
[[nodiscard]] std::vector<ui::Picture> decodePicture(const ui::PictureFile& file, std::u16string_view path);

/// A metafile drawn on a transparent ground of that size; empty when the system cannot play it.
[[nodiscard]] ui::Picture drawMetafile(const ui::PictureFile& file, ui::PixelSize size);

}  // namespace quorel::win32
