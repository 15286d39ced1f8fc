#include "navigator/preferences.h"

#include <array>
#include <cmath>
#include <filesystem>

#include "navigator/hosted_window.h"
#include "navigator/paths.h"
#include "navigator/recent_files.h"
#include "navigator/setting_names.h"
#include "platform/automation/calls.h"
#include "platform/automation/error.h"
#include "platform/automation/number_text.h"
#include "platform/automation/text.h"
#include "repository/sqlite/file_check.h"

namespace quorel::navigator {

using automation::Error;
using automation::Object;
using repository::sqlite::pathOf;

namespace {

constexpr std::u16string_view kRevealInMatrix = u"RevealInMatrix", kReopenLast = u"ReopenLast",
                              kRecentLimit = u"RecentFiles";

struct PreferenceEntry {
    std::u16string_view name, initial, editType, category, description;
};

constexpr std::array<PreferenceEntry, 3> kEntries{{
    {kRevealInMatrix, u"0", u"Boolean", u"Navigator", u"Show what a search finds in the &matrix browser"},
    {kReopenLast, u"0", u"Boolean", u"Navigator", u"Open the last &file again at start"},
    {kRecentLimit, u"10", u"Text", u"Navigator", u"&Number of recent files (1 to 20)"},
}};

[[nodiscard]] std::u16string readText(shell::SettingsStore& settings, std::u16string_view name) {
    return settings.read(kOptionsCategory, kOptionsTitle, name).value_or(std::u16string());
}

/// Closes the description of the settings whatever happens.
class OpenDescription {
  public:
    OpenDescription(Workspace& workspace, Object information)
        : workspace_(workspace), information_(std::move(information)) {}
    OpenDescription(const OpenDescription&) = delete;
    OpenDescription& operator=(const OpenDescription&) = delete;
    ~OpenDescription() { workspace_.close(information_); }
    [[nodiscard]] const Object& information() const noexcept { return information_; }

  private:
    Workspace& workspace_;
    Object information_;
};

void makeTypes(const Object& information) {
    const Object repository = information.get(u"Repository").toObject();
    repository.call(u"MakeMetaNode", u"SettingList");
    const Object setting = repository.call(u"MakeMetaNode", u"Setting").toObject();
    for (const std::u16string_view property : {u"Value", u"EditType", u"EditCategory", u"EditDescription"})
        setting.call(u"MakeMetaProperty", property);
    repository.call(u"MakeMetaLink", u"SettingList.Has.Setting", u"SettingList", u"Setting");
    const Object generator = information.get(u"UUIDGenerator").toObject();
    repository.call(u"MakeNode", u"SettingList", kOptionsCategory, generator.call(u"GetUUID"));
}

[[nodiscard]] Object openDescription(const Services& services, Workspace& workspace) {
    makeUserFolder(services);
    const std::u16string file = joinPath(services.userFolder, u"settings.quorel");
    if (fileExists(file))
        return workspace.openBeside(file);
    Object information = workspace.createBeside(file);
    makeTypes(information);
    return information;
}

}  // namespace

Preferences readPreferences(shell::SettingsStore& settings) {
    Preferences preferences;
    preferences.revealsInMatrix = readText(settings, kRevealInMatrix) == u"1";
    preferences.reopensLast = readText(settings, kReopenLast) == u"1";
    const auto limit = automation::parseNumber(readText(settings, kRecentLimit));
    if (limit && *limit >= 1 && *limit <= RecentFiles::kMost && std::floor(*limit) == *limit)
        preferences.recentLimit = static_cast<std::size_t>(*limit);
    return preferences;
}

void editPreferences(const Services& services, Workspace& workspace) {
    const OpenDescription description(workspace, openDescription(services, workspace));
    const HostedWindow options(services.environment.classes, u"QuorelUtility.Options");
    options.object().call(u"Create");
    options.object().call(u"Init", description.information(), kOptionsTitle, kOptionsCategory);
    const Object settings = options.object().get(u"Settings").toObject();
    for (const PreferenceEntry& entry : kEntries)
        settings.call(u"initSetting", entry.name, entry.initial, entry.editType, entry.category,
                      entry.description);
    options.object().call(u"PopUp");
}

void makeUserFolder(const Services& services) {
    std::error_code failed;
    std::filesystem::create_directories(pathOf(services.userFolder), failed);
    if (failed)
        throw Error(automation::error_number::kPathFileAccess,
                    u"The folder '" + services.userFolder +
                        u"' cannot be made. Look whether a file of that name is there, or the drive is full.",
                    u"Navigator");
}

}  // namespace quorel::navigator
