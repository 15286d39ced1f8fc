#include "hosts/navigator/components.h"

#include <windows.h>

#include "platform/win32/com/bridge.h"
#include "platform/win32/text.h"

namespace quorel::hosts {

Components::Components(const std::u16string& folder, const std::vector<std::u16string_view>& names) {
    for (const std::u16string_view name : names) {
        std::u16string manifest = folder;
        manifest.append(u"\\").append(name).append(u".manifest");
        const std::wstring path(win32::wide(manifest));
        if (::GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES)
            contexts_.emplace_back(path);
    }
}

automation::Object Components::create(std::u16string_view progId) const {
    // A thread has one context at a time, so each is asked in turn.
    for (const win32::ActivationContext& context : contexts_) {
        const win32::ActivationScope active(context);
        if (automation::Object object = win32::createPlatformObject(progId))
            return object;
    }
    return win32::createPlatformObject(progId);
}

}  // namespace quorel::hosts
