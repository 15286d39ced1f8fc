#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ui/picture.h"
#include "platform/ui/units.h"

namespace quorel::ui {

/// Pictures of one size, by keys whose case counts. Shared by the controls that show them, which follow when
/// a picture is added or replaced.
class ImageList {
  public:
    /// For the lines of lists and trees.
    static constexpr Size kSmall{{240}, {240}};
    /// For captions.
    static constexpr Size kBig{{480}, {480}};

    explicit ImageList(Size size = kSmall) : size_(size) {}
    ImageList(const ImageList&) = delete;
    ImageList& operator=(const ImageList&) = delete;

    [[nodiscard]] Size size() const noexcept { return size_; }
    /// Adds or replaces. `frames` are the same picture in one or several sizes.
    void set(std::u16string_view key, std::vector<Picture> frames);
    void set(std::u16string_view key, Picture picture) { set(key, std::vector{std::move(picture)}); }
    [[nodiscard]] std::size_t count() const noexcept { return entries_.size(); }
    /// Places are given in the order of first setting and stay.
    [[nodiscard]] std::optional<std::size_t> placeOf(std::u16string_view key) const noexcept;
    [[nodiscard]] const std::vector<Picture>& frames(std::size_t place) const {
        return entries_[place].frames;
    }
    /// The picture as it is shown at that resolution: scaled so that it just fits the list's size, in the
    /// middle of it. Empty when it has no frame that is whole.
    [[nodiscard]] Picture at(std::size_t place, std::int32_t dpi) const;

  private:
    friend class ImageUse;
    struct Entry {
        std::u16string key;
        std::vector<Picture> frames;
    };

    Size size_;
    std::vector<Entry> entries_;
    std::vector<std::function<void()>*> uses_;
};

/// A control's hold on an image list: tells it when a picture was added or replaced.
class ImageUse {
  public:
    explicit ImageUse(std::function<void()> changed) : changed_(std::move(changed)) {}
    ~ImageUse() { set(nullptr); }
    ImageUse(const ImageUse&) = delete;
    ImageUse& operator=(const ImageUse&) = delete;

    [[nodiscard]] const std::shared_ptr<ImageList>& list() const noexcept { return list_; }
    void set(std::shared_ptr<ImageList> list);

  private:
    std::function<void()> changed_;
    std::shared_ptr<ImageList> list_;
};

}  // namespace quorel::ui
