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
    std::string bytes;
    storedIn(bytes, text);
    return bytes;
}

const std::string& storedIn(std::string& buffer, std::u16string_view text) {
    if (!isAscii(text))
        return buffer = automation::toUtf8(text);
    buffer.resize(text.size());
    for (std::size_t i = 0; i < text.size(); ++i)
        buffer[i] = static_cast<char>(text[i]);
    return buffer;
}

std::u16string loaded(std::string_view bytes) {
    if (!isAscii(bytes))
        return automation::fromUtf8(bytes);
    return {bytes.begin(), bytes.end()};
}

}  // namespace quorel::repository::sqlite
