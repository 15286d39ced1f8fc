#include "server/com_library.h"

#include "platform/win32/com/this_module.h"
#include "server/com_class_objects.h"
#include "server/public_classes.h"

namespace quorel::server {

namespace {

std::vector<win32::ComClass> classesOf(const frame::Environment& environment) {
    registerPublicClasses(environment);
    return publicComClasses(environment.classes);
}

}  // namespace

Library::Library()
    : desktop_(win32::thisModule()),
      fileDialogs_(desktop_),
      valuePickers_(desktop_),
      drawingExport_(desktop_),
      classes_(win32::createPlatformObject),
      environment_{.desktop = desktop_,
                   .classes = classes_,
                   .clock = clock_,
                   .settings = settings_,
                   .fileDialogs = &fileDialogs_,
                   .valuePickers = &valuePickers_,
                   .pictureObjects = &pictureObjects_,
                   .folderBrowser = &fileDialogs_,
                   .libraryFolder = win32::thisModuleFolder(),
                   .drawingExport = &drawingExport_,
                   .cancelKey = &desktop_},
      module_(classesOf(environment_), publicTypeLibrary()) {}

HRESULT Library::canUnloadNow() const noexcept {
    return desktop_.isIdle() ? win32::ComModule::canUnloadNow() : S_FALSE;
}

}  // namespace quorel::server
