#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "platform/ui/desktop.h"
#include "tests/support/test_world.h"

namespace quorel::explorer {

/// Over a fixture with an explorer, its `model` and the `world`: does `action` again and again, each time
/// after `prepare`, while the host destroys the explorer inside one repository call after the other.
template <class Fixture>
class DestroyInside : public Fixture {
  protected:
    void everyCallOf(const std::function<void()>& prepare, const std::function<void()>& action) {
        int call = 1;
        for (;; ++call) {
            prepare();
            int calls = 0;
            this->model.script->onCall = [&](const std::u16string&) {
                if (++calls == call)
                    this->explorer->Destroy();
            };
            action();
            this->world.desktop.runPosted();
            this->model.script->onCall = {};
            this->world.desktop.verify();
            if (calls < call)
                break;
            EXPECT_EQ(this->world.desktop.livePeers(), 0U) << "call " << call;
            EXPECT_EQ(this->world.desktop.pointer(), ui::Pointer::Default) << "call " << call;
            EXPECT_EQ(testing::errorNumber([&] { this->explorer->Init(); }), 91);
            ASSERT_LT(call, 500);
        }
        EXPECT_GT(call, 1) << "nothing was asked";
        EXPECT_TRUE(this->world.boxes().empty());
    }
};

}  // namespace quorel::explorer
