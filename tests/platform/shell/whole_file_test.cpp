// Files that are replaced as a whole. POSIX only: the program's own `fsync` takes the place of the system's.

#include "platform/shell/whole_file.h"

#include <gtest/gtest.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace quorel::shell::testing {
namespace {

namespace fs = std::filesystem;

/// What stood in the folder's two files whenever something was flushed.
struct Flush {
    std::string flushed, target;
};
std::vector<Flush> flushes;
fs::path watched;
bool diskFails = false;

std::string contentsOf(const fs::path& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

class WholeFile : public ::testing::Test {
  protected:
    WholeFile() {
        fs::create_directories(folder_);
        watched = file_;
        flushes.clear();
        diskFails = false;
        std::ofstream(file_) << "old";
    }
    ~WholeFile() override {
        watched.clear();
        fs::remove_all(folder_);
    }
    [[nodiscard]] bool replace(const std::string& text) {
        return replaceFile(file_, [&](std::ostream& out) { out << text; });
    }

    fs::path folder_ = fs::temp_directory_path() / ("quorel-whole-file-" + std::to_string(::getpid()));
    fs::path file_ = folder_ / "file";
};

TEST_F(WholeFile, IsOnTheDiskBeforeItTakesItsPlace) {
    EXPECT_TRUE(replace("new"));
    ASSERT_EQ(flushes.size(), 1U);
    EXPECT_EQ(flushes[0].flushed, "new");
    EXPECT_EQ(flushes[0].target, "old");
    EXPECT_EQ(contentsOf(file_), "new");
}

TEST_F(WholeFile, StaysWhenTheDiskTakesNothing) {
    diskFails = true;
    EXPECT_FALSE(replace("new"));
    EXPECT_EQ(contentsOf(file_), "old");
    EXPECT_EQ(std::distance(fs::directory_iterator(folder_), fs::directory_iterator()), 1);
}

}  // namespace
}  // namespace quorel::shell::testing

extern "C" int fsync(int descriptor) {
    using namespace quorel::shell::testing;
    if (!watched.empty()) {
        const fs::path open = fs::read_symlink("/proc/self/fd/" + std::to_string(descriptor));
        flushes.push_back({contentsOf(open), contentsOf(watched)});
    }
    if (diskFails) {
        errno = EIO;
        return -1;
    }
    return static_cast<int>(::syscall(SYS_fsync, descriptor));
}
