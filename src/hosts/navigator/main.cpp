// The navigator: shows a repository, or works without a window as its command line asks.

#include <optional>
#include <string>
#include <vector>

#include "hosts/console.h"
#include "hosts/library_search.h"
#include "hosts/navigator/draw_metamodel.h"
#include "hosts/navigator/program.h"
#include "navigator/batch.h"
#include "platform/automation/error.h"
#include "platform/win32/text.h"
#include "platform/win32/ui/com_scope.h"
#include "platform/win32/ui/system_headers.h"

namespace {

using namespace quorel;

[[nodiscard]] std::vector<std::u16string> ownArguments() {
    int count = 0;
    wchar_t** words = ::CommandLineToArgvW(::GetCommandLineW(), &count);
    std::vector<std::u16string> arguments;
    for (int i = 1; i < count; ++i)
        arguments.emplace_back(win32::narrowView(words[i]));
    ::LocalFree(words);
    return arguments;
}

/// The system's part of the program, which only some work needs.
class LateProgram {
  public:
    hosts::Program& get() { return program_ ? *program_ : program_.emplace(); }

  private:
    std::optional<hosts::Program> program_;
};

[[nodiscard]] navigator::BatchServices servicesOf(LateProgram& program) {
    return {.writeResult = [](std::u16string_view line) { hosts::writeLine(hosts::Stream::Output, line); },
            .writeError = [](std::u16string_view line) { hosts::writeLine(hosts::Stream::Errors, line); },
            .draw =
                [&program](const automation::Object& repository, const std::u16string& output) {
                    return hosts::drawMetamodel(program.get().environment(), repository, output);
                },
            .classes = [&program]() -> automation::ClassRegistry& {
                return program.get().environment().classes;
            }};
}

[[nodiscard]] int run(const std::vector<std::u16string>& words) {
    LateProgram program;
    const navigator::BatchServices services = servicesOf(program);
    try {
        const navigator::Command command = navigator::parseCommandLine(words);
        if (command.action == navigator::Command::Action::Show)
            return program.get().show(command.inputs.empty() ? std::u16string() : command.inputs.front());
        hosts::useParentsConsole();
        return navigator::runBatch(command, services);
    } catch (const navigator::UsageError& error) {
        hosts::useParentsConsole();
        return navigator::refuseCommandLine(error, services);
    } catch (...) {
        hosts::useParentsConsole();
        services.writeError(u"navigator: " + automation::currentError().description());
        return navigator::kFailed;
    }
}

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    hosts::lookForLibrariesAtHome();
    const win32::ComScope com;
    return run(ownArguments());
}
