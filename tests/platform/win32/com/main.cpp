#include <gtest/gtest.h>
#include <objbase.h>
#include <windows.h>

#include "platform/automation/native_object.h"
#include "platform/win32/com/native_dispatch.h"

namespace {

/// Fails a test that leaves objects, wrappers or enumerations behind.
class BalanceCheck final : public ::testing::EmptyTestEventListener {
    void OnTestStart(const ::testing::TestInfo&) override {
        objects_ = quorel::automation::NativeObject::liveCount();
        outside_ = quorel::win32::outsideCount();
    }
    void OnTestEnd(const ::testing::TestInfo&) override {
        EXPECT_EQ(quorel::automation::NativeObject::liveCount(), objects_) << "objects were left behind";
        EXPECT_EQ(quorel::win32::outsideCount(), outside_) << "references from outside were left behind";
    }

    std::int64_t objects_ = 0;
    long outside_ = 0;
};

}  // namespace

int main(int count, char** arguments) {
    ::testing::InitGoogleTest(&count, arguments);
    ::testing::UnitTest::GetInstance()->listeners().Append(new BalanceCheck);
    if (FAILED(::OleInitialize(nullptr)))
        return 1;
    const int result = RUN_ALL_TESTS();
    ::OleUninitialize();
    return result;
}
