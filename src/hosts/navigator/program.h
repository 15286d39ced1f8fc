#pragma once

#include <string>

#include "frame/environment.h"
#include "navigator/services.h"
#include "platform/win32/ui/registry_settings_store.h"
#include "platform/win32/ui/windows_clock.h"
#include "platform/win32/ui/windows_desktop.h"
#include "platform/win32/ui/windows_drawing_export.h"
#include "platform/win32/ui/windows_file_dialogs.h"
#include "platform/win32/ui/windows_picture_objects.h"
#include "platform/win32/ui/windows_value_pickers.h"

namespace quorel::hosts {

/// What the program has of the system, made once.
class Program {
  public:
    Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    [[nodiscard]] const frame::Environment& environment() const noexcept { return environment_; }
    /// Shows the main window, with that file if it is not empty, and serves the user until it is closed.
    /// Returns the exit code. What keeps the window from showing is told in the error box.
    [[nodiscard]] int show(const std::u16string& file);

  private:
    [[nodiscard]] int serve(const std::u16string& file);

    win32::WindowsDesktop desktop_;
    win32::RegistrySettingsStore settings_;
    win32::WindowsClock clock_;
    win32::WindowsFileDialogs fileDialogs_;
    win32::WindowsValuePickers valuePickers_;
    win32::WindowsPictureObjects pictureObjects_;
    win32::WindowsDrawingExport drawingExport_;
    automation::ClassRegistry classes_;
    frame::Environment environment_;
};

}  // namespace quorel::hosts
