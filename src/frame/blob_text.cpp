#include "frame/blob_text.h"

#include <limits>

#include "frame/hex_codec.h"
#include "platform/automation/error.h"
#include "platform/automation/text.h"

namespace quorel::frame {

using automation::Array;
using automation::Bytes;
using automation::Error;
using automation::Value;
namespace numbers = automation::error_number;

namespace {

constexpr std::int64_t kMost = std::numeric_limits<std::int32_t>::max();

/// As many blanks as an array with these bounds has room for.
[[nodiscard]] std::u16string blanks(std::size_t count, std::int32_t lowerBound) {
    const std::int64_t length = (static_cast<std::int64_t>(count) + lowerBound) * 2;
    if (length > kMost)
        throw Error(numbers::kOverflow);
    if (length < static_cast<std::int64_t>(count) * 2)
        throw Error(numbers::kInvalidCall);
    return std::u16string(static_cast<std::size_t>(length), u' ');
}

/// The first two digits of a number that has at least that many.
[[nodiscard]] std::uint8_t leadingByte(std::int32_t number) noexcept {
    if (number < 0)
        return 0x0F;  // less than 16, so a "0" comes before its eight digits
    while (number > 0xFF)
        number >>= 4;
    return static_cast<std::uint8_t>(number);
}

}  // namespace

bool isArray(const Value& value) noexcept {
    return value.kind() == automation::ValueKind::Bytes || value.kind() == automation::ValueKind::Array;
}

std::u16string hexText(const Value& array) {
    if (const auto* const bytes = array.getIf<Bytes>()) {
        std::u16string text = blanks(bytes->data.size(), bytes->lowerBound);
        encodeHex(bytes->data, text.data());
        return text;
    }
    const auto* const values = array.getIf<Array>();
    if (values == nullptr)
        return {};
    std::vector<std::uint8_t> bytes;
    bytes.reserve(values->items.size());
    for (const Value& item : values->items)
        bytes.push_back(leadingByte(item.toInteger()));
    std::u16string text = blanks(bytes.size(), values->lowerBound);
    encodeHex(bytes, text.data());
    return text;
}

void parseHexText(std::u16string_view text, Value& array) {
    if (text.empty())
        return;
    // Half the length, less one, is rounded to the even neighbour: that is too little for every other odd
    // length.
    if (text.size() % 4 == 3)
        throw Error(numbers::kSubscriptOutOfRange);
    Bytes bytes;
    bytes.data.resize((text.size() + 1) / 2);
    decodeHex(text, bytes.data.data());
    array = std::move(bytes);
}

std::int32_t parseHexNumber(std::u16string& text) {
    automation::makeUpperCase(text);
    std::int64_t number = 0;
    int digit = 0;
    for (const char16_t unit : text) {
        if (const int value = hexDigit(unit); value >= 0)
            digit = value;
        number = number * 16 + digit;
        if (number > kMost)
            throw Error(numbers::kOverflow);
    }
    return static_cast<std::int32_t>(number);
}

ArrayBytes::ArrayBytes(const Value& array) {
    if (const auto* const bytes = array.getIf<Bytes>()) {
        view_ = bytes->data;
        return;
    }
    const auto* const values = array.getIf<Array>();
    if (values == nullptr)
        throw Error(numbers::kTypeMismatch);
    converted_.reserve(values->items.size());
    for (const Value& item : values->items) {
        const std::int32_t number = item.toInteger();
        if (number < 0 || number > 0xFF)
            throw Error(numbers::kOverflow);
        converted_.push_back(static_cast<std::uint8_t>(number));
    }
    view_ = converted_;
}

}  // namespace quorel::frame
