// `setAsString`: every way of decoding gives the same bytes, and these have the text they came from where it
// was one of digits.

#include <vector>

#include "frame/blob_text.h"
#include "frame/hex_codec.h"
#include "input.h"
#include "platform/automation/error.h"
#include "platform/automation/text.h"

using quorel::automation::Bytes;
using quorel::automation::Value;
using quorel::frame::HexCode;
using quorel::fuzz::promise;

namespace {

void compareWays(const std::u16string& text, const std::vector<std::uint8_t>& bytes) {
    for (const HexCode code : {HexCode::Plain, HexCode::Ssse3, HexCode::Avx2, HexCode::Avx512}) {
        if (!quorel::frame::isAvailable(code))
            continue;
        std::vector<std::uint8_t> decoded((text.size() + 1) / 2);
        quorel::frame::decodeHex(text, decoded.data(), code);
        promise(decoded == bytes, "all ways give the same bytes");
        std::u16string encoded(bytes.size() * 2, u' ');
        quorel::frame::encodeHex(bytes, encoded.data(), code);
        promise(encoded == quorel::frame::hexText(Bytes{bytes}), "all ways give the same text");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::u16string text = quorel::fuzz::textOf(data, size);
    Value value(7);
    try {
        quorel::frame::parseHexText(text, value);
    } catch (const quorel::automation::Error&) {
        promise(text.size() % 4 == 3 && value.toInteger() == 7, "only such lengths fail, and change nothing");
        return 0;
    }
    const Bytes* const bytes = value.getIf<Bytes>();
    promise((bytes == nullptr) == text.empty(), "an empty text makes no array");
    if (bytes == nullptr)
        return 0;
    compareWays(text, bytes->data);
    const bool digitsOnly =
        std::u16string_view(text).find_first_not_of(u"0123456789ABCDEFabcdef") == text.npos;
    quorel::automation::makeUpperCase(text);
    if (digitsOnly && text.size() % 2 == 0)
        promise(quorel::frame::hexText(value) == text, "digits come back as they were");
    return 0;
}
