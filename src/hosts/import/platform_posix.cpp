#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <set>
#include <string>
#include <utility>

#include "hosts/import/platform.h"
#include "platform/automation/text.h"
#include "repository/errors.h"

extern char** environ;  // NOLINT(readability-redundant-declaration): POSIX leaves it to the program

namespace quorel::hosts {

namespace {

constexpr const char* kHelper = "/usr/lib/apt/apt-helper";

[[noreturn]] void refuse(const std::string& reason) {
    throw repository::failure(repository::error_number::kDeviceIo, automation::fromUtf8(reason));
}

/// What `apt-helper cat-file` writes.
class UnpackedFile final : public repository::ByteSource {
  public:
    explicit UnpackedFile(const std::filesystem::path& path) : path_(path) {
        std::array<int, 2> ends{};
        if (pipe2(ends.data(), O_CLOEXEC) != 0)
            refuse("no pipe could be made");
        read_ = ends[0];
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
        std::string program = kHelper, command = "cat-file", file = path.string();
        const std::array<char*, 4> words{program.data(), command.data(), file.data(), nullptr};
        const int failed = posix_spawn(&child_, kHelper, &actions, nullptr, words.data(), environ);
        posix_spawn_file_actions_destroy(&actions);
        close(ends[1]);
        if (failed != 0) {
            close(read_);
            refuse("the list " + file + " is compressed, and " + kHelper + " cannot be run to unpack it");
        }
    }
    ~UnpackedFile() override {
        close(read_);
        if (child_ > 0)
            waitpid(child_, nullptr, 0);
    }
    std::size_t read(char* buffer, std::size_t size) override {
        ssize_t count = 0;
        do
            count = ::read(read_, buffer, size);
        while (count < 0 && errno == EINTR);
        if (count < 0)
            refuse("the list " + path_.string() + " cannot be read");
        if (count == 0)
            awaitSuccess();
        return static_cast<std::size_t>(count);
    }

  private:
    void awaitSuccess() {
        int status = 0;
        if (child_ <= 0)
            return;
        waitpid(std::exchange(child_, 0), &status, 0);
        if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
            refuse("the list " + path_.string() + " cannot be unpacked");
    }

    std::filesystem::path path_;
    int read_ = -1;
    pid_t child_ = 0;
};

}  // namespace

std::unique_ptr<repository::ByteSource> openPackageList(const std::filesystem::path& path) {
    static const std::set<std::string> kCompressed{".lz4", ".gz", ".xz", ".zst", ".bz2", ".lzma"};
    if (kCompressed.count(path.extension().string()) != 0)
        return std::make_unique<UnpackedFile>(path);
    return repository::openPlainFile(path);
}

bool errorStreamIsTerminal() {
    return isatty(STDERR_FILENO) == 1;
}

}  // namespace quorel::hosts
