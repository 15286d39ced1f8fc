#include "frame/component_registration.h"

#include "frame/attempt.h"
#include "platform/automation/calls.h"

namespace quorel::frame {

void ComponentRegistration::endRegistration() const noexcept {
    // The component may be destroyed on the way, and this with it.
    const ComponentRegistration self = *this;
    if (!IsObjectSet(self.session))
        return;
    automation::Object manager, component, comObject;
    attempt([&] { manager = self.session.get(u"ComponentManager").toObject(); });
    if (!IsObjectSet(manager))
        return;
    attempt([&] { component = manager.call(u"GetComponent", self.ComponentName).toObject(); });
    if (!IsObjectSet(component))
        return;
    attempt([&] { comObject = component.get(u"ComObject").toObject(); });
    if (IsObjectSet(comObject)) {
        attempt([&] { comObject.call(u"Deinit"); });
        attempt([&] { comObject.call(u"Destroy"); });
    }
    attempt([&] { manager.call(u"RemoveComponent", self.ComponentName); });
}

}  // namespace quorel::frame
