#include "repository/sqlite/utf8.h"

#include "platform/automation/text.h"

namespace quorel::repository::sqlite {

namespace {

template <class Text>
bool isAscii(const Text& text) noexcept {
    unsigned all = 0;
    for (const auto unit : text)
        all |= static_cast<std::make_unsigned_t<decltype(static_cast<int>(unit))>>(unit);
    return (all & ~0x7FU) == 0;
}

}  // namespace

std::string stored(std::u16string_view text) {
    if (!isAscii(text))
        return automation::toUtf8(text);
    std::string bytes(text.size(), '\0');
    for (std::size_t i = 0; i < text.size(); ++i)
        bytes[i] = static_cast<char>(text[i]);
    return bytes;
}

std::u16string loaded(std::string_view bytes) {
    if (!isAscii(bytes))
        return automation::fromUtf8(bytes);
    return {bytes.begin(), bytes.end()};
}

}  // namespace quorel::repository::sqlite
