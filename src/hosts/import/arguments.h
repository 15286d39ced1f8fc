#pragma once

#include <optional>
#include <string>
#include <vector>

namespace quorel::hosts {

/// What the command line asks for.
struct Arguments {
    enum class Action { Help, ImportPackages, ImportJsonLines, ImportModdle, ImportEcore, ExportJsonLines };
    Action action = Action::Help;
    std::u16string lists = u"/var/lib/apt/lists";
    std::vector<std::u16string> inputs;  ///< one, or several descriptors or models
    std::u16string output;
    bool replace = false;
};

/// Throws `UsageError` for a command line that is none.
[[nodiscard]] Arguments parseArguments(const std::vector<std::u16string>& words);

struct UsageError {
    std::u16string reason;
};

/// The help text.
[[nodiscard]] std::string usage();

}  // namespace quorel::hosts
