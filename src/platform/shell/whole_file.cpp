#include "platform/shell/whole_file.h"

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

#include <cstdio>
#include <fstream>
#include <memory>
#include <random>
#include <string>
#include <system_error>
#include <utility>

namespace quorel::shell {

namespace fs = std::filesystem;

namespace {

/// Removes a file at the end of its scope unless it has been moved away.
class TemporaryFile {
  public:
    explicit TemporaryFile(fs::path path) : path_(std::move(path)) {}
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() {
        std::error_code ignored;
        fs::remove(path_, ignored);
    }
    [[nodiscard]] const fs::path& path() const noexcept { return path_; }

  private:
    fs::path path_;
};

[[nodiscard]] fs::path behindLinks(const fs::path& file) {
    std::error_code failure;
    if (!fs::is_symlink(file, failure))
        return file;
    fs::path target = fs::weakly_canonical(file, failure);
    return failure ? file : target;
}

struct CloseFile {
    void operator()(std::FILE* file) const noexcept { static_cast<void>(std::fclose(file)); }
};

/// Waits until what is in a file is on the disk.
[[nodiscard]] bool flushToDisk(const fs::path& path) {
#ifdef _WIN32
    const std::unique_ptr<std::FILE, CloseFile> file(::_wfopen(path.c_str(), L"r+b"));
    return file && ::_commit(::_fileno(file.get())) == 0;
#else
    const std::unique_ptr<std::FILE, CloseFile> file(std::fopen(path.c_str(), "r+b"));
    return file && ::fsync(::fileno(file.get())) == 0;
#endif
}

}  // namespace

bool replaceFile(const fs::path& file, const std::function<void(std::ostream&)>& write) {
    const fs::path target = behindLinks(file);
    const TemporaryFile next(fs::path(target).concat(".").concat(std::to_string(std::random_device()())));
    std::error_code failure;
    {
        std::ofstream out(next.path(), std::ios::binary);
        write(out);
        out.close();
        if (!out || !flushToDisk(next.path()))
            return false;
    }
    if (fs::exists(target, failure))
        fs::permissions(next.path(), fs::status(target, failure).permissions(), failure);
    if (!failure)
        fs::rename(next.path(), target, failure);
    return !failure;
}

}  // namespace quorel::shell
