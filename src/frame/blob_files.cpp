#include "frame/blob_files.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <limits>
#include <string>

#include "platform/automation/error.h"
#include "platform/shell/whole_file.h"

namespace quorel::frame {

namespace fs = std::filesystem;
namespace numbers = automation::error_number;

namespace {

constexpr std::int32_t kPathNotFound = 76;

[[noreturn]] void fail(std::int32_t number, std::u16string_view fileName) {
    std::u16string description(automation::standardDescription(number));
    description.append(u": ").append(fileName);
    throw automation::Error(number, std::move(description));
}

[[nodiscard]] fs::path pathOf(std::u16string_view fileName) {
    if (fileName.empty() || fileName.find(u'\0') != std::u16string_view::npos)
        fail(numbers::kPathFileAccess, fileName);
    return fs::path(std::u16string(fileName));
}

void write(std::ostream& out, std::span<const std::uint8_t> bytes) {
    out.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}

/// Copies what a file has from `offset` on.
void copyRest(std::istream& in, std::size_t offset, std::ostream& out) {
    std::array<char, 1U << 16U> buffer{};
    in.seekg(static_cast<std::streamoff>(offset));
    while (out && in.read(buffer.data(), buffer.size()).gcount() > 0)
        out.write(buffer.data(), in.gcount());
    if (in.bad())
        out.setstate(std::ios::badbit);
}

/// Makes a new file of the bytes and of what the old one has behind them.
[[nodiscard]] bool storeInFile(std::span<const std::uint8_t> bytes, const fs::path& file, bool exists) {
    std::fstream old;
    if (exists) {
        old.open(file, std::ios::in | std::ios::out | std::ios::binary);
        if (!old)
            return false;
    }
    return shell::replaceFile(file, [&](std::ostream& out) {
        write(out, bytes);
        if (exists)
            copyRest(old, bytes.size(), out);
        old.close();
    });
}

[[nodiscard]] bool storeInDevice(std::span<const std::uint8_t> bytes, const fs::path& device) {
    std::ofstream out(device, std::ios::binary);
    write(out, bytes);
    out.close();
    return !out.fail();
}

}  // namespace

std::vector<std::uint8_t> loadBytes(std::u16string_view fileName) {
    const fs::path file = pathOf(fileName);
    std::error_code failure;
    const fs::file_status status = fs::status(file, failure);
    if (status.type() == fs::file_type::not_found)
        fail(numbers::kFileNotFound, fileName);
    // Nothing but a plain file: a device might never end.
    const std::uintmax_t size = fs::is_regular_file(status) ? fs::file_size(file, failure) : 0;
    std::ifstream in;
    if (fs::is_regular_file(status) && !failure)
        in.open(file, std::ios::binary);
    if (!in.is_open())
        fail(numbers::kPathFileAccess, fileName);
    if (size > static_cast<std::uintmax_t>(std::numeric_limits<std::int32_t>::max()))
        fail(numbers::kOutOfMemory, fileName);
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(size) + 1);
    if (!in.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(size)))
        fail(numbers::kPathFileAccess, fileName);
    return bytes;
}

void storeBytes(std::span<const std::uint8_t> bytes, std::u16string_view fileName) {
    const fs::path file = pathOf(fileName);
    std::error_code failure;
    const fs::file_status status = fs::status(file, failure);
    const bool exists = fs::exists(status);
    if (!exists && file.has_parent_path() && !fs::is_directory(file.parent_path(), failure))
        fail(kPathNotFound, fileName);
    const bool isPlain = !exists || fs::is_regular_file(status);
    const bool stored =
        isPlain ? storeInFile(bytes, file, exists) : !fs::is_directory(status) && storeInDevice(bytes, file);
    if (!stored)
        fail(numbers::kPathFileAccess, fileName);
}

}  // namespace quorel::frame
