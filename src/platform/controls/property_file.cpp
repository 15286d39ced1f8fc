#include "platform/controls/property_file.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

#include "platform/automation/error.h"

namespace quorel::controls {

namespace {

namespace error_number = automation::error_number;

[[nodiscard]] automation::Error about(std::int32_t number, std::u16string_view what,
                                      const std::u16string& name) {
    return {number, std::u16string(what) + u" \"" + name + u"\""};
}

}  // namespace

std::vector<std::uint8_t> readFile(const std::u16string& name) {
    const std::filesystem::path path(name);
    std::error_code ignored;
    if (!std::filesystem::exists(path, ignored))
        throw about(error_number::kFileNotFound, u"There is no file", name);
    std::ifstream file(path, std::ios::binary);
    std::vector<std::uint8_t> data{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    if (!file.is_open() || file.bad() || std::filesystem::is_directory(path, ignored))
        throw about(error_number::kPathFileAccess, u"This file cannot be read:", name);
    return data;
}

void writeFile(const std::u16string& name, const std::vector<std::uint8_t>& data) {
    std::ofstream file(std::filesystem::path(name), std::ios::binary | std::ios::trunc);
    file.write(reinterpret_cast<const char*>(data.data()), static_cast<std::streamsize>(data.size()));
    file.close();
    if (!file)
        throw about(error_number::kPathFileAccess, u"This file cannot be written:", name);
}

}  // namespace quorel::controls
