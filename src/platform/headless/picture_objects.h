#pragma once

#include "platform/automation/class_table.h"
#include "platform/automation/native_object.h"
#include "platform/ui/picture_objects.h"

namespace quorel::headless {

/// A picture as the platform's are, as far as that goes without drawing: `Type` (1 bitmap, 2 and 4 metafile,
/// 3 icon), `Width` and `Height` in hundredths of a millimetre at 96 dots per inch.
class PictureObject final : public automation::NativeObject {
  public:
    explicit PictureObject(const ui::PictureFile& content) noexcept
        : kind_(content.kind), size_(content.frames.front()) {}
    [[nodiscard]] const automation::ClassTable& classTable() const override;

    [[nodiscard]] std::int32_t Type() const noexcept;
    [[nodiscard]] std::int32_t Width() const noexcept;
    [[nodiscard]] std::int32_t Height() const noexcept;

  private:
    ui::PictureKind kind_;
    ui::PixelSize size_;
};

class PictureObjects final : public ui::PictureObjects {
  public:
    [[nodiscard]] automation::Object makePicture(const ui::PictureFile& content) override {
        return automation::make<PictureObject>(content);
    }
};

}  // namespace quorel::headless
