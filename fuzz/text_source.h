#pragma once

#include <algorithm>
#include <cstring>
#include <string>
#include <utility>

#include "repository/import/line_reader.h"

namespace quorel::fuzz {

/// An input as a file.
class TextSource final : public repository::ByteSource {
  public:
    explicit TextSource(std::string text) : text_(std::move(text)) {}
    std::size_t read(char* buffer, std::size_t size) override {
        const std::size_t count = std::min(size, text_.size() - position_);
        std::memcpy(buffer, text_.data() + position_, count);
        position_ += count;
        return count;
    }

  private:
    std::string text_;
    std::size_t position_ = 0;
};

}  // namespace quorel::fuzz
