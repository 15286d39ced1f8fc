#include "repository/component/component_library.h"

#include "platform/win32/com/bridge.h"
#include "repository/component/select_file.h"
#include "repository/session.h"

namespace quorel::repository {

namespace {

constexpr GUID kRepositoryManager = {
    0x2F89DDD8, 0xF939, 0x488C, {0xA8, 0x54, 0xBE, 0x15, 0x80, 0x87, 0x10, 0x39}};
constexpr GUID kSession = {0x1FD1F17F, 0x41E0, 0x4D53, {0x96, 0x84, 0x7E, 0xE7, 0x5F, 0xE5, 0x37, 0xB8}};
constexpr GUID kRepository = {0x6DD5550A, 0x5E72, 0x4BC8, {0xBE, 0x92, 0x82, 0x5A, 0xDE, 0x4C, 0xB4, 0xA5}};

Services platformServices() {
    return {selectRepositoryFile, win32::createPlatformObject};
}

}  // namespace

std::vector<win32::ComClass> repositoryComClasses() {
    return {
        {kRepositoryManager, u"QuorelRepository.RepositoryManager",
         u"Opens and creates repositories by file name.",
         [] { return automation::Object(automation::make<RepositoryManager>(platformServices())); }},
        {kSession, u"QuorelRepository.Session",
         u"A repository manager and the registry of a host's component windows.",
         [] { return automation::Object(automation::make<Session>(platformServices())); }},
        {kRepository, u"QuorelRepository.Repository", u"A typed graph of nodes and links in one file.",
         [] { return automation::Object(automation::make<Repository>()); }},
    };
}

}  // namespace quorel::repository
