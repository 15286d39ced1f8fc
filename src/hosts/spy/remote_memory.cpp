#include "hosts/spy/remote_memory.h"

#include <stdexcept>

namespace quorel::spy {

RemoteMemory::RemoteMemory(HWND window, std::size_t bytes) : process_(nullptr), address_(nullptr) {
    DWORD id = 0;
    GetWindowThreadProcessId(window, &id);
    process_ = OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, id);
    if (process_ == nullptr)
        throw std::runtime_error("the window's process cannot be opened");
    address_ = static_cast<std::byte*>(
        VirtualAllocEx(process_, nullptr, bytes, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE));
    if (address_ == nullptr) {
        CloseHandle(process_);
        throw std::runtime_error("the window's process gives no memory");
    }
}

RemoteMemory::~RemoteMemory() {
    VirtualFreeEx(process_, address_, 0, MEM_RELEASE);
    CloseHandle(process_);
}

void RemoteMemory::write(std::size_t offset, const void* data, std::size_t bytes) const {
    if (WriteProcessMemory(process_, address_ + offset, data, bytes, nullptr) == FALSE)
        throw std::runtime_error("the window's process cannot be written");
}

void RemoteMemory::read(std::size_t offset, void* data, std::size_t bytes) const {
    if (ReadProcessMemory(process_, address_ + offset, data, bytes, nullptr) == FALSE)
        throw std::runtime_error("the window's process cannot be read");
}

std::wstring RemoteMemory::text(std::size_t offset, std::size_t units) const {
    std::wstring buffer(units, L'\0');
    read(offset, buffer.data(), units * sizeof(wchar_t));
    return buffer.substr(0, buffer.find(L'\0'));
}

}  // namespace quorel::spy
