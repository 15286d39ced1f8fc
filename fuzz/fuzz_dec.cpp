// `Dec`: any text is a number or an overflow, and is in upper case afterwards.

#include "frame/blob_text.h"
#include "frame/hex_codec.h"
#include "input.h"
#include "platform/automation/error.h"
#include "platform/automation/text.h"

namespace {

/// Digit by digit; negative for an overflow.
std::int64_t expected(const std::u16string& text) {
    std::int64_t number = 0;
    int digit = 0;
    for (const char16_t unit : text) {
        digit = quorel::frame::hexDigit(unit) < 0 ? digit : quorel::frame::hexDigit(unit);
        number = number * 16 + digit;
        if (number > 0x7FFFFFFF)
            return -1;
    }
    return number;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using quorel::fuzz::promise;
    const std::u16string given = quorel::fuzz::textOf(data, size);
    std::u16string text = given;
    std::int64_t number = -1;
    try {
        number = quorel::frame::parseHexNumber(text);
    } catch (const quorel::automation::Error& error) {
        promise(error.number() == quorel::automation::error_number::kOverflow, "the error is an overflow");
    }
    promise(number == expected(given), "the number is that of the digits");
    promise(text.size() == given.size(), "the text keeps its length");
    promise(quorel::automation::foldCase(text) == quorel::automation::foldCase(given),
            "only the case has changed");
    return 0;
}
