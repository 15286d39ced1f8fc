#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/automation/error.h"

namespace quorel::repository {

/// Run-time error numbers that only storage needs.
namespace error_number {
inline constexpr std::int32_t kDeviceIo = 57;
inline constexpr std::int32_t kFileAlreadyExists = 58;
inline constexpr std::int32_t kDiskFull = 61;
inline constexpr std::int32_t kPermissionDenied = 70;
inline constexpr std::int32_t kBadFileFormat = 321;
}  // namespace error_number

/// An `Error` whose source is this component.
[[nodiscard]] automation::Error failure(std::int32_t number, std::u16string description);

/// `name` between apostrophes, cut to a length that a message box can show.
[[nodiscard]] std::u16string inQuotes(std::u16string_view name);

}  // namespace quorel::repository
