#include "hosts/import/arguments.h"

#include <cstddef>
#include <utility>

namespace quorel::hosts {

namespace {

constexpr const char16_t* kChoose = u"choose one of --apt, --jsonl, --moddle, --ecore and --export";

void choose(Arguments& arguments, Arguments::Action action) {
    if (arguments.action != Arguments::Action::Help)
        throw UsageError{kChoose};
    arguments.action = action;
}

void takeFiles(Arguments& arguments, std::vector<std::u16string> files) {
    const bool needsInput = arguments.action != Arguments::Action::ImportPackages;
    const bool takesSeveral = arguments.action == Arguments::Action::ImportModdle ||
                              arguments.action == Arguments::Action::ImportEcore;
    const std::size_t least = needsInput ? 2 : 1;
    if (takesSeveral && files.size() < least)
        throw UsageError{u"files are needed, one IN or several and OUT"};
    if (!takesSeveral && files.size() != least)
        throw UsageError{needsInput ? u"two files are needed, IN and OUT" : u"one file is needed, OUT"};
    arguments.output = std::move(files.back());
    files.pop_back();
    arguments.inputs = std::move(files);
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
        } else if (word == u"--moddle") {
            choose(arguments, Arguments::Action::ImportModdle);
        } else if (word == u"--ecore") {
            choose(arguments, Arguments::Action::ImportEcore);
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
        throw UsageError{kChoose};
    takeFiles(arguments, std::move(files));
    return arguments;
}

std::string usage() {
    return "usage: quorel-import [--replace] --apt [--lists FOLDER] OUT.quorel\n"
           "       quorel-import [--replace] --jsonl IN.jsonl OUT.quorel\n"
           "       quorel-import [--replace] --moddle IN.json... OUT.quorel\n"
           "       quorel-import [--replace] --ecore IN.ecore... OUT.quorel\n"
           "       quorel-import [--replace] --export IN.quorel OUT.jsonl\n"
           "\n"
           "Makes a repository of the Debian package lists of this machine (--apt) or of a JSON Lines file\n"
           "(--jsonl), or one with the metamodel of moddle descriptors (--moddle) or Ecore models (--ecore), "
           "or\n"
           "writes a repository as a JSON Lines file (--export).\n"
           "\n"
           "  --lists FOLDER  where the package lists are (default /var/lib/apt/lists)\n"
           "  --replace       write over an existing OUT\n"
           "  --help          this text\n"
           "\n"
           "What cannot be read is named with file and line, and then OUT is not made or changed.\n"
           "What of a metamodel has no place in a repository is counted by kind at the end.\n"
           "Exit codes: 0 done, 1 failed, 2 the command line is wrong.\n";
}

}  // namespace quorel::hosts
