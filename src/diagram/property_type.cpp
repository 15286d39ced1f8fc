#include "diagram/property_type.h"

#include <optional>
#include <string_view>

namespace quorel::diagram {

using automation::Value;

namespace {

/// The platform's numbers of types, in the words that repositories use.
[[nodiscard]] std::u16string_view variantType(double number) noexcept {
    if (number == 2 || number == 3 || number == 20)
        return u"Integer";
    if (number == 4 || number == 5)
        return u"Double";
    if (number == 6)
        return u"Currency";
    if (number == 7)
        return u"Date";
    if (number == 8)
        return u"String";
    if (number == 11)
        return u"Boolean";
    if (number == 17)
        return u"Byte";
    if (number == 8192 + 17)
        return u"Binary";
    return {};
}

[[nodiscard]] std::optional<double> numberIn(const Value& value) noexcept {
    if (const auto* integer = value.getIf<std::int32_t>())
        return *integer;
    if (const auto* real = value.getIf<double>())
        return *real;
    return std::nullopt;
}

}  // namespace

std::u16string propertyType(const std::u16string& typeName, const Value& dataType) {
    if (const auto text = dataType.text(); text && !text->empty())
        return std::u16string(*text);
    if (const auto number = numberIn(dataType)) {
        if (const std::u16string_view word = variantType(*number); !word.empty())
            return std::u16string(word);
    }
    return typeName;
}

}  // namespace quorel::diagram
