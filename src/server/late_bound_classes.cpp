#include "server/com_class_objects.h"

namespace quorel::server {

namespace {

// The contract does not describe these: they are called by name.
constexpr GUID kFileSelector = {0x594603AA, 0xFEC0, 0x4537, {0x91, 0x70, 0x68, 0x2B, 0x3D, 0x68, 0x09, 0x47}};
constexpr GUID kFileTypes = {0x9FDC875D, 0xF917, 0x4565, {0xA4, 0xAC, 0x21, 0xC6, 0xE8, 0x11, 0x5D, 0x11}};
constexpr GUID kShowMetamodel = {
    0xACB14222, 0x43DF, 0x406E, {0x9C, 0x31, 0xD9, 0x27, 0xC5, 0x09, 0x92, 0x35}};
constexpr GUID kDiagram = {0x59F198F2, 0xEDD1, 0x4A93, {0xB8, 0x53, 0x93, 0xB2, 0x77, 0xDE, 0x4F, 0xED}};

win32::ComClass offerLateBound(const automation::ClassRegistry& registry, const GUID& clsid,
                               std::u16string progId, std::u16string description) {
    return {clsid, progId, std::move(description),
            [&registry, progId] { return registry.createObject(progId); }};
}

}  // namespace

win32::ComClass fileSelectorClass(const automation::ClassRegistry& registry) {
    return offerLateBound(registry, kFileSelector, u"VardekFileSelector.FileSelector",
                          u"Lets the user choose a file or a folder.");
}

win32::ComClass fileTypesClass(const automation::ClassRegistry& registry) {
    return offerLateBound(registry, kFileTypes, u"VardekFileAccess.c_FileType",
                          u"Types of files with extension and filter, by key.");
}

win32::ComClass diagramClass(const automation::ClassRegistry& registry) {
    return offerLateBound(registry, kDiagram, u"QuorelDiagramWindow.Diagram",
                          u"Draws boxes and connections that the host describes.");
}

win32::ComClass showMetamodelClass(const automation::ClassRegistry& registry) {
    return offerLateBound(registry, kShowMetamodel, u"QuorelUtility.ShowMetamodel",
                          u"Draws the metamodel of a repository as a diagram.");
}

}  // namespace quorel::server
