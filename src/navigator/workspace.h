#pragma once

#include <string>

#include "platform/automation/class_registry.h"
#include "platform/automation/object.h"

namespace quorel::navigator {

/// A session of "QuorelRepository.Session" and the repository that is worked on in it. Everything is called
/// by name, as a host does.
class Workspace {
  public:
    explicit Workspace(automation::ClassRegistry& classes) : classes_(classes) {}

    /// Opens an existing file and works on it. Throws what the repository throws, with what the user can do
    /// about it behind its description.
    void open(const std::u16string& path) { adopt(openBeside(path)); }
    /// Opens an existing file, or makes a new one, beside the one that is worked on; the result is the
    /// repository's information. Throws in the same way.
    [[nodiscard]] automation::Object openBeside(const std::u16string& path);
    [[nodiscard]] automation::Object createBeside(const std::u16string& path);
    /// Works on that repository from now on. The one before must be closed.
    void adopt(automation::Object information);
    /// Closes the repository that is worked on. Harmless when there is none; nobody can do anything about a
    /// file that does not close.
    void close() noexcept;
    /// Closes another one.
    void close(const automation::Object& information) noexcept;

    [[nodiscard]] bool isOpen() const noexcept { return static_cast<bool>(repository_); }
    /// Empty while there is none.
    [[nodiscard]] const automation::Object& repository() const noexcept { return repository_; }
    /// Its information: `Repository`, `UUIDGenerator`, `FileName`.
    [[nodiscard]] const automation::Object& information() const noexcept { return information_; }
    [[nodiscard]] const std::u16string& path() const noexcept { return path_; }
    /// Made at the first call.
    [[nodiscard]] const automation::Object& session();

  private:
    [[nodiscard]] automation::Object ask(std::u16string_view member, const std::u16string& path);

    automation::ClassRegistry& classes_;
    automation::Object session_;
    automation::Object information_;
    automation::Object repository_;
    std::u16string path_;
};

}  // namespace quorel::navigator
