#pragma once

#include <optional>
#include <string>
#include <vector>

#include "repository/import/exchange.h"

namespace quorel::navigator {

/// What a command line asks for.
struct Command {
    enum class Action { Show, Import, Export, Diagram, Version, Help };
    Action action = Action::Show;
    /// The file to show or to work on, or what is imported; none shows the welcome page.
    std::vector<std::u16string> inputs;
    std::u16string output;
    repository::ImportKind kind = repository::ImportKind::JsonLines;  ///< of an import
    bool replace = false;                                             ///< an existing output
};

/// What is wrong with a command line.
struct UsageError {
    std::u16string reason;
};

/// `words` without the program's own name. Throws `UsageError`. Help and version win over everything else.
[[nodiscard]] Command parseCommandLine(const std::vector<std::u16string>& words);

/// The help text, its lines ended.
[[nodiscard]] std::u16string_view usageText() noexcept;

}  // namespace quorel::navigator
