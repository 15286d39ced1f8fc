#include "platform/ui/access_key.h"

namespace quorel::ui {

namespace {
constexpr char16_t kMark = u'&';
}

std::optional<char16_t> accessKey(std::u16string_view caption) noexcept {
    std::optional<char16_t> result;
    for (std::size_t i = 0; i + 1 < caption.size(); ++i) {
        if (caption[i] != kMark)
            continue;
        ++i;
        if (caption[i] != kMark)
            result = caption[i];
    }
    if (result && *result >= u'a' && *result <= u'z')
        *result = static_cast<char16_t>(*result - u'a' + u'A');
    return result;
}

std::u16string withoutAccessKey(std::u16string_view caption) {
    std::u16string result;
    result.reserve(caption.size());
    for (std::size_t i = 0; i < caption.size(); ++i) {
        if (caption[i] == kMark && i + 1 < caption.size())
            ++i;
        else if (caption[i] == kMark)
            break;
        result += caption[i];
    }
    return result;
}

std::u16string escapedForCaption(std::u16string_view text) {
    std::u16string result;
    result.reserve(text.size());
    for (const char16_t unit : text) {
        if (unit == kMark)
            result += kMark;
        result += unit;
    }
    return result;
}

}  // namespace quorel::ui
