#include "platform/automation/text.h"

#include <array>
#include <charconv>

namespace quorel::automation {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

constexpr bool isHighSurrogate(char32_t unit) noexcept {
    return unit >= 0xD800 && unit < 0xDC00;
}
constexpr bool isLowSurrogate(char32_t unit) noexcept {
    return unit >= 0xDC00 && unit < 0xE000;
}

void appendUtf8(std::string& out, char32_t point) {
    const auto put = [&out](char32_t byte) { out.push_back(static_cast<char>(byte)); };
    if (point < 0x80) {
        put(point);
    } else if (point < 0x800) {
        put(0xC0 | (point >> 6));
        put(0x80 | (point & 0x3F));
    } else if (point < 0x10000) {
        put(0xE0 | (point >> 12));
        put(0x80 | ((point >> 6) & 0x3F));
        put(0x80 | (point & 0x3F));
    } else {
        put(0xF0 | (point >> 18));
        put(0x80 | ((point >> 12) & 0x3F));
        put(0x80 | ((point >> 6) & 0x3F));
        put(0x80 | (point & 0x3F));
    }
}

void appendUtf16(std::u16string& out, char32_t point) {
    if (point < 0x10000) {
        out.push_back(static_cast<char16_t>(point));
        return;
    }
    out.push_back(static_cast<char16_t>(0xD800 + ((point - 0x10000) >> 10)));
    out.push_back(static_cast<char16_t>(0xDC00 + ((point - 0x10000) & 0x3FF)));
}

struct Decoded {
    char32_t point = kReplacement;
    std::size_t length = 1;
};

/// One code point from the front of `bytes`; a malformed first byte is one replacement character.
Decoded decodeFront(std::string_view bytes) noexcept {
    const auto lead = static_cast<unsigned char>(bytes[0]);
    if (lead < 0x80)
        return {lead, 1};
    const std::size_t length = lead >= 0xC2 && lead < 0xE0   ? 2
                               : lead >= 0xE0 && lead < 0xF0 ? 3
                               : lead >= 0xF0 && lead < 0xF5 ? 4
                                                             : 0;
    if (length == 0 || bytes.size() < length)
        return {};
    char32_t point = lead & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
        const auto byte = static_cast<unsigned char>(bytes[i]);
        if ((byte & 0xC0U) != 0x80)
            return {};
        point = (point << 6) | (byte & 0x3FU);
    }
    constexpr std::array<char32_t, 5> kLeast{0, 0, 0x80, 0x800, 0x10000};
    if (point < kLeast[length] || point > 0x10FFFF)
        return {};
    return {point, length};
}

/// Letters whose lower-case form is a fixed distance away. `stride` 2: capitals and small letters alternate
/// and the capital comes first.
struct CaseRange {
    char16_t first, last;
    std::int32_t distance;
    std::int32_t stride;
};

constexpr std::array kCaseRanges{
    CaseRange{0x00C0, 0x00D6, 32, 1},   CaseRange{0x00D8, 0x00DE, 32, 1}, CaseRange{0x0100, 0x012E, 1, 2},
    CaseRange{0x0132, 0x0136, 1, 2},    CaseRange{0x0139, 0x0147, 1, 2},  CaseRange{0x014A, 0x0176, 1, 2},
    CaseRange{0x0178, 0x0178, -121, 1}, CaseRange{0x0179, 0x017D, 1, 2},  CaseRange{0x0218, 0x021E, 1, 2},
    CaseRange{0x0386, 0x0386, 38, 1},   CaseRange{0x0388, 0x038A, 37, 1}, CaseRange{0x038C, 0x038C, 64, 1},
    CaseRange{0x038E, 0x038F, 63, 1},   CaseRange{0x0391, 0x03A1, 32, 1}, CaseRange{0x03A3, 0x03AB, 32, 1},
    CaseRange{0x0400, 0x040F, 80, 1},   CaseRange{0x0410, 0x042F, 32, 1}, CaseRange{0x0460, 0x0480, 1, 2},
    CaseRange{0x048A, 0x04BE, 1, 2},    CaseRange{0x04D0, 0x052E, 1, 2},  CaseRange{0x0531, 0x0556, 48, 1},
    CaseRange{0x1E00, 0x1E94, 1, 2},    CaseRange{0x1EA0, 0x1EFE, 1, 2},  CaseRange{0x2160, 0x216F, 16, 1},
    CaseRange{0x24B6, 0x24CF, 26, 1},   CaseRange{0xFF21, 0xFF3A, 32, 1},
};

char16_t foldUnit(char16_t unit) noexcept {
    if (unit < 0x80)
        return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + 32) : unit;
    for (const CaseRange& range : kCaseRanges) {
        if (unit < range.first)
            break;
        if (unit <= range.last && (unit - range.first) % range.stride == 0)
            return static_cast<char16_t>(unit + range.distance);
    }
    return unit;
}

char16_t capitalOf(char16_t unit) noexcept {
    if (unit < 0x80)
        return unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - 32) : unit;
    for (const CaseRange& range : kCaseRanges) {
        const std::int32_t capital = unit - range.distance;
        if (capital >= range.first && capital <= range.last && (capital - range.first) % range.stride == 0)
            return static_cast<char16_t>(capital);
    }
    return unit;
}

}  // namespace

std::string toUtf8(std::u16string_view text) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t point = text[i];
        if (isHighSurrogate(point) && i + 1 < text.size() && isLowSurrogate(text[i + 1]))
            point = 0x10000 + ((point - 0xD800) << 10) + (text[++i] - 0xDC00U);
        appendUtf8(out, point);
    }
    return out;
}

std::u16string fromUtf8(std::string_view text) {
    std::u16string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        const Decoded decoded = decodeFront(text.substr(i));
        appendUtf16(out, decoded.point);
        i += decoded.length;
    }
    return out;
}

bool equalsIgnoringCase(std::u16string_view a, std::u16string_view b) noexcept {
    if (a.size() != b.size())
        return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (a[i] != b[i] && foldUnit(a[i]) != foldUnit(b[i]))
            return false;
    return true;
}

std::u16string foldCase(std::u16string_view text) {
    std::u16string folded(text);
    for (char16_t& unit : folded)
        unit = foldUnit(unit);
    return folded;
}

void makeUpperCase(std::u16string& text) noexcept {
    for (char16_t& unit : text)
        unit = capitalOf(unit);
}

std::size_t FoldedHash::operator()(std::u16string_view name) const noexcept {
    std::uint64_t hash = 0xCBF29CE484222325U;
    for (const char16_t unit : name)
        hash = (hash ^ foldUnit(unit)) * 0x100000001B3U;
    return static_cast<std::size_t>(hash ^ (hash >> 32));
}

std::u16string decimal(std::int64_t number) {
    std::array<char, 24> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    return {digits.data(), end};
}

}  // namespace quorel::automation
