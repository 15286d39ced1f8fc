#pragma once

#include <vector>

#include "platform/automation/class_registry.h"
#include "platform/win32/com/com_server.h"

namespace quorel::server {

// One function per public class: what the platform has to know of it. Objects come from `registry`, which has
// the class already; from now on they have their published interface.
[[nodiscard]] win32::ComClass blobClass(const automation::ClassRegistry& registry);
[[nodiscard]] win32::ComClass diagramClass(const automation::ClassRegistry& registry);
[[nodiscard]] win32::ComClass showMetamodelClass(const automation::ClassRegistry& registry);
[[nodiscard]] win32::ComClass directoryChooserClass(const automation::ClassRegistry& registry);
[[nodiscard]] win32::ComClass explorerClass(const automation::ClassRegistry& registry);
[[nodiscard]] win32::ComClass fileSelectorClass(const automation::ClassRegistry& registry);
[[nodiscard]] win32::ComClass fileTypesClass(const automation::ClassRegistry& registry);
[[nodiscard]] win32::ComClass htExplorerClass(const automation::ClassRegistry& registry);
[[nodiscard]] win32::ComClass matrixBrowserClass(const automation::ClassRegistry& registry);
[[nodiscard]] win32::ComClass nameEditClass(const automation::ClassRegistry& registry);
[[nodiscard]] win32::ComClass optionsClass(const automation::ClassRegistry& registry);
[[nodiscard]] win32::ComClass progressBarClass(const automation::ClassRegistry& registry);
[[nodiscard]] win32::ComClass progressClass(const automation::ClassRegistry& registry);
[[nodiscard]] win32::ComClass propertyEditorClass(const automation::ClassRegistry& registry);
[[nodiscard]] win32::ComClass selectItemClass(const automation::ClassRegistry& registry);
[[nodiscard]] win32::ComClass settingEntryClass(const automation::ClassRegistry& registry);
[[nodiscard]] win32::ComClass settingsClass(const automation::ClassRegistry& registry);
[[nodiscard]] win32::ComClass sixPaneClass(const automation::ClassRegistry& registry);
[[nodiscard]] win32::ComClass uuidGeneratorClass(const automation::ClassRegistry& registry);

/// Every class that hosts can create.
[[nodiscard]] std::vector<win32::ComClass> publicComClasses(const automation::ClassRegistry& registry);

/// The type library that describes them.
[[nodiscard]] win32::ComTypeLibrary publicTypeLibrary() noexcept;

}  // namespace quorel::server
