#include <gtest/gtest.h>
#include <objbase.h>
#include <windows.h>

#include <cstdio>
#include <string_view>

#include "tests/server/contract_listing.h"
#include "tests/server/server_dll.h"

namespace {

/// `--list-contract` prints what contract.txt has to hold when members were added.
void listContract() {
    const auto library = quorel::server::testing::loadContract();
    for (const std::string& line : quorel::server::testing::listingOf(*library.get()))
        std::printf("%s\n", line.c_str());
}

}  // namespace

int main(int count, char** arguments) {
    ::testing::InitGoogleTest(&count, arguments);
    if (FAILED(::OleInitialize(nullptr)))
        return 1;
    int result = 0;
    if (count > 1 && std::string_view(arguments[1]) == "--list-contract")
        listContract();
    else
        result = RUN_ALL_TESTS();
    ::OleUninitialize();
    return result;
}
