#pragma once

#include "platform/automation/object.h"
#include "platform/ui/picture_file.h"

namespace quorel::ui {

/// Makes the objects that hosts of the platform know as pictures.
class PictureObjects {
  public:
    virtual ~PictureObjects() = default;
    /// A picture of a checked content; of several sizes the platform chooses one. Throws `automation::Error`
    /// when the content cannot be drawn.
    [[nodiscard]] virtual automation::Object makePicture(const PictureFile& content) = 0;
};

}  // namespace quorel::ui
