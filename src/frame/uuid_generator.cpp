#include "frame/uuid_generator.h"

#include <array>
#include <bit>
#include <cmath>
#include <limits>

#include "platform/automation/error.h"
#include "platform/automation/text.h"

namespace quorel::frame {

namespace {

constexpr std::size_t kCounterDigits = 10;

constexpr std::array<char16_t, 200> kDigitPairs = [] {
    std::array<char16_t, 200> pairs{};
    for (std::size_t i = 0; i < 100; ++i) {
        pairs[2 * i] = static_cast<char16_t>(u'0' + i / 10);
        pairs[2 * i + 1] = static_cast<char16_t>(u'0' + i % 10);
    }
    return pairs;
}();

/// Ten digits, for counters that have no more.
void writeCounter(char16_t* digits, std::uint32_t counter) noexcept {
    for (std::size_t i = kCounterDigits; i > 0; i -= 2) {
        const std::size_t pair = counter % 100;
        counter /= 100;
        digits[i - 2] = kDigitPairs[2 * pair];
        digits[i - 1] = kDigitPairs[2 * pair + 1];
    }
}

void appendPadded(std::u16string& text, std::int64_t number, std::size_t width) {
    const std::u16string digits = automation::decimal(number);
    if (digits.size() < width)
        text.append(width - digits.size(), u'0');
    text += digits;
}

}  // namespace

std::u16string randomTag(float number) {
    const auto rounded = static_cast<std::int64_t>(std::floor(static_cast<double>(number) * 100000 + 0.5));
    std::u16string text;
    appendPadded(text, rounded, 6);
    return text.substr(text.size() - 5);
}

void appendCounter(std::u16string& text, std::int64_t counter) {
    appendPadded(text, counter, kCounterDigits);
}

const automation::ClassTable& UUIDGenerator::classTable() const {
    using automation::param;
    static const automation::ClassTable table =
        automation::ClassTable::of<UUIDGenerator>(u"UUIDGenerator")
            .method(u"Create", &UUIDGenerator::Create)
            .method(u"Init", &UUIDGenerator::Init, {param(u"namespace", u"")})
            .method(u"GetUUID", &UUIDGenerator::GetUUID)
            .method(u"Deinit", &UUIDGenerator::Deinit)
            .method(u"Destroy", &UUIDGenerator::Destroy);
    return table;
}

void UUIDGenerator::Create() {
    randomState_ = std::bit_cast<std::uint64_t>(clock_.secondsSinceMidnight());
}

void UUIDGenerator::Init(const std::u16string& nameSpace) {
    counter_ = 1;
    prefix_ = nameSpace.empty() ? std::u16string() : nameSpace + u"::";
    tag_ = randomTag(nextRandom());
    latest_.clear();
}

std::u16string UUIDGenerator::GetUUID() {
    if (counter_ == std::numeric_limits<std::int32_t>::max())
        throw automation::Error(automation::error_number::kOverflow);
    ++counter_;
    const std::int64_t second = clock_.seconds();
    if (second != latestSecond_ || latest_.empty())
        formatSecond(second);
    writeCounter(latest_.data() + latest_.size() - kCounterDigits, static_cast<std::uint32_t>(counter_));
    return latest_;
}

void UUIDGenerator::Deinit() noexcept {
    counter_ = 0;
}

/// One step of SplitMix64; its top 24 bits are all that a single-precision number in [0, 1) can hold.
float UUIDGenerator::nextRandom() noexcept {
    std::uint64_t z = randomState_ += 0x9E3779B97F4A7C15U;
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9U;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBU;
    z ^= z >> 31;
    return static_cast<float>(z >> 40) / static_cast<float>(1U << 24);
}

void UUIDGenerator::formatSecond(std::int64_t second) {
    const shell::LocalTime time = clock_.localTime(second);
    latest_.assign(u"ID:").append(tag_).append(u":").append(prefix_);
    appendPadded(latest_, time.year, 4);
    appendPadded(latest_, time.month, 2);
    appendPadded(latest_, time.day, 2);
    latest_.append(u"::");
    appendPadded(latest_, time.hour, 2);
    appendPadded(latest_, time.minute, 2);
    appendPadded(latest_, time.second, 2);
    latest_.append(u"::");
    appendCounter(latest_, 0);
    latestSecond_ = second;
}

}  // namespace quorel::frame
