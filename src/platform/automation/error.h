#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>

namespace quorel::automation {

/// Run-time error numbers that hosts know from their languages (`Err.Number`).
namespace error_number {
inline constexpr std::int32_t kInvalidCall = 5;
inline constexpr std::int32_t kOverflow = 6;
inline constexpr std::int32_t kOutOfMemory = 7;
inline constexpr std::int32_t kSubscriptOutOfRange = 9;
inline constexpr std::int32_t kTypeMismatch = 13;
inline constexpr std::int32_t kInternal = 51;
inline constexpr std::int32_t kFileNotFound = 53;
inline constexpr std::int32_t kPathFileAccess = 75;
inline constexpr std::int32_t kObjectNotSet = 91;
inline constexpr std::int32_t kInvalidUseOfNull = 94;
inline constexpr std::int32_t kCannotCreateObject = 429;
inline constexpr std::int32_t kMemberNotSupported = 438;
inline constexpr std::int32_t kNamedArgumentNotFound = 448;
inline constexpr std::int32_t kArgumentNotOptional = 449;
inline constexpr std::int32_t kWrongArgumentCount = 450;
inline constexpr std::int32_t kNotACollection = 451;
inline constexpr std::int32_t kKeyAlreadyUsed = 457;
}  // namespace error_number

/// The automation error: what a host sees as `Err`. `number` is one of the constants above, or, where a
/// foreign object failed with a status code that is no run-time error, that 32-bit code unchanged.
class Error : public std::exception {
  public:
    Error(std::int32_t number, std::u16string description, std::u16string source = {});
    /// An error with the standard description of its number.
    explicit Error(std::int32_t number);

    [[nodiscard]] std::int32_t number() const noexcept { return number_; }
    [[nodiscard]] const std::u16string& description() const noexcept { return description_; }
    [[nodiscard]] const std::u16string& source() const noexcept { return source_; }
    /// The description in UTF-8, for test runners and terminals.
    [[nodiscard]] const char* what() const noexcept override { return what_.c_str(); }

  private:
    std::int32_t number_;
    std::u16string description_;
    std::u16string source_;
    std::string what_;
};

/// The platform's standard text of an error number, e.g. "Type mismatch"; for a number without one
/// "Application-defined or object-defined error".
[[nodiscard]] std::u16string_view standardDescription(std::int32_t number) noexcept;

/// The error that is being handled, from within a catch block: an `Error` as it is, memory exhaustion as 7,
/// any other standard exception as 51 with its text.
[[nodiscard]] Error currentError();

}  // namespace quorel::automation
