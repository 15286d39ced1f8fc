#include "repository/import/json_text.h"

#include <array>
#include <charconv>
#include <optional>

#include "platform/automation/text.h"

namespace quorel::repository {

namespace {

constexpr std::string_view kMarker = "\xF4\x8F\xBF\xBF";
constexpr std::u16string_view kWideMarker = u"\xDBFF\xDFFF";
constexpr std::string_view kMarkerItself = "FFFF";
constexpr std::size_t kEscapeLength = 6;  // backslash, u, four digits

bool isHigh(unsigned unit) noexcept {
    return unit >= 0xD800 && unit < 0xDC00;
}
bool isLow(unsigned unit) noexcept {
    return unit >= 0xDC00 && unit < 0xE000;
}

void appendHex(std::string& out, unsigned unit) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    for (int shift = 12; shift >= 0; shift -= 4)
        out.push_back(kDigits[(unit >> static_cast<unsigned>(shift)) & 0xFU]);
}

void appendEscape(std::string& out, char16_t unit) {
    switch (unit) {
        case u'"':
            out.append("\\\"");
            break;
        case u'\\':
            out.append("\\\\");
            break;
        case u'\n':
            out.append("\\n");
            break;
        case u'\r':
            out.append("\\r");
            break;
        case u'\t':
            out.append("\\t");
            break;
        default:
            out.append("\\u");
            appendHex(out, unit);
    }
}

/// The unit of an escape such as \uD800 at the front of the text.
std::optional<unsigned> escapedUnit(std::string_view text) noexcept {
    if (text.size() < kEscapeLength || text[0] != '\\' || text[1] != 'u')
        return std::nullopt;
    unsigned unit = 0;
    const auto [stopped, failed] = std::from_chars(text.data() + 2, text.data() + kEscapeLength, unit, 16);
    if (failed != std::errc() || stopped != text.data() + kEscapeLength)
        return std::nullopt;
    return unit;
}

/// Writes what stands for the escape at the front of `text` and returns its length.
std::size_t sealEscape(std::string& out, std::string_view text) {
    const std::optional<unsigned> unit = escapedUnit(text);
    if (!unit || (!isHigh(*unit) && !isLow(*unit))) {
        const std::size_t length = std::min<std::size_t>(2, text.size());
        out.append(text.substr(0, length));
        return length;
    }
    const std::optional<unsigned> next = escapedUnit(text.substr(kEscapeLength));
    if (isHigh(*unit) && next && isLow(*next)) {
        const bool isMarker = *unit == 0xDBFF && *next == 0xDFFF;
        out.append(isMarker ? kMarker : text.substr(0, 2 * kEscapeLength));
        out.append(isMarker ? kMarkerItself : std::string_view());
        return 2 * kEscapeLength;
    }
    out.append(kMarker);
    appendHex(out, *unit);
    return kEscapeLength;
}

}  // namespace

std::string jsonQuoted(std::u16string_view text) {
    std::string out = "\"";
    std::size_t plain = 0;
    const auto flush = [&](std::size_t end) {
        out.append(automation::toUtf8(text.substr(plain, end - plain)));
    };
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i];
        const bool isPair = isHigh(unit) && i + 1 < text.size() && isLow(text[i + 1]);
        const bool isEscaped = unit < 0x20 || unit == u'"' || unit == u'\\' || isHigh(unit) || isLow(unit);
        if (isPair) {
            ++i;
        } else if (isEscaped) {
            flush(i);
            appendEscape(out, unit);
            plain = i + 1;
        }
    }
    flush(text.size());
    return out.append("\"");
}

std::string sealSurrogates(std::string_view json) {
    if (json.find("\\u") == std::string_view::npos && json.find(kMarker) == std::string_view::npos)
        return std::string(json);
    std::string out;
    out.reserve(json.size());
    for (std::size_t i = 0; i < json.size();) {
        if (json[i] == '\\') {
            i += sealEscape(out, json.substr(i));
        } else if (json.substr(i).starts_with(kMarker)) {
            out.append(kMarker).append(kMarkerItself);
            i += kMarker.size();
        } else {
            out.push_back(json[i++]);
        }
    }
    return out;
}

std::u16string unsealed(std::string_view text) {
    const std::u16string wide = automation::fromUtf8(text);
    std::size_t marker = wide.find(kWideMarker);
    if (marker == std::u16string::npos)
        return wide;
    std::u16string out;
    std::size_t start = 0;
    for (; marker != std::u16string::npos; marker = wide.find(kWideMarker, start)) {
        out.append(wide, start, marker - start);
        unsigned unit = 0;
        for (std::size_t i = 0; i < 4; ++i) {
            const char16_t digit = wide.at(marker + 2 + i);
            unit = unit * 16 + (digit <= u'9' ? digit - u'0' : digit - u'A' + 10U);
        }
        unit == 0xFFFF ? out.append(kWideMarker) : out.append(1, static_cast<char16_t>(unit));
        start = marker + 2 + 4;
    }
    return out.append(wide, start);
}

}  // namespace quorel::repository
