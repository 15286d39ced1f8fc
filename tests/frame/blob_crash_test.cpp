// A process that stores a file is ended at any moment: the file has its old content or the new one.

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <random>
#include <thread>

#include "frame/blob_files.h"

namespace quorel::frame {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kSize = 1U << 20U, kRest = 1000;

/// Stores one content after the other until it is ended.
[[noreturn]] void storeForEver(const fs::path& file) {
    for (std::uint8_t content = 'a';; content = content == 'z' ? 'a' : static_cast<std::uint8_t>(content + 1))
        storeBytes(std::vector<std::uint8_t>(kSize, content), file.u16string());
}

/// Empty when the content is whole.
std::string faultOf(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    const std::string content{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    if (content.size() != kSize + kRest)
        return "has " + std::to_string(content.size()) + " bytes";
    if (content.find_first_not_of(content.front()) != kSize)
        return "is of several stores";
    return content.find_first_not_of('#', kSize) == std::string::npos ? "" : "has lost its rest";
}

TEST(BlobCrash, AFileIsNeverHalfWritten) {
    const fs::path folder =
        fs::temp_directory_path() / ("quorel_crash_" + std::to_string(std::random_device()()));
    fs::create_directories(folder);
    const fs::path file = folder / "file";
    std::ofstream(file, std::ios::binary) << std::string(kSize, 'a') + std::string(kRest, '#');
    std::mt19937 random(1);
    for (int round = 0; round < 20; ++round) {
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0)
            storeForEver(file);
        std::this_thread::sleep_for(std::chrono::microseconds(2000 + random() % 30'000));
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        ASSERT_EQ(faultOf(file), "") << round;
    }
    fs::remove_all(folder);
}

}  // namespace
}  // namespace quorel::frame
