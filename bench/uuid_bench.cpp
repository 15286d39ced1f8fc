// What an identifier costs beside the two things it cannot do without: one clock reading and one string. Then
// checks a hundred million of them for duplicates.

#include <cstdio>
#include <cstdlib>
#include <string>

#include "frame/uuid_generator.h"
#include "platform/shell/system_clock.h"
#include "ratio.h"

namespace {

using quorel::automation::make;
using quorel::frame::UUIDGenerator;

volatile std::size_t sink = 0;

std::int64_t counterOf(const std::u16string& identifier) {
    std::int64_t counter = 0;
    for (const char16_t digit : std::u16string_view(identifier).substr(identifier.size() - 10))
        counter = counter * 10 + (digit - u'0');
    return counter;
}

void compareCost(quorel::shell::Clock& clock) {
    constexpr int kOperations = 2'000'000;
    const auto generator = make<UUIDGenerator>(clock);
    generator->Create();
    const std::size_t length = [&] {
        generator->Init(u"SixPane");
        return generator->GetUUID().size();
    }();
    const auto identifiers = [&] {
        generator->Init(u"SixPane");
        for (int i = 0; i < kOperations; ++i)
            sink = sink + generator->GetUUID().size();
    };
    const auto readings = [&] {
        for (int i = 0; i < kOperations; ++i) {
            const auto digit = static_cast<char16_t>(clock.seconds() & 0x7F);
            sink = sink + std::u16string(length, digit).size();
        }
    };
    quorel::bench::compare("GetUUID / clock reading + string", kOperations, 1.5, identifiers, readings);
}

/// A counter that only grows within one generator leaves no room for duplicates.
bool checkDuplicates(quorel::shell::Clock& clock, std::int64_t count) {
    const auto generator = make<UUIDGenerator>(clock);
    generator->Create();
    generator->Init(u"SixPane");
    std::int64_t last = 0;
    std::int64_t duplicates = 0;
    const double seconds = quorel::bench::seconds([&] {
        for (std::int64_t i = 0; i < count; ++i) {
            const std::int64_t counter = counterOf(generator->GetUUID());
            duplicates += counter <= last ? 1 : 0;
            last = counter;
        }
    });
    std::printf("GetUUID: %lld identifiers in %.1f s, %lld duplicates (aim: 0)\n",
                static_cast<long long>(count), seconds, static_cast<long long>(duplicates));
    return duplicates == 0;
}

}  // namespace

int main() {
    quorel::shell::SystemClock clock;
    compareCost(clock);
    return checkDuplicates(clock, 100'000'000) ? EXIT_SUCCESS : EXIT_FAILURE;
}
