#include "platform/ui/image_list.h"

#include <algorithm>
#include <utility>

namespace quorel::ui {

void ImageList::set(std::u16string_view key, std::vector<Picture> frames) {
    if (const auto place = placeOf(key))
        entries_[*place].frames = std::move(frames);
    else
        entries_.push_back({std::u16string(key), std::move(frames)});
    for (const std::function<void()>* const tell : uses_)
        (*tell)();
}

std::optional<std::size_t> ImageList::placeOf(std::u16string_view key) const noexcept {
    const auto found = std::find_if(entries_.begin(), entries_.end(),
                                    [key](const Entry& entry) { return entry.key == key; });
    return found != entries_.end() ? std::optional(static_cast<std::size_t>(found - entries_.begin()))
                                   : std::nullopt;
}

Picture ImageList::at(std::size_t place, std::int32_t dpi) const {
    return fitted(entries_[place].frames, toPixels(size_.width, dpi), toPixels(size_.height, dpi));
}

void ImageUse::set(std::shared_ptr<ImageList> list) {
    if (list_)
        std::erase(list_->uses_, &changed_);
    list_ = std::move(list);
    if (list_)
        list_->uses_.push_back(&changed_);
}

}  // namespace quorel::ui
