#pragma once

#include <cstdint>
#include <string>

#include "platform/automation/class_table.h"
#include "platform/automation/native_object.h"
#include "platform/shell/clock.h"

namespace quorel::frame {

/// A random number in [0, 1) as the five digits of an identifier's tag: rounded to five decimals, of which
/// the last five characters are kept, so that a number next to 1 gives "00000".
[[nodiscard]] std::u16string randomTag(float number);

/// Appends at least ten digits, with leading zeros.
void appendCounter(std::u16string& text, std::int64_t counter);

/// The public class "QuorelUtility.UUIDGenerator". Identifiers look like
/// ID:04217:SixPane::20020303::140509::0000000002: tag, namespace, local time, counter.
class UUIDGenerator final : public automation::NativeObject {
  public:
    /// `counter` is what the generator has counted so far.
    explicit UUIDGenerator(shell::Clock& clock, std::int32_t counter = 0) noexcept
        : clock_(clock), counter_(counter) {}

    [[nodiscard]] const automation::ClassTable& classTable() const override;

    /// Seeds the random numbers from the time of day.
    void Create();
    /// Counts from 1, takes over the namespace and draws a new tag. The first identifier bears 2.
    void Init(const std::u16string& nameSpace = {});
    /// Error 6 (overflow) when 2,147,483,647 identifiers have been given out.
    [[nodiscard]] std::u16string GetUUID();
    /// Counts from 0 again; tag and namespace stay.
    void Deinit() noexcept;
    void Destroy() noexcept {}

  private:
    [[nodiscard]] float nextRandom() noexcept;
    void formatSecond(std::int64_t second);

    shell::Clock& clock_;
    std::int32_t counter_;
    std::u16string prefix_;
    std::u16string tag_;
    std::uint64_t randomState_ = 0;
    /// The identifier of the second asked for last; its counter's digits are written over for each new one.
    std::u16string latest_;
    std::int64_t latestSecond_ = 0;
};

}  // namespace quorel::frame
