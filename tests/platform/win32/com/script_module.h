#pragma once

#include <activscp.h>
#include <windows.h>

#include <string>

#include "platform/automation/object.h"
#include "platform/win32/com/com_ptr.h"

namespace quorel::win32::testing {

/// Script engines tell their host of errors; what the caller of the script gets is up to the host's answer.
enum class Errors : bool { GivenToTheCaller, KeptByTheHost };

/// A script that stays loaded, so that tests can call its objects from C++.
class ScriptModule {
  public:
    /// `language` is "VBScript" or "JScript". A script that fails to load fails the test.
    ScriptModule(const wchar_t* language, const std::u16string& source,
                 Errors errors = Errors::GivenToTheCaller);
    ~ScriptModule();
    ScriptModule(const ScriptModule&) = delete;
    ScriptModule& operator=(const ScriptModule&) = delete;

    /// The script's global functions and variables as members.
    [[nodiscard]] automation::Object globals() const;

  private:
    ComPtr<IActiveScript> engine_;
};

}  // namespace quorel::win32::testing
