#include "platform/ui/event.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace quorel::ui {

TEST(Event, RunsItsHandlersInTheOrderOfConnecting) {
    Event<int> event;
    std::string order;
    event.connect([&](int n) { (order += 'a') += std::to_string(n); });
    event.connect([&](int n) { (order += 'b') += std::to_string(n); });
    event.raise(1);
    event.raise(2);
    EXPECT_EQ(order, "a1b1a2b2");
}

TEST(Event, WhatIsConnectedDuringARaiseRunsNextTime) {
    Event<> event;
    int late = 0;
    event.connect([&] {
        if (late == 0)
            event.connect([&] { ++late; });
    });
    event.raise();
    EXPECT_EQ(late, 0);
    event.raise();
    EXPECT_EQ(late, 1);
}

TEST(Event, ClearingDuringARaiseLetsItFinish) {
    Event<> event;
    int runs = 0;
    event.connect([&] { event.clear(); });
    event.connect([&] { ++runs; });
    event.raise();
    EXPECT_EQ(runs, 1);
    EXPECT_FALSE(event.isConnected());
    event.raise();
    EXPECT_EQ(runs, 1);
}

TEST(Event, ItsOwnerMayEndDuringARaise) {
    auto event = std::make_unique<Event<int&>>();
    int value = 0;
    event->connect([&](int&) { event.reset(); });
    event->connect([](int& n) { n = 7; });
    event->raise(value);
    EXPECT_EQ(value, 7);
}

TEST(Event, ARaiseWithoutHandlersDoesNothing) {
    const Event<> event;
    EXPECT_FALSE(event.isConnected());
    event.raise();
}

}  // namespace quorel::ui
