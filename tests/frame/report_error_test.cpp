#include "frame/report_error.h"

#include <gtest/gtest.h>

#include "tests/support/test_world.h"

namespace quorel::frame {
namespace {

using automation::Error;

TEST(ReportError, NamesNumberDescriptionSourceAndPlace) {
    EXPECT_EQ(errorText(Error(91, u"Object variable not set", u"QuorelUtility"), u"SixPane", u"CreatePanes"),
              u"Error No: 91  'Object variable not set'\r\n  'QuorelUtility'\r\n"
              u"(Module 'SixPane' Function 'CreatePanes()')");
}

TEST(ReportError, WithoutLabelsItHasTwoLines) {
    EXPECT_EQ(errorText(Error(6, u"Overflow", u"Host"), u"", u""),
              u"Error No: 6  'Overflow'\r\n  'Host'\r\n");
}

TEST(ReportError, OneLabelIsEnoughForThePlace) {
    EXPECT_EQ(errorText(Error(6, u"", u""), u"M", u""),
              u"Error No: 6  ''\r\n  ''\r\n(Module 'M' Function '()')");
    EXPECT_EQ(errorText(Error(-2147467259, u"", u""), u"", u"F"),
              u"Error No: -2147467259  ''\r\n  ''\r\n(Module '' Function 'F()')");
}

TEST(ReportError, HostileTextsAreShownAsTheyAre) {
    const std::u16string hostile(u"'\r\n\0\xD800\u202E", 6);
    EXPECT_EQ(errorText(Error(1, hostile, hostile), u"", u""),
              u"Error No: 1  '" + hostile + u"'\r\n  '" + hostile + u"'\r\n");
}

TEST(ReportError, ShowsACriticalBoxAndReturnsAnEmptyVariant) {
    testing::TestWorld world;
    world.desktop.expectMessage([](const ui::Message& message) {
        EXPECT_EQ(message.title, u"QuorelUtility");
        EXPECT_EQ(message.style, 16);
        EXPECT_EQ(message.text, u"Error No: 13  'Type mismatch'\r\n  ''\r\n(Module 'M' Function 'F()')");
    });
    EXPECT_TRUE(ReportError(world.desktop, Error(13), u"M", u"F").isEmpty());
    world.desktop.verify();
}

}  // namespace
}  // namespace quorel::frame
