#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>

#include "platform/automation/error.h"
#include "tests/support/repository_double.h"
#include "tests/support/test_world.h"

namespace quorel::testing {

/// The labels of an error box, as "Module/Procedure".
[[nodiscard]] inline std::u16string placeIn(const std::u16string& box) {
    const std::size_t module = box.find(u"(Module '") + 9;
    const std::size_t function = box.find(u"' Function '", module);
    const std::size_t end = box.find(u"()')", function);
    if (function == std::u16string::npos || end == std::u16string::npos)
        return u"no place in: " + box;
    return box.substr(module, function - module) + u"/" + box.substr(function + 12, end - function - 12);
}

/// Those of the box that was shown last.
[[nodiscard]] inline std::u16string lastPlace(const TestWorld& world) {
    return world.boxes().empty() ? u"no box" : placeIn(world.boxes().back());
}

/// Lets the first call of that name fail while `action` runs; the place that the one box names.
[[nodiscard]] inline std::u16string placeOfFailure(TestWorld& world, Script& script,
                                                   const std::u16string& call,
                                                   const std::function<void()>& action) {
    const std::size_t before = world.boxes().size();
    bool failed = false;
    script.onCall = [&](const std::u16string& made) {
        if (made == call && !std::exchange(failed, true))
            throw automation::Error(1000, u"Refused", u"Repository");
    };
    world.expectBox();
    action();
    world.desktop.runPosted();
    script.onCall = {};
    world.desktop.verify();
    EXPECT_EQ(world.boxes().size(), before + 1);
    EXPECT_TRUE(world.boxes().back().starts_with(u"Error No: 1000  'Refused'\r\n  'Repository'\r\n"));
    return lastPlace(world);
}

}  // namespace quorel::testing
