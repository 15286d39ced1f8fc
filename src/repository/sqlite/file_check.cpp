#include "repository/sqlite/file_check.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <fstream>
#include <string_view>

#include "platform/automation/text.h"
#include "repository/errors.h"
#include "repository/sqlite/schema.h"

namespace quorel::repository::sqlite {

namespace {

// The header of the storage format: its magic text, and two big-endian numbers that are the application's
// own.
constexpr std::size_t kHeaderSize = 100;
constexpr std::string_view kMagic("SQLite format 3\0", 16);
constexpr std::size_t kUserVersionAt = 60;
constexpr std::size_t kApplicationIdAt = 68;

using Header = std::array<char, kHeaderSize>;

std::uint32_t bigEndian(const Header& header, std::size_t offset) {
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < 4; ++i)
        number = (number << 8) | static_cast<unsigned char>(header.at(offset + i));
    return number;
}

}  // namespace

std::filesystem::path pathOf(const std::u16string& file) {
#ifdef _WIN32
    return std::filesystem::path(file);
#else
    return std::filesystem::path(automation::toUtf8(file));
#endif
}

void checkFile(const std::u16string& file) {
    const std::filesystem::path path = pathOf(file);
    std::error_code ignored;
    if (file.empty() || !std::filesystem::exists(path, ignored))
        throw failure(automation::error_number::kFileNotFound,
                      u"There is no repository file " + inQuotes(file));
    if (!std::filesystem::is_regular_file(path, ignored))
        throw failure(error_number::kBadFileFormat, inQuotes(file) + u" is no file");
    std::ifstream stream(path, std::ios::binary);
    if (!stream)
        throw failure(automation::error_number::kPathFileAccess,
                      u"The file " + inQuotes(file) + u" cannot be read: it is protected or in use");
    Header header{};
    stream.read(header.data(), header.size());
    const bool isOurs = stream.gcount() == static_cast<std::streamsize>(kHeaderSize) &&
                        std::equal(kMagic.begin(), kMagic.end(), header.begin()) &&
                        bigEndian(header, kApplicationIdAt) == static_cast<std::uint32_t>(kApplicationId);
    if (!isOurs)
        throw failure(error_number::kBadFileFormat, u"The file " + inQuotes(file) + u" is no repository");
    const std::uint32_t version = bigEndian(header, kUserVersionAt);
    if (version > static_cast<std::uint32_t>(kSchemaVersion))
        throw failure(error_number::kBadFileFormat,
                      u"The repository " + inQuotes(file) + u" was made by a newer program (file version " +
                          automation::decimal(version) + u", this program knows " +
                          automation::decimal(kSchemaVersion) + u")");
}

}  // namespace quorel::repository::sqlite
