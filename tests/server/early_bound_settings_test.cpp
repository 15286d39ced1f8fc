// Hosts that call the classes of settings through the published interfaces.

#include <gtest/gtest.h>

#include "platform/automation/calls.h"
#include "platform/win32/com/bridge.h"
#include "platform/win32/com/failures.h"
#include "platform/win32/ui/registry_settings_store.h"
#include "server/QuorelUtility.h"
#include "tests/server/server_dll.h"
#include "tests/settings/settings_fixture.h"

namespace quorel::server::testing {
namespace {

using win32::Bstr;
using win32::ComPtr;
using win32::makeBstr;
using win32::Variant;
using win32::viewOf;

constexpr std::u16string_view kCategory = u"Browser";
constexpr wchar_t kPlace[] = L"Software\\VB and VBA Program Settings\\Browser";

/// A text that a member may change.
struct InOut {
    explicit InOut(std::u16string_view text) : value(makeBstr(text).release()) {}
    ~InOut() { ::SysFreeString(value); }
    InOut(const InOut&) = delete;
    InOut& operator=(const InOut&) = delete;
    [[nodiscard]] std::u16string text() const { return std::u16string(viewOf(value)); }
    BSTR value;
};

class EarlyBoundSettings : public ::testing::Test {
  protected:
    EarlyBoundSettings() { ::RegDeleteTreeW(HKEY_CURRENT_USER, kPlace); }
    ~EarlyBoundSettings() override { ::RegDeleteTreeW(HKEY_CURRENT_USER, kPlace); }

    [[nodiscard]] VARIANT_BOOL declare(ISettings& store, std::u16string_view spec, InOut& value) {
        InOut type(u"Text"), tab(u"Person"), description(u"Who it is");
        VARIANT_BOOL result = VARIANT_FALSE;
        EXPECT_EQ(store.initSetting(makeBstr(spec).get(), &value.value, &type.value, &tab.value,
                                    &description.value, &result),
                  S_OK);
        return result;
    }

    ServerDll dll;
    settings::SettingsModel model;
    ComPtr<IDispatch> information = win32::toDispatch(model.information);
    InOut title{u"Navigator"}, category{kCategory};
    win32::RegistrySettingsStore registry;
};

TEST_F(EarlyBoundSettings, KeepTheirOddResults) {
    const auto store = dll.create<ISettings>(__uuidof(::Settings));
    ASSERT_TRUE(store);
    IDispatch* object = information.get();
    EXPECT_EQ(store->Create(), S_OK);
    ASSERT_EQ(store->Init(&title.value, &category.value, &object), S_OK);
    VARIANT_BOOL result = VARIANT_FALSE;
    InOut value(u"untouched");
    EXPECT_EQ(store->GetEntry(makeBstr(u"Name").get(), &value.value, makeBstr(u"").get(), &result), S_OK);
    EXPECT_EQ(result, VARIANT_TRUE);
    EXPECT_EQ(value.text(), u"untouched");
    InOut fallback(u"Anna");
    EXPECT_EQ(declare(*store.get(), u"Name", fallback), VARIANT_TRUE);
    EXPECT_EQ(registry.read(u"Browser", u"Navigator", u"Name"), u"Anna");
    InOut other(u"Berta");
    EXPECT_EQ(declare(*store.get(), u"Name", other), VARIANT_TRUE);
    EXPECT_EQ(other.text(), u"Anna");
    EXPECT_EQ(store->GetEntry(makeBstr(u"Name").get(), &value.value, makeBstr(u"").get(), &result), S_OK);
    EXPECT_EQ(result, VARIANT_FALSE);
    EXPECT_EQ(value.text(), u"Anna");
    EXPECT_EQ(store->hasEntry(makeBstr(u"name").get(), &result), S_OK);
    EXPECT_EQ(result, VARIANT_FALSE);
    EXPECT_EQ(store->SetEntry(makeBstr(u"Name").get(), &other.value, &result), S_OK);
    EXPECT_EQ(result, VARIANT_TRUE);
    ComPtr<IDispatch> list;
    EXPECT_EQ(store->getSettings(list.out()), S_OK);
    EXPECT_EQ(win32::fromDispatch(list.get()), automation::Object(model.list));
    EXPECT_EQ(store->Deinit(), S_OK);
    EXPECT_EQ(store->Destroy(), S_OK);
}

TEST_F(EarlyBoundSettings, ASearchTakesAnyValue) {
    const auto store = dll.create<ISettings>(__uuidof(::Settings));
    IDispatch* object = information.get();
    ASSERT_EQ(store->Init(&title.value, &category.value, &object), S_OK);
    InOut fallback(u"Anna");
    static_cast<void>(declare(*store.get(), u"Name", fallback));
    InOut link(u"SettingList.Has.Setting"), property(u"Value");
    VARIANT_BOOL outgoing = VARIANT_TRUE;
    Variant value;
    win32::toVariant(automation::Value(u"Anna"), *value);
    ComPtr<IDispatch> list = win32::toDispatch(model.list), found;
    IDispatch* from = list.get();
    ASSERT_EQ(store->SearchLinkedObject(&from, &link.value, &outgoing, &property.value, &*value, found.out()),
              S_OK);
    EXPECT_EQ(win32::fromDispatch(found.get()).native(), model.setting(u"Name"));
}

TEST_F(EarlyBoundSettings, AStoreThatRefusesIsTheHostsError) {
    // Below a key that does not outlive the session nothing can be kept.
    win32::RegistryKey place;
    ASSERT_EQ(::RegCreateKeyExW(HKEY_CURRENT_USER, kPlace, 0, nullptr, REG_OPTION_VOLATILE, KEY_ALL_ACCESS,
                                nullptr, place.out(), nullptr),
              ERROR_SUCCESS);
    const auto store = dll.create<ISettings>(__uuidof(::Settings));
    IDispatch* object = information.get();
    ASSERT_EQ(store->Init(&title.value, &category.value, &object), S_OK);
    InOut value(u"Anna");
    VARIANT_BOOL result = VARIANT_FALSE;
    const HRESULT status = store->SetEntry(makeBstr(u"Name").get(), &value.value, &result);
    ASSERT_TRUE(FAILED(status));
    EXPECT_NE(win32::errorOfCall(status).description(), u"");
    EXPECT_EQ(registry.read(u"Browser", u"Navigator", u"Name"), std::nullopt);
}

TEST_F(EarlyBoundSettings, OptionsGiveTheirStore) {
    const auto options = dll.create<IOptions>(__uuidof(::Options));
    ASSERT_TRUE(options);
    ComPtr<ISettings> store;
    IDispatch* object = information.get();
    EXPECT_EQ(options->get_Settings(store.out()), S_OK);
    EXPECT_FALSE(store);
    EXPECT_EQ(options->get_Settings(nullptr), E_POINTER);
    EXPECT_EQ(options->PopUp(), kNotSet);
    EXPECT_EQ(options->InitForm(), kNotSet);
    EXPECT_EQ(options->Init(&object, &title.value, &category.value), kNotSet);
    ASSERT_EQ(options->Create(), S_OK);
    ASSERT_EQ(options->Init(&object, &title.value, &category.value), S_OK);
    ASSERT_EQ(options->get_Settings(store.out()), S_OK);
    ASSERT_TRUE(store);
    InOut fallback(u"Anna");
    EXPECT_EQ(declare(*store.get(), u"Name", fallback), VARIANT_TRUE);
    EXPECT_EQ(registry.read(u"Browser", u"Navigator", u"Name"), u"Anna");
    EXPECT_EQ(options->InitForm(), S_OK);
    EXPECT_EQ(options->Conceal(), S_OK);
    EXPECT_EQ(options->Deinit(), S_OK);
    EXPECT_EQ(options->Destroy(), S_OK);
    EXPECT_EQ(options->Destroy(), S_OK);
    EXPECT_EQ(options->Conceal(), kNotSet);
}

TEST_F(EarlyBoundSettings, ARecordKeepsItsTexts) {
    const auto record = dll.create<ISettingEntry>(__uuidof(::SettingEntry));
    ASSERT_TRUE(record);
    EXPECT_EQ(record->put_Setting(makeBstr(u"Name").get()), S_OK);
    EXPECT_EQ(record->put_EditDescription(makeBstr(u"Who it is").get()), S_OK);
    Bstr text;
    EXPECT_EQ(record->get_Setting(text.out()), S_OK);
    EXPECT_EQ(viewOf(text.get()), u"Name");
    EXPECT_EQ(record->get_EditDescription(text.out()), S_OK);
    EXPECT_EQ(viewOf(text.get()), u"Who it is");
    EXPECT_EQ(record->get_Value(text.out()), S_OK);
    EXPECT_EQ(viewOf(text.get()), u"");
}

}  // namespace
}  // namespace quorel::server::testing
