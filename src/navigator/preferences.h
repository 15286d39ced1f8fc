#pragma once

#include <cstddef>
#include <string>

#include "navigator/services.h"
#include "navigator/workspace.h"
#include "platform/shell/settings_store.h"

namespace quorel::navigator {

/// What the user has chosen in the options dialog.
struct Preferences {
    /// What a search finds is shown in the matrix browser, where that can show it, instead of the six-pane
    /// one.
    bool revealsInMatrix = false;
    /// The file that was open last is opened at start.
    bool reopensLast = false;
    std::size_t recentLimit = 10;
    friend bool operator==(const Preferences&, const Preferences&) = default;
};

/// The stored choices; what is not stored, or makes no sense, is as above. Throws what the store throws.
[[nodiscard]] Preferences readPreferences(shell::SettingsStore& settings);

/// Lets the user edit them in "QuorelUtility.Options". Their descriptions are in "settings.quorel" in the
/// user's folder, which is made when it is not there.
void editPreferences(const Services& services, Workspace& workspace);

/// Makes the user's folder if need be. Error 75 that names it when that fails.
void makeUserFolder(const Services& services);

}  // namespace quorel::navigator
