#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <utility>

namespace quorel::automation {

/// Text in a buffer that somebody else made, e.g. the platform, and that only a function of theirs can free:
/// taken over as it is. A copy has a buffer of its own.
class AdoptedText {
  public:
    /// Frees a buffer; is never called with null.
    using Release = void (*)(char16_t* buffer) noexcept;

    /// Takes over `buffer`, which holds `size` units; null stands for the empty text.
    AdoptedText(char16_t* buffer, std::size_t size, Release release) noexcept
        : buffer_(buffer), size_(size), release_(release) {}
    AdoptedText(const AdoptedText& other) : release_(freeCopy) {
        if (other.size_ == 0)
            return;
        buffer_ = new char16_t[other.size_];
        size_ = other.size_;
        std::copy_n(other.buffer_, size_, buffer_);
    }
    AdoptedText(AdoptedText&& other) noexcept
        : buffer_(std::exchange(other.buffer_, nullptr)),
          size_(std::exchange(other.size_, 0)),
          release_(other.release_) {}
    AdoptedText& operator=(AdoptedText other) noexcept {
        std::swap(buffer_, other.buffer_);
        std::swap(size_, other.size_);
        std::swap(release_, other.release_);
        return *this;
    }
    ~AdoptedText() {
        if (buffer_ != nullptr)
            release_(buffer_);
    }

    [[nodiscard]] std::u16string_view view() const noexcept { return {buffer_, size_}; }

    /// Gives the buffer back to the one that frees with `release`; null if it is another's, or there is none.
    [[nodiscard]] char16_t* handOver(Release release) noexcept {
        if (release_ != release)
            return nullptr;
        size_ = 0;
        return std::exchange(buffer_, nullptr);
    }

  private:
    static void freeCopy(char16_t* buffer) noexcept { delete[] buffer; }

    char16_t* buffer_ = nullptr;
    std::size_t size_ = 0;
    Release release_;
};

}  // namespace quorel::automation
