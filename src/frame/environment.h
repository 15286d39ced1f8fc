#pragma once

#include <string>

#include "platform/automation/class_registry.h"
#include "platform/shell/clock.h"
#include "platform/shell/file_dialogs.h"
#include "platform/shell/folder_browser.h"
#include "platform/shell/settings_store.h"
#include "platform/shell/value_pickers.h"
#include "platform/ui/cancel_key.h"
#include "platform/ui/desktop.h"
#include "platform/ui/drawing_export.h"
#include "platform/ui/picture_objects.h"

namespace quorel::frame {

/// What the public classes need of the world, made once by an entry point (the server, a test, a program) and
/// handed down; outlives every object made with it.
struct Environment {
    ui::Desktop& desktop;
    automation::ClassRegistry& classes;
    shell::Clock& clock;
    shell::SettingsStore& settings;
    /// Null where nobody can choose files.
    shell::FileDialogs* fileDialogs = nullptr;
    /// Null where values can only be typed.
    shell::ValuePickers* valuePickers = nullptr;
    /// Null where there are no pictures.
    ui::PictureObjects* pictureObjects = nullptr;
    /// Null where nobody can choose folders of the system's tree.
    shell::FolderBrowser* folderBrowser = nullptr;
    /// Where the library lies with its picture files, without a separator at its end.
    std::u16string libraryFolder{};
    /// Null where no drawing can be put into a file.
    ui::DrawingExport* drawingExport = nullptr;
    /// Null where nobody can press a key while a program works.
    ui::CancelKey* cancelKey = nullptr;
};

}  // namespace quorel::frame
