#include <gtest/gtest.h>
#include <objbase.h>
#include <windows.h>

int main(int count, char** arguments) {
    ::testing::InitGoogleTest(&count, arguments);
    if (FAILED(::OleInitialize(nullptr)))
        return 1;
    const int result = RUN_ALL_TESTS();
    ::OleUninitialize();
    return result;
}
