#include <gtest/gtest.h>
#include <objbase.h>
#include <windows.h>

#include <cstdio>
#include <string_view>

#include "tests/server/contract_listing.h"
#include "tests/server/server_dll.h"

namespace {

/// `--list-contract` prints what contract.txt has to hold when members were added; with a file, what the type
/// library in that file holds, which may be a library for another processor.
int listContract(const char* file) {
    const auto library = file == nullptr ? quorel::server::testing::loadContract()
                                         : quorel::server::testing::loadContractIn(file);
    if (!library)
        return 1;
    for (const std::string& line : quorel::server::testing::listingOf(*library.get()))
        std::printf("%s\n", line.c_str());
    return 0;
}

}  // namespace

int main(int count, char** arguments) {
    ::testing::InitGoogleTest(&count, arguments);
    if (FAILED(::OleInitialize(nullptr)))
        return 1;
    int result = 0;
    if (count > 1 && std::string_view(arguments[1]) == "--list-contract")
        result = listContract(count > 2 ? arguments[2] : nullptr);
    else
        result = RUN_ALL_TESTS();
    ::OleUninitialize();
    return result;
}
