#include "platform/shell/file_settings_store.h"

#include <fstream>
#include <iterator>
#include <ostream>

#include "platform/automation/error.h"
#include "platform/shell/settings_text.h"
#include "platform/shell/whole_file.h"

namespace quorel::shell {

namespace fs = std::filesystem;

namespace {

[[noreturn]] void raiseAccess(const fs::path& file, std::u16string_view what) {
    std::u16string description(what);
    description.append(u": ").append(file.u16string());
    throw automation::Error(automation::error_number::kPathFileAccess, std::move(description));
}

std::string readWhole(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    std::string text{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    if (!in)
        raiseAccess(file, u"The settings cannot be read");
    return text;
}

}  // namespace

std::optional<std::u16string> FileSettingsStore::read(std::u16string_view application,
                                                      std::u16string_view section, std::u16string_view key) {
    refresh();
    const auto found =
        settings_.find({std::u16string(application), std::u16string(section), std::u16string(key)});
    return found != settings_.end() ? std::optional(found->second) : std::nullopt;
}

void FileSettingsStore::write(std::u16string_view application, std::u16string_view section,
                              std::u16string_view key, std::u16string_view value) {
    refresh();
    SettingMap next = settings_;
    next.insert_or_assign({std::u16string(application), std::u16string(section), std::u16string(key)},
                          std::u16string(value));
    replaceFile(formatSettings(next));
    settings_ = std::move(next);
    stamp_ = stampOfFile();
}

std::optional<FileSettingsStore::Stamp> FileSettingsStore::stampOfFile() const {
    std::error_code failure;
    const auto status = fs::status(file_, failure);
    if (status.type() == fs::file_type::not_found)
        return std::nullopt;
    Stamp stamp;
    stamp.time = fs::last_write_time(file_, failure);
    if (!failure)
        stamp.size = fs::file_size(file_, failure);
    if (failure)
        raiseAccess(file_, u"The settings cannot be read");
    return stamp;
}

void FileSettingsStore::refresh() {
    const std::optional<Stamp> stamp = stampOfFile();
    if (stamp == stamp_)
        return;
    settings_ = stamp ? parseSettings(readWhole(file_)) : SettingMap();
    stamp_ = stamp;
}

void FileSettingsStore::replaceFile(const std::string& text) const {
    std::error_code failure;
    fs::create_directories(file_.parent_path(), failure);
    const bool replaced = shell::replaceFile(file_, [&text](std::ostream& out) {
        out.write(text.data(), static_cast<std::streamsize>(text.size()));
    });
    if (!replaced)
        raiseAccess(file_, u"The settings cannot be written");
}

}  // namespace quorel::shell
