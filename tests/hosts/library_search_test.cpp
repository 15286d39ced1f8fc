// Where programs look for libraries, measured with one that lies in wait.

#include "hosts/library_search.h"

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <string>

#include "platform/win32/unique.h"

namespace quorel::hosts::testing {
namespace {

constexpr const wchar_t* kPlanted = L"quorel-planted.dll";

std::filesystem::path programFolder() {
    std::array<wchar_t, 0x1000> path{};
    ::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    return std::filesystem::path(path.data()).parent_path();
}

/// A folder with the library that lies in wait, and a mark that says that it was loaded.
class LibrarySearch : public ::testing::Test {
  protected:
    LibrarySearch() {
        std::filesystem::create_directories(trap_);
        std::filesystem::copy_file(programFolder() / L"planted.dll", trap_ / kPlanted,
                                   std::filesystem::copy_options::overwrite_existing);
        std::filesystem::remove(mark_);
        ::SetEnvironmentVariableW(L"QUOREL_PLANTED", mark_.c_str());
    }
    ~LibrarySearch() override {
        std::filesystem::current_path(before_);
        ::SetEnvironmentVariableW(L"PATH", path_.c_str());
        std::error_code ignored;
        std::filesystem::remove_all(trap_, ignored);
    }
    void searchPathLeadsIntoTheTrap() {
        ::SetEnvironmentVariableW(L"PATH", (trap_.wstring() + L";" + path_).c_str());
    }
    /// Asks for the library by its bare name.
    bool isLoaded() {
        { const win32::ModuleHandle loaded(::LoadLibraryW(kPlanted)); }
        return std::filesystem::exists(mark_);
    }

  private:
    static std::wstring searchPath() {
        std::wstring text(0x8000, L'\0');
        text.resize(::GetEnvironmentVariableW(L"PATH", text.data(), static_cast<DWORD>(text.size())));
        return text;
    }

  protected:
    std::filesystem::path trap_ = std::filesystem::temp_directory_path() / L"quorel-trap";

  private:
    std::filesystem::path mark_ = std::filesystem::temp_directory_path() / L"quorel-planted-mark";
    std::filesystem::path before_ = std::filesystem::current_path();
    std::wstring path_ = searchPath();
};

// These two say that the trap works; the last one ends it for the whole process.
TEST_F(LibrarySearch, FindsWhatIsInTheCurrentFolderAsLongAsNobodyForbids) {
    std::filesystem::current_path(trap_);
    EXPECT_TRUE(isLoaded());
}

TEST_F(LibrarySearch, FindsWhatIsOnTheSearchPathAsLongAsNobodyForbids) {
    searchPathLeadsIntoTheTrap();
    EXPECT_TRUE(isLoaded());
}

TEST_F(LibrarySearch, OnceAtHomeFindsNothingInTheCurrentFolderOrOnTheSearchPath) {
    lookForLibrariesAtHome();
    std::filesystem::current_path(trap_);
    EXPECT_FALSE(isLoaded());
    searchPathLeadsIntoTheTrap();
    EXPECT_FALSE(isLoaded());
    EXPECT_NE(win32::ModuleHandle(::LoadLibraryW(L"version.dll")).get(), nullptr) << "the system's are found";
    EXPECT_NE(win32::ModuleHandle(::LoadLibraryW(L"planted.dll")).get(), nullptr) << "and the program's own";
}

}  // namespace
}  // namespace quorel::hosts::testing
