#pragma once

#include <activscp.h>
#include <windows.h>

#include <string>

#include "platform/win32/com/com_ptr.h"

namespace quorel::scripthost {

class ScriptSite;

/// One script in one engine of the platform.
class ScriptEngine {
  public:
    /// `language` is the engine's programmatic identifier. `host` is what the script knows as `WScript`.
    /// Throws `automation::Error` when there is no such engine.
    ScriptEngine(const wchar_t* language, std::u16string file);
    ~ScriptEngine();
    ScriptEngine(const ScriptEngine&) = delete;
    ScriptEngine& operator=(const ScriptEngine&) = delete;

    /// Runs the whole script. False when it ended by an error that nobody caught, which has been reported to
    /// the error stream.
    [[nodiscard]] bool run(const std::u16string& source, IDispatch& host);

  private:
    std::u16string file_;
    win32::ComPtr<ScriptSite> site_;
    win32::ComPtr<IActiveScript> engine_;
};

}  // namespace quorel::scripthost
