#include "navigator/command_line.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/automation/text.h"

namespace quorel::navigator {

namespace {

using repository::ImportKind;

constexpr std::array<std::pair<std::u16string_view, Command::Action>, 6> kActions{
    {{u"--import", Command::Action::Import},
     {u"--export", Command::Action::Export},
     {u"--diagram", Command::Action::Diagram},
     {u"--version", Command::Action::Version},
     {u"--help", Command::Action::Help},
     {u"-h", Command::Action::Help}}};

constexpr std::array<std::pair<std::u16string_view, ImportKind>, 4> kKinds{
    {{u"packages", ImportKind::PackageIndex},
     {u"jsonl", ImportKind::JsonLines},
     {u"moddle", ImportKind::Moddle},
     {u"ecore", ImportKind::Ecore}}};

template <class Pairs>
[[nodiscard]] auto valueOf(const Pairs& pairs, std::u16string_view word) {
    const auto at =
        std::find_if(pairs.begin(), pairs.end(), [word](const auto& pair) { return pair.first == word; });
    return at == pairs.end() ? std::nullopt : std::optional(at->second);
}

/// Options and the words that are none.
struct Sorted {
    std::optional<Command::Action> action;
    bool replace = false;
    bool isAsked = false;  ///< for help or the version, which needs nothing else to be right
    std::vector<std::u16string> files;
};

void choose(Sorted& sorted, Command::Action action) {
    if (sorted.isAsked)
        return;
    sorted.isAsked = action == Command::Action::Help || action == Command::Action::Version;
    if (sorted.action && !sorted.isAsked)
        throw UsageError{u"choose one of --import, --export and --diagram"};
    sorted.action = action;
}

[[nodiscard]] Sorted sort(const std::vector<std::u16string>& words) {
    Sorted sorted;
    bool optionsEnded = false;
    for (const std::u16string& word : words) {
        if (optionsEnded || !word.starts_with(u'-'))
            sorted.files.push_back(word);
        else if (word == u"--")
            optionsEnded = true;
        else if (word == u"--replace")
            sorted.replace = true;
        else if (const auto action = valueOf(kActions, word))
            choose(sorted, *action);
        else
            throw UsageError{u"there is no option " + word};
    }
    return sorted;
}

/// By the first word if it is one of the kinds, else by what the files are called.
[[nodiscard]] ImportKind takeKind(std::vector<std::u16string>& files) {
    if (const auto named = files.empty() ? std::nullopt : valueOf(kKinds, files.front())) {
        files.erase(files.begin());
        return *named;
    }
    if (files.size() < 2)
        throw UsageError{u"--import needs what is to be imported and the repository to be made"};
    const auto kind = repository::importKindOf(files.front());
    const bool isSame = kind && std::all_of(files.begin(), files.end() - 1, [&](const std::u16string& file) {
                            return repository::importKindOf(file) == kind;
                        });
    if (!isSame)
        throw UsageError{
            u"the files' names do not tell what is imported; name it before them: packages, "
            u"jsonl, moddle or ecore"};
    return *kind;
}

void takeImport(Command& command, std::vector<std::u16string> files) {
    command.kind = takeKind(files);
    if (files.size() < 2)
        throw UsageError{u"--import needs what is to be imported and the repository to be made"};
    if (command.kind == ImportKind::JsonLines && files.size() != 2)
        throw UsageError{u"a repository is made of one JSON Lines file"};
    command.output = std::move(files.back());
    files.pop_back();
    command.inputs = std::move(files);
}

[[nodiscard]] bool isDiagramFile(std::u16string_view file) {
    const std::u16string name = automation::foldCase(file);
    return name.ends_with(automation::foldCase(u".svg")) || name.ends_with(automation::foldCase(u".png")) ||
           name.ends_with(automation::foldCase(u".emf"));
}

void takeFiles(Command& command, std::vector<std::u16string> files) {
    if (command.action == Command::Action::Export) {
        if (files.size() != 2)
            throw UsageError{u"--export needs a repository and the JSON Lines file to be written"};
        command.inputs = {std::move(files.front())};
        command.output = std::move(files.back());
    } else if (command.action == Command::Action::Diagram) {
        if (files.size() != 2)
            throw UsageError{u"--diagram needs the drawing to be written and a repository"};
        if (!isDiagramFile(files.front()))
            throw UsageError{u"a diagram is written as .svg, .png or .emf, not as " + files.front()};
        command.inputs = {std::move(files.back())};
        command.output = std::move(files.front());
    } else {
        if (files.size() > 1)
            throw UsageError{u"one file is shown at a time"};
        command.inputs = std::move(files);
    }
}

}  // namespace

Command parseCommandLine(const std::vector<std::u16string>& words) {
    Sorted sorted = sort(words);
    Command command;
    command.action = sorted.action.value_or(Command::Action::Show);
    command.replace = sorted.replace;
    if (sorted.isAsked)
        return command;
    if (command.replace && command.action == Command::Action::Show)
        throw UsageError{u"--replace belongs to --import, --export or --diagram"};
    if (command.action == Command::Action::Import)
        takeImport(command, std::move(sorted.files));
    else
        takeFiles(command, std::move(sorted.files));
    return command;
}

std::u16string_view usageText() noexcept {
    return u"usage: navigator [FILE.quorel]\n"
           u"       navigator --import [KIND] INPUT... OUTPUT.quorel [--replace]\n"
           u"       navigator --export REPOSITORY.quorel OUTPUT.jsonl [--replace]\n"
           u"       navigator --diagram OUTPUT.svg REPOSITORY.quorel [--replace]\n"
           u"       navigator --version\n"
           u"       navigator --help\n"
           u"\n"
           u"Shows a repository, or without one the welcome page. With an option it shows no window:\n"
           u"\n"
           u"  --import   makes a repository. KIND is packages (package lists of Debian, or a folder of\n"
           u"             them), jsonl (one JSON Lines file), moddle (descriptors, JSON) or ecore (models,\n"
           u"             XML); without KIND the names of the inputs tell it\n"
           u"  --export   writes a repository as a JSON Lines file\n"
           u"  --diagram  draws the metamodel of a repository, as .svg, .png or .emf\n"
           u"  --replace  writes over an existing output\n"
           u"  --         what comes after it are files, whatever they are called\n"
           u"\n"
           u"Results go to the standard output, what went wrong to the standard error stream. An output\n"
           u"that cannot be completed is not made or changed.\n"
           u"Exit codes: 0 done, 1 failed, 2 the command line is wrong.\n";
}

}  // namespace quorel::navigator
