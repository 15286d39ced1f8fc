#pragma once

#include <string_view>

#include "frame/attempt.h"
#include "platform/automation/calls.h"
#include "platform/automation/class_registry.h"

namespace quorel::navigator {

/// A window of the library for the time of one command: created by its programmatic identifier, destroyed at
/// the end whatever happens.
class HostedWindow {
  public:
    HostedWindow(const automation::ClassRegistry& classes, std::u16string_view progId)
        : object_(classes.createObject(progId)) {}
    HostedWindow(const HostedWindow&) = delete;
    HostedWindow& operator=(const HostedWindow&) = delete;
    ~HostedWindow() {
        frame::attempt([this] { object_.call(u"Destroy"); });
    }
    [[nodiscard]] const automation::Object& object() const noexcept { return object_; }

  private:
    automation::Object object_;
};

}  // namespace quorel::navigator
