#pragma once

#include "platform/ui/picture_objects.h"

namespace quorel::win32 {

/// The platform's standard pictures, made by its own loader; those of kinds that it does not read are decoded
/// first. What can be seen through in these is white.
class WindowsPictureObjects final : public ui::PictureObjects {
  public:
    [[nodiscard]] automation::Object makePicture(const ui::PictureFile& content) override;
};

}  // namespace quorel::win32
