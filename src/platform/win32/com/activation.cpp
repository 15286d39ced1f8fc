#include "platform/win32/com/activation.h"

#include "platform/win32/system_error.h"

namespace quorel::win32 {

ActivationContext::ActivationContext(const std::wstring& manifest) {
    ACTCTXW description{};
    description.cbSize = sizeof description;
    description.lpSource = manifest.c_str();
    context_.reset(fromFile(::CreateActCtxW(&description)));
    if (!context_)
        throwLastError(u"reading the manifest");
}

ActivationScope::ActivationScope(const ActivationContext& context) {
    if (::ActivateActCtx(context.get(), &cookie_) == FALSE)
        throwLastError(u"activating the manifest");
}

ActivationScope::~ActivationScope() {
    ::DeactivateActCtx(0, cookie_);
}

}  // namespace quorel::win32
