#pragma once

#include <windows.h>

#include <string>

#include "platform/win32/unique.h"

namespace quorel::win32 {

inline void releaseActivation(HANDLE context) noexcept {
    ::ReleaseActCtx(context);
}

/// What a manifest file describes: components and versions of libraries that are used without registration.
class ActivationContext {
  public:
    /// Throws `automation::Error` when the manifest is missing or wrong.
    explicit ActivationContext(const std::wstring& manifest);
    [[nodiscard]] HANDLE get() const noexcept { return context_.get(); }

  private:
    Unique<HANDLE, releaseActivation> context_;
};

/// Makes a context the thread's for as long as it lives.
class ActivationScope {
  public:
    explicit ActivationScope(const ActivationContext& context);
    ~ActivationScope();
    ActivationScope(const ActivationScope&) = delete;
    ActivationScope& operator=(const ActivationScope&) = delete;

  private:
    ULONG_PTR cookie_ = 0;
};

}  // namespace quorel::win32
