#include "platform/automation/error.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

namespace quorel::automation {
namespace {

template <class Throw>
Error caught(Throw&& raise) {
    try {
        raise();
    } catch (...) {
        return currentError();
    }
    return Error(0);
}

TEST(Error, StandardDescriptions) {
    EXPECT_EQ(Error(6).description(), u"Overflow");
    EXPECT_EQ(Error(13).description(), u"Type mismatch");
    EXPECT_EQ(Error(91).description(), u"Object variable or With block variable not set");
    EXPECT_EQ(Error(438).description(), u"Object doesn't support this property or method");
    EXPECT_EQ(Error(12345).description(), u"Application-defined or object-defined error");
    EXPECT_STREQ(Error(6).what(), "Overflow");
}

TEST(Error, WhateverIsThrownBecomesAnError) {
    const Error own = caught([] { throw Error(9, u"d", u"s"); });
    EXPECT_EQ(own.number(), 9);
    EXPECT_EQ(own.description(), u"d");
    EXPECT_EQ(own.source(), u"s");
    EXPECT_EQ(caught([] { throw std::bad_alloc(); }).number(), 7);
    const Error other = caught([] { throw std::runtime_error("disk on fire"); });
    EXPECT_EQ(other.number(), 51);
    EXPECT_EQ(other.description(), u"disk on fire");
    EXPECT_EQ(caught([] { throw 5; }).number(), 51);
}

}  // namespace
}  // namespace quorel::automation
