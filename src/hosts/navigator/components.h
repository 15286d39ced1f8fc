#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/automation/object.h"
#include "platform/win32/com/activation.h"

namespace quorel::hosts {

/// The components that lie in one folder with their manifests: they are used from there, registered or not.
class Components {
  public:
    /// Reads what is there of `names`, e.g. u"QuorelUtility" for QuorelUtility.manifest.
    Components(const std::u16string& folder, const std::vector<std::u16string_view>& names);
    /// Of the folder, else of the platform, as `win32::createPlatformObject` does.
    [[nodiscard]] automation::Object create(std::u16string_view progId) const;

  private:
    std::vector<win32::ActivationContext> contexts_;
};

}  // namespace quorel::hosts
