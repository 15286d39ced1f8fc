#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/automation/value.h"

namespace quorel::repository {

struct PropertyRecord;

/// What a property holds. The numbers are stored in files.
enum class DataType : std::uint8_t {
    String = 0,
    Integer = 1,
    Double = 2,
    Boolean = 3,
    Date = 4,
    Enumeration = 5,
    Binary = 6,
    MultiLine = 7,  ///< a text of several lines
    Colour = 8,     ///< the platform's integer: blue, green, red from the highest byte
    File = 9,       ///< a file's name
    Directory = 10  ///< a folder's name
};

/// The largest number; a file with a larger one was made by a newer program.
inline constexpr std::int64_t kLastDataType = 10;

/// Whether values of the type are texts; how they are edited is all that tells such types apart.
[[nodiscard]] constexpr bool isText(DataType type) noexcept {
    return type == DataType::String || type == DataType::Enumeration || type == DataType::MultiLine ||
           type == DataType::File || type == DataType::Directory;
}

/// The name that `datatype` answers, e.g. "Enumeration".
[[nodiscard]] std::u16string_view dataTypeName(DataType type) noexcept;
/// Ignores case. Empty when there is no such data type.
[[nodiscard]] std::optional<DataType> dataTypeNamed(std::u16string_view name);
/// All names with commas between them, for messages.
[[nodiscard]] std::u16string dataTypeNames();

/// `value` as the property stores it: of exactly the property's type, or empty for Empty and Null, which
/// unset the property. Throws `Error` 13 naming property and type, 6 when a number does not fit.
[[nodiscard]] automation::Value coerced(const PropertyRecord& property, const automation::Value& value);

}  // namespace quorel::repository
