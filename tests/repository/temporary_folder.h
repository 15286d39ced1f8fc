#pragma once

#include <atomic>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

namespace quorel::repository::testing {

/// A folder of one test, removed at its end.
class TemporaryFolder {
  public:
    TemporaryFolder() {
        std::random_device random;
        path_ = std::filesystem::temp_directory_path() /
                ("quorel-" + std::to_string(random()) + std::to_string(random()));
        std::filesystem::create_directories(path_);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    [[nodiscard]] const std::filesystem::path& path() const noexcept { return path_; }
    [[nodiscard]] std::u16string file(const std::string& name = "test.quorel") const {
        return (path_ / name).u16string();
    }
    /// How many files stand in the folder.
    [[nodiscard]] std::size_t count() const {
        return static_cast<std::size_t>(
            std::distance(std::filesystem::directory_iterator(path_), std::filesystem::directory_iterator()));
    }

  private:
    std::filesystem::path path_;
};

[[nodiscard]] inline std::string contentsOf(const std::filesystem::path& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

inline void writeFile(const std::filesystem::path& path, const std::string& contents) {
    std::ofstream(path, std::ios::binary) << contents;
}

}  // namespace quorel::repository::testing
