#include "hosts/import/arguments.h"

#include <cstddef>

namespace quorel::hosts {

namespace {

void choose(Arguments& arguments, Arguments::Action action) {
    if (arguments.action != Arguments::Action::Help)
        throw UsageError{u"choose one of --apt, --jsonl and --export"};
    arguments.action = action;
}

void takeFiles(Arguments& arguments, std::vector<std::u16string> files) {
    const bool needsInput = arguments.action != Arguments::Action::ImportPackages;
    if (files.size() != (needsInput ? 2U : 1U))
        throw UsageError{needsInput ? u"two files are needed, IN and OUT" : u"one file is needed, OUT"};
    if (needsInput)
        arguments.input = files.front();
    arguments.output = files.back();
}

}  // namespace

Arguments parseArguments(const std::vector<std::u16string>& words) {
    Arguments arguments;
    std::vector<std::u16string> files;
    bool optionsEnded = false;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::u16string& word = words[i];
        if (optionsEnded || !word.starts_with(u'-')) {
            files.push_back(word);
        } else if (word == u"--") {
            optionsEnded = true;
        } else if (word == u"--help" || word == u"-h") {
            return {};
        } else if (word == u"--apt") {
            choose(arguments, Arguments::Action::ImportPackages);
        } else if (word == u"--jsonl") {
            choose(arguments, Arguments::Action::ImportJsonLines);
        } else if (word == u"--export") {
            choose(arguments, Arguments::Action::ExportJsonLines);
        } else if (word == u"--replace") {
            arguments.replace = true;
        } else if (word == u"--lists" && i + 1 < words.size()) {
            arguments.lists = words[++i];
        } else {
            throw UsageError{u"there is no option " + word};
        }
    }
    if (arguments.action == Arguments::Action::Help)
        throw UsageError{u"choose one of --apt, --jsonl and --export"};
    takeFiles(arguments, std::move(files));
    return arguments;
}

std::string usage() {
    return "usage: quorel-import [--replace] --apt [--lists FOLDER] OUT.quorel\n"
           "       quorel-import [--replace] --jsonl IN.jsonl OUT.quorel\n"
           "       quorel-import [--replace] --export IN.quorel OUT.jsonl\n"
           "\n"
           "Makes a repository of the Debian package lists of this machine (--apt) or of a JSON Lines file\n"
           "(--jsonl), or writes a repository as a JSON Lines file (--export).\n"
           "\n"
           "  --lists FOLDER  where the package lists are (default /var/lib/apt/lists)\n"
           "  --replace       write over an existing OUT\n"
           "  --help          this text\n"
           "\n"
           "What cannot be read is named with file and line, and then OUT is not made or changed.\n"
           "Exit codes: 0 done, 1 failed, 2 the command line is wrong.\n";
}

}  // namespace quorel::hosts
