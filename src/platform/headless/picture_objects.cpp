#include "platform/headless/picture_objects.h"

namespace quorel::headless {

namespace {

[[nodiscard]] std::int32_t inHimetric(std::int32_t pixels) noexcept {
    return static_cast<std::int32_t>(std::int64_t{pixels} * 2540 / 96);
}

}  // namespace

const automation::ClassTable& PictureObject::classTable() const {
    static const automation::ClassTable table = automation::ClassTable::of<PictureObject>(u"Picture")
                                                    .readOnly(u"Type", &PictureObject::Type)
                                                    .readOnly(u"Width", &PictureObject::Width)
                                                    .readOnly(u"Height", &PictureObject::Height);
    return table;
}

std::int32_t PictureObject::Type() const noexcept {
    switch (kind_) {
        case ui::PictureKind::Icon:
            return 3;
        case ui::PictureKind::Metafile:
            return 2;
        case ui::PictureKind::EnhancedMetafile:
            return 4;
        default:
            return 1;
    }
}

std::int32_t PictureObject::Width() const noexcept {
    return inHimetric(size_.width);
}

std::int32_t PictureObject::Height() const noexcept {
    return inHimetric(size_.height);
}

}  // namespace quorel::headless
