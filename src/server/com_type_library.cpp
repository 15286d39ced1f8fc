#include "server/com_type_library.h"

#include <cstring>
#include <map>
#include <mutex>
#include <string>

#include "platform/win32/com/this_module.h"

namespace quorel::server {

namespace {

struct ByBytes {
    bool operator()(const GUID& a, const GUID& b) const noexcept { return std::memcmp(&a, &b, sizeof a) < 0; }
};

/// Descriptions that were asked for. They are the platform's own and safe on every thread.
struct Loaded {
    std::mutex mutex;
    win32::ComPtr<ITypeLib> library;
    std::map<GUID, win32::ComPtr<ITypeInfo>, ByBytes> infos;
};

}  // namespace

win32::ComPtr<ITypeInfo> typeInfoOf(const GUID& iid) noexcept {
    static Loaded loaded;
    try {
        const std::lock_guard lock(loaded.mutex);
        if (!loaded.library) {
            const std::wstring path = win32::thisModulePath();
            if (FAILED(::LoadTypeLibEx(path.c_str(), REGKIND_NONE, loaded.library.out())))
                return {};
        }
        win32::ComPtr<ITypeInfo>& info = loaded.infos[iid];
        if (!info && FAILED(loaded.library->GetTypeInfoOfGuid(iid, info.out())))
            return {};
        return info;
    } catch (...) {
        return {};
    }
}

}  // namespace quorel::server
