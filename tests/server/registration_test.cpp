#include <gtest/gtest.h>

#include <vector>

#include "platform/automation/calls.h"
#include "platform/automation/error.h"
#include "platform/win32/com/activation.h"
#include "platform/win32/com/bridge.h"
#include "server/QuorelUtility.h"
#include "tests/server/server_dll.h"

namespace quorel::server::testing {
namespace {

using win32::ComPtr;

const std::u16string_view kCreatable[] = {u"QuorelUtility.UUIDGenerator",
                                          u"QuorelUtility.NameEdit",
                                          u"QuorelUtility.MatrixBrowser",
                                          u"QuorelUtility.PropertyEditor",
                                          u"QuorelUtility.SixPane",
                                          u"QuorelUtility.Explorer",
                                          u"QuorelUtility.HTExplorer",
                                          u"QuorelUtility.Settings",
                                          u"QuorelUtility.SettingEntry",
                                          u"QuorelUtility.Options",
                                          u"QuorelUtility.Progress",
                                          u"QuorelUtility.ProgressBar",
                                          u"QuorelUtility.Blob",
                                          u"QuorelUtility.SelectItem",
                                          u"QuorelUtility.DirectoryChooser",
                                          u"VardekFileSelector.FileSelector",
                                          u"VardekFileAccess.c_FileType",
                                          u"QuorelDiagramWindow.Diagram",
                                          u"QuorelUtility.ShowMetamodel"};

bool isLibraryRegistered() {
    TLIBATTR* attributes = nullptr;
    const auto contract = loadContract();
    EXPECT_EQ(contract->GetLibAttr(&attributes), S_OK);
    ComPtr<ITypeLib> library;
    const HRESULT status = ::LoadRegTypeLib(attributes->guid, 1, 0, 0, library.out());
    contract->ReleaseTLibAttr(attributes);
    return SUCCEEDED(status);
}

/// Leaves the library registered for the machine, as other tests and hosts find it.
class Registration : public ::testing::Test {
  protected:
    ~Registration() override { EXPECT_EQ(dll.registerServer(), S_OK); }
    ServerDll dll;
};

TEST_F(Registration, MakesTheClassesKnown) {
    ASSERT_EQ(dll.unregisterServer(), S_OK);
    for (const auto progId : kCreatable)
        EXPECT_FALSE(win32::createPlatformObject(progId));
    EXPECT_FALSE(isLibraryRegistered());

    ASSERT_EQ(dll.registerServer(), S_OK);
    for (const auto progId : kCreatable) {
        EXPECT_TRUE(win32::createPlatformObject(progId));
        EXPECT_TRUE(win32::createPlatformObject(std::u16string(progId) + u".1"));
    }
    EXPECT_TRUE(isLibraryRegistered());
    EXPECT_FALSE(win32::createPlatformObject(u"QuorelUtility.Unknown"));
    EXPECT_EQ(dll.unregisterServer(), S_OK);
    EXPECT_EQ(dll.unregisterServer(), S_OK);
}

TEST_F(Registration, ServesOneUser) {
    ASSERT_EQ(dll.install(TRUE, L"user"), S_OK);
    wchar_t text[64];
    DWORD size = sizeof text;
    EXPECT_EQ(::RegGetValueW(HKEY_CURRENT_USER, L"Software\\Classes\\QuorelUtility.SixPane\\CLSID", nullptr,
                             RRF_RT_REG_SZ, nullptr, text, &size),
              ERROR_SUCCESS);
    EXPECT_EQ(dll.install(FALSE, L"user"), S_OK);
    EXPECT_EQ(dll.install(TRUE, L"machine"), E_INVALIDARG);
}

TEST_F(Registration, IsNotNeededWithTheManifest) {
    ASSERT_EQ(dll.unregisterServer(), S_OK);
    const win32::ActivationContext manifest(beside(L"QuorelUtility.manifest"));
    {
        const win32::ActivationScope active(manifest);
        for (const auto progId : kCreatable)
            EXPECT_TRUE(win32::createPlatformObject(progId));
        ComPtr<IUnknown> generator;
        EXPECT_EQ(::CoCreateInstance(__uuidof(::UUIDGenerator), nullptr, CLSCTX_INPROC_SERVER,
                                     __uuidof(IUUIDGenerator), generator.outVoid()),
                  S_OK);
    }
    EXPECT_FALSE(win32::createPlatformObject(kCreatable[0]));
}

TEST(Dll, SaysItsVersion) {
    const std::wstring path = beside(L"QuorelUtility.dll");
    DWORD unused = 0;
    std::vector<char> block(::GetFileVersionInfoSizeW(path.c_str(), &unused));
    ASSERT_FALSE(block.empty());
    ASSERT_NE(::GetFileVersionInfoW(path.c_str(), 0, static_cast<DWORD>(block.size()), block.data()), FALSE);
    void* value = nullptr;
    UINT length = 0;
    ASSERT_NE(::VerQueryValueW(block.data(), L"\\StringFileInfo\\040904B0\\ProductName", &value, &length),
              FALSE);
    EXPECT_STREQ(static_cast<const wchar_t*>(value), L"QuorelUtility");
}

}  // namespace
}  // namespace quorel::server::testing
