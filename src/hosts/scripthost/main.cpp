// quorelscript: runs a VBScript or JScript file with the host object `WScript`, serves windows while it
// sleeps, and says where an error that nobody caught happened.

#include <windows.h>

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/console.h"
#include "hosts/library_search.h"
#include "hosts/scripthost/script_engine.h"
#include "hosts/scripthost/source_file.h"
#include "hosts/scripthost/wscript_object.h"
#include "platform/automation/error.h"
#include "platform/win32/com/activation.h"
#include "platform/win32/com/bridge.h"

namespace {

using namespace quorel;
using hosts::Stream;
using hosts::writeLine;

constexpr int kUncaught = 1;
constexpr int kMisused = 2;

constexpr std::u16string_view kUsage =
    u"usage: quorelscript [--manifest FILE] SCRIPT [ARGUMENT...]\n"
    u"  SCRIPT            a .vbs (VBScript) or .js (JScript) file in UTF-8 or UTF-16\n"
    u"  ARGUMENT          what the script finds in WScript.Arguments\n"
    u"  --manifest FILE   use the component that FILE describes without registering it\n"
    u"exit code: the script's (WScript.Quit), 0 when it ends by itself, 1 after an error that nobody "
    u"caught,\n"
    u"2 when it could not be started";

struct CommandLine {
    std::wstring manifest;
    std::wstring script;
    const wchar_t* language = nullptr;
    std::vector<std::u16string> arguments;
};

const wchar_t* languageOf(std::wstring_view script) {
    const std::wstring_view extension = script.substr(std::min(script.rfind(L'.'), script.size()));
    const std::u16string_view name(reinterpret_cast<const char16_t*>(extension.data()), extension.size());
    if (automation::equalsIgnoringCase(name, u".vbs"))
        return L"VBScript";
    return automation::equalsIgnoringCase(name, u".js") ? L"JScript" : nullptr;
}

std::optional<CommandLine> parse(std::span<wchar_t*> given) {
    CommandLine command;
    if (given.size() > 1 && std::wstring_view(given[0]) == L"--manifest") {
        command.manifest = given[1];
        given = given.subspan(2);
    }
    if (given.empty())
        return std::nullopt;
    command.script = given[0];
    command.language = languageOf(command.script);
    for (const wchar_t* argument : given.subspan(1))
        command.arguments.emplace_back(win32::narrowView(argument));
    return command.language != nullptr ? std::optional(command) : std::nullopt;
}

std::wstring fullPath(const std::wstring& path) {
    std::wstring full(0x8000, L'\0');
    full.resize(::GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
    return full;
}

/// No engine of the platform can be stopped from within in every version of it, so the process ends here.
void quit(std::int32_t code) {
    ::ExitProcess(static_cast<UINT>(code));
}

int run(const CommandLine& command) {
    std::optional<win32::ActivationContext> context;
    if (!command.manifest.empty())
        context.emplace(fullPath(command.manifest));
    const std::optional<win32::ActivationScope> active =
        context ? std::optional<win32::ActivationScope>(*context) : std::nullopt;

    const std::wstring path = fullPath(command.script);
    const std::u16string name(win32::narrowView(path.data(), path.size()));
    const std::u16string source = scripthost::readSource(path);
    const automation::ClassRegistry classes(win32::createPlatformObject);
    const automation::Object host =
        automation::make<scripthost::WScriptObject>(classes, name, command.arguments, quit);
    scripthost::ScriptEngine engine(command.language, name);
    return engine.run(source, *win32::toDispatch(host).get()) ? 0 : kUncaught;
}

}  // namespace

int wmain(int count, wchar_t** given) {
    hosts::lookForLibrariesAtHome();
    const std::optional<CommandLine> command =
        parse(std::span(given, static_cast<std::size_t>(count)).subspan(1));
    if (!command) {
        writeLine(Stream::Errors, kUsage);
        return kMisused;
    }
    if (FAILED(::OleInitialize(nullptr))) {
        writeLine(Stream::Errors, u"OLE could not be started");
        return kMisused;
    }
    int code = kMisused;
    try {
        code = run(*command);
    } catch (...) {
        writeLine(Stream::Errors,
                  automation::currentError().source() + u": " + automation::currentError().description());
    }
    ::OleUninitialize();
    return code;
}
