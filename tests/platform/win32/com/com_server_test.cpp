#include "platform/win32/com/com_server.h"

#include <gtest/gtest.h>

#include "platform/automation/error.h"
#include "platform/win32/com/com_ptr.h"
#include "platform/win32/com/native_dispatch.h"
#include "tests/platform/win32/com/native_thing.h"

namespace quorel::win32::testing {
namespace {

constexpr GUID kThing{0x5b0d0a11, 0x7c55, 0x4d63, {0x8f, 0x20, 0x11, 0x5a, 0x90, 0x3b, 0x77, 0x01}};
constexpr GUID kBroken{0x5b0d0a11, 0x7c55, 0x4d63, {0x8f, 0x20, 0x11, 0x5a, 0x90, 0x3b, 0x77, 0x02}};
constexpr GUID kUnknown{0x5b0d0a11, 0x7c55, 0x4d63, {0x8f, 0x20, 0x11, 0x5a, 0x90, 0x3b, 0x77, 0x03}};

class ComServer : public ::testing::Test {
  protected:
    static automation::Object makeThing() { return automation::make<NativeThing>(); }
    static automation::Object makeNothing() { throw automation::Error(7); }

    ComPtr<IClassFactory> factory(const GUID& clsid) {
        ComPtr<IClassFactory> result;
        EXPECT_EQ(module.getClassObject(clsid, IID_IClassFactory, result.outVoid()), S_OK);
        return result;
    }
    static std::wstring read(const std::wstring& key, const wchar_t* name) {
        wchar_t text[512];
        DWORD size = sizeof text;
        const LSTATUS status = ::RegGetValueW(HKEY_LOCAL_MACHINE, (L"Software\\Classes\\" + key).c_str(),
                                              name, RRF_RT_REG_SZ, nullptr, text, &size);
        return status == ERROR_SUCCESS ? text : L"(none)";
    }

    ComModule module{{{kThing, u"QuorelBridgeTest.Thing", u"A thing", makeThing},
                      {kBroken, u"QuorelBridgeTest.Broken", u"Never made", makeNothing}}};
};

TEST_F(ComServer, CreatesItsClasses) {
    ComPtr<IDispatch> object;
    EXPECT_EQ(factory(kThing)->CreateInstance(nullptr, IID_IDispatch, object.outVoid()), S_OK);
    EXPECT_NE(nativeBehind(object.get()), nullptr);
}

TEST_F(ComServer, HasNoOtherClasses) {
    ComPtr<IClassFactory> result;
    EXPECT_EQ(module.getClassObject(kUnknown, IID_IClassFactory, result.outVoid()),
              CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(module.getClassObject(kThing, IID_IStream, result.outVoid()), E_NOINTERFACE);
    EXPECT_EQ(module.getClassObject(kThing, IID_IClassFactory, nullptr), E_POINTER);
}

TEST_F(ComServer, CannotBeAggregated) {
    const auto object = factory(kThing);
    ComPtr<IDispatch> result;
    EXPECT_EQ(object->CreateInstance(object.get(), IID_IUnknown, result.outVoid()), CLASS_E_NOAGGREGATION);
}

TEST_F(ComServer, FailedCreationsSayWhy) {
    ComPtr<IDispatch> result;
    EXPECT_EQ(factory(kBroken)->CreateInstance(nullptr, IID_IDispatch, result.outVoid()),
              static_cast<HRESULT>(0x800A0007));
    ComPtr<IErrorInfo> info;
    EXPECT_EQ(::GetErrorInfo(0, info.out()), S_OK);
}

TEST_F(ComServer, UnloadsOnlyWhenNothingIsHeld) {
    ASSERT_EQ(ComModule::canUnloadNow(), S_OK);
    auto held = factory(kThing);
    EXPECT_EQ(ComModule::canUnloadNow(), S_FALSE);
    ComPtr<IDispatch> object;
    ASSERT_EQ(held->CreateInstance(nullptr, IID_IDispatch, object.outVoid()), S_OK);
    held.reset();
    EXPECT_EQ(ComModule::canUnloadNow(), S_FALSE);
    auto support = object.as<ISupportErrorInfo>();
    object.reset();
    EXPECT_EQ(ComModule::canUnloadNow(), S_FALSE);
    support.reset();
    EXPECT_EQ(ComModule::canUnloadNow(), S_OK);
}

TEST_F(ComServer, LocksKeepItLoaded) {
    auto held = factory(kThing);
    held->LockServer(TRUE);
    held.reset();
    EXPECT_EQ(ComModule::canUnloadNow(), S_FALSE);
    factory(kThing)->LockServer(FALSE);
    EXPECT_EQ(ComModule::canUnloadNow(), S_OK);
}

TEST_F(ComServer, RegistersAndUnregistersItsClasses) {
    const std::wstring id = L"{5B0D0A11-7C55-4D63-8F20-115A903B7701}";
    ASSERT_EQ(module.registerServer(), S_OK);
    EXPECT_EQ(read(L"QuorelBridgeTest.Thing\\CLSID", nullptr), id);
    EXPECT_EQ(read(L"QuorelBridgeTest.Thing\\CurVer", nullptr), L"QuorelBridgeTest.Thing.1");
    EXPECT_EQ(read(L"QuorelBridgeTest.Thing.1\\CLSID", nullptr), id);
    EXPECT_EQ(read(L"CLSID\\" + id, nullptr), L"A thing");
    EXPECT_EQ(read(L"CLSID\\" + id + L"\\ProgID", nullptr), L"QuorelBridgeTest.Thing.1");
    EXPECT_EQ(read(L"CLSID\\" + id + L"\\VersionIndependentProgID", nullptr), L"QuorelBridgeTest.Thing");
    EXPECT_EQ(read(L"CLSID\\" + id + L"\\InprocServer32", L"ThreadingModel"), L"Apartment");
    EXPECT_NE(read(L"CLSID\\" + id + L"\\InprocServer32", nullptr).find(L"com_bridge_test"),
              std::wstring::npos);

    EXPECT_EQ(module.unregisterServer(), S_OK);
    EXPECT_EQ(read(L"CLSID\\" + id, nullptr), L"(none)");
    EXPECT_EQ(read(L"QuorelBridgeTest.Thing\\CLSID", nullptr), L"(none)");
    EXPECT_EQ(module.unregisterServer(), S_OK);
}

TEST_F(ComServer, InstallsForTheCurrentUser) {
    EXPECT_EQ(module.install(TRUE, L"everybody"), E_INVALIDARG);
    EXPECT_EQ(module.install(TRUE, nullptr), E_INVALIDARG);
    ASSERT_EQ(module.install(TRUE, L"User"), S_OK);
    wchar_t text[64];
    DWORD size = sizeof text;
    const wchar_t* key = L"Software\\Classes\\QuorelBridgeTest.Thing\\CLSID";
    EXPECT_EQ(::RegGetValueW(HKEY_CURRENT_USER, key, nullptr, RRF_RT_REG_SZ, nullptr, text, &size),
              ERROR_SUCCESS);
    EXPECT_EQ(module.install(FALSE, L"user"), S_OK);
    size = sizeof text;
    EXPECT_EQ(::RegGetValueW(HKEY_CURRENT_USER, key, nullptr, RRF_RT_REG_SZ, nullptr, text, &size),
              ERROR_FILE_NOT_FOUND);
}

}  // namespace
}  // namespace quorel::win32::testing
