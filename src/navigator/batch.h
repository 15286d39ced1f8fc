#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "navigator/command_line.h"
#include "platform/automation/class_registry.h"
#include "platform/automation/object.h"

namespace quorel::navigator {

/// The program's exit codes.
inline constexpr int kDone = 0;
inline constexpr int kFailed = 1;
inline constexpr int kWrongUsage = 2;

/// What work without a window needs of the program; outlives the work.
struct BatchServices {
    /// Lines without their ends.
    std::function<void(std::u16string_view)> writeResult, writeError;
    /// Draws the metamodel of a repository into a file and answers what is to be told.
    std::function<std::u16string(const automation::Object& repository, const std::u16string& output)> draw;
    /// Makes a session with repositories.
    std::function<automation::ClassRegistry&()> classes;
};

/// Does what `command` asks for, which is not `Show`, and returns the exit code. What fails is written as one
/// line with the file and what can be done about it.
[[nodiscard]] int runBatch(const Command& command, const BatchServices& services);

/// Writes what is wrong with a command line, and how it should be.
[[nodiscard]] int refuseCommandLine(const UsageError& error, const BatchServices& services);

}  // namespace quorel::navigator
