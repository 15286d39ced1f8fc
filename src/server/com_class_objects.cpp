#include "server/com_class_objects.h"

// The identifiers that the contract's header declares are defined here.
#include <initguid.h>

#include "server/QuorelUtility.h"

namespace quorel::server {

std::vector<win32::ComClass> publicComClasses(const automation::ClassRegistry& registry) {
    return {uuidGeneratorClass(registry), blobClass(registry),           directoryChooserClass(registry),
            selectItemClass(registry),    sixPaneClass(registry),        nameEditClass(registry),
            matrixBrowserClass(registry), propertyEditorClass(registry), progressClass(registry),
            progressBarClass(registry),   explorerClass(registry),       settingsClass(registry),
            settingEntryClass(registry),  optionsClass(registry),        fileSelectorClass(registry),
            fileTypesClass(registry),     htExplorerClass(registry),     diagramClass(registry),
            showMetamodelClass(registry)};
}

win32::ComTypeLibrary publicTypeLibrary() noexcept {
    return {LIBID_QuorelUtility, 1, 0};
}

}  // namespace quorel::server
