#pragma once

#include "frame/environment.h"
#include "platform/win32/com/bridge.h"
#include "platform/win32/com/com_server.h"
#include "platform/win32/ui/registry_settings_store.h"
#include "platform/win32/ui/windows_clock.h"
#include "platform/win32/ui/windows_desktop.h"
#include "platform/win32/ui/windows_drawing_export.h"
#include "platform/win32/ui/windows_file_dialogs.h"
#include "platform/win32/ui/windows_picture_objects.h"
#include "platform/win32/ui/windows_value_pickers.h"

namespace quorel::server {

/// The library as it lives in a host's process: its desktop, its services, the classes that hosts can create.
class Library {
  public:
    Library();

    [[nodiscard]] const win32::ComModule& module() const noexcept { return module_; }
    /// S_OK when the library may leave the process.
    [[nodiscard]] HRESULT canUnloadNow() const noexcept;

  private:
    win32::WindowsDesktop desktop_;
    win32::RegistrySettingsStore settings_;
    win32::WindowsClock clock_;
    win32::WindowsFileDialogs fileDialogs_;
    win32::WindowsValuePickers valuePickers_;
    win32::WindowsPictureObjects pictureObjects_;
    win32::WindowsDrawingExport drawingExport_;
    automation::ClassRegistry classes_;
    frame::Environment environment_;
    win32::ComModule module_;
};

}  // namespace quorel::server
