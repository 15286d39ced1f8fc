#pragma once

#include <windows.h>

#include <cstddef>
#include <string>
#include <vector>

namespace quorel::spy {

/// A block of memory in another process, for messages that carry pointers.
class RemoteMemory {
  public:
    /// In the process that owns `window`. Throws std::runtime_error when that process does not let us in.
    RemoteMemory(HWND window, std::size_t bytes);
    ~RemoteMemory();
    RemoteMemory(const RemoteMemory&) = delete;
    RemoteMemory& operator=(const RemoteMemory&) = delete;

    [[nodiscard]] std::byte* address() const noexcept { return address_; }
    void write(std::size_t offset, const void* data, std::size_t bytes) const;
    void read(std::size_t offset, void* data, std::size_t bytes) const;
    /// The null-terminated text of at most `units` UTF-16 units at `offset`.
    [[nodiscard]] std::wstring text(std::size_t offset, std::size_t units) const;

  private:
    HANDLE process_;
    std::byte* address_;
};

}  // namespace quorel::spy
