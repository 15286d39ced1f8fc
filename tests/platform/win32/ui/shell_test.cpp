// The store of settings, the clock, the clipboard and measures of the desktop.

#include <ctime>

#include "platform/win32/text.h"
#include "platform/win32/ui/native_scope.h"
#include "platform/win32/ui/registry_settings_store.h"
#include "platform/win32/ui/windows_clock.h"
#include "tests/platform/win32/ui/windows_fixture.h"

namespace quorel::win32::testing {

using namespace std::string_view_literals;

namespace {

constexpr const wchar_t* kRoot = L"Software\\Quorel tests";

class RegistrySettings : public ::testing::Test {
  protected:
    void TearDown() override { ::RegDeleteTreeW(HKEY_CURRENT_USER, kRoot); }
    [[nodiscard]] static DWORD subKeys(const std::u16string& place) {
        HKEY key = nullptr;
        DWORD count = 0;
        if (::RegOpenKeyExW(HKEY_CURRENT_USER, wide(place), 0, KEY_READ, &key) != ERROR_SUCCESS)
            return 0;
        ::RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, &count, nullptr, nullptr, nullptr, nullptr,
                           nullptr, nullptr, nullptr);
        ::RegCloseKey(key);
        return count;
    }
    RegistrySettingsStore store{u"Software\\Quorel tests"};
};

}  // namespace

TEST_F(RegistrySettings, AreEmptyUntilWrittenAndThenRead) {
    EXPECT_EQ(store.read(u"App", u"Section", u"Key"), std::nullopt);
    store.write(u"App", u"Section", u"Key", u"value");
    EXPECT_EQ(store.read(u"App", u"Section", u"Key"), u"value");
    store.write(u"App", u"Section", u"Key", u"");
    EXPECT_EQ(store.read(u"App", u"Section", u"Key"), u"");
    EXPECT_EQ(store.read(u"App", u"Section", u"Other"), std::nullopt);
    EXPECT_EQ(store.read(u"App", u"Other", u"Key"), std::nullopt);
}

TEST_F(RegistrySettings, StandWhereHostsLookForThem) {
    RegistrySettingsStore hosts;
    hosts.write(u"Quorel tests", u"Section", u"Key", u"seen by hosts");
    std::array<wchar_t, 40> text{};
    DWORD bytes = sizeof(text);
    EXPECT_EQ(
        ::RegGetValueW(HKEY_CURRENT_USER, L"Software\\VB and VBA Program Settings\\Quorel tests\\Section",
                       L"Key", RRF_RT_REG_SZ, nullptr, text.data(), &bytes),
        ERROR_SUCCESS);
    EXPECT_EQ(narrowView(text.data()), u"seen by hosts");
    ::RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\VB and VBA Program Settings\\Quorel tests");
}

TEST_F(RegistrySettings, NamesThatTheRegistryCannotHoldStayInTheirPlaceAndApart) {
    const std::vector<std::u16string> names = {u"",
                                               u"plain",
                                               u"with\\backslash",
                                               u"..\\..\\Run",
                                               std::u16string(u"nul\0inside", 10),
                                               std::u16string(u"nul\0other", 9),
                                               u"\u241B",
                                               u"\u241B005C",
                                               std::u16string(5000, u'n'),
                                               std::u16string(5001, u'n'),
                                               std::u16string(40'000, u'\u6F22'),
                                               std::u16string(1, char16_t{0xD800}),
                                               u"\U0001F600 \u05E9\u05DC\u05D5\u05DD"};
    for (std::size_t i = 0; i < names.size(); ++i) {
        const std::u16string mark(i + 1, u'#');
        store.write(names[i], u"s", u"k", u"a" + mark);
        store.write(u"a", names[i], u"k", u"s" + mark);
        store.write(u"a", u"s", names[i], u"k" + mark);
    }
    for (std::size_t i = 0; i < names.size(); ++i) {
        SCOPED_TRACE(i);
        const std::u16string mark(i + 1, u'#');
        EXPECT_EQ(store.read(names[i], u"s", u"k"), u"a" + mark);
        EXPECT_EQ(store.read(u"a", names[i], u"k"), u"s" + mark);
        EXPECT_EQ(store.read(u"a", u"s", names[i]), u"k" + mark);
    }
    EXPECT_EQ(subKeys(u"Software\\Quorel tests"), names.size() + 1);
    EXPECT_EQ(registryName(u"ordinary name, (3) %20"), u"ordinary name, (3) %20");
}

TEST_F(RegistrySettings, ValuesComeBackWhole) {
    for (const std::u16string& value :
         {std::u16string(u"a\0b\0"sv), std::u16string(1, u'\0'), std::u16string(1'000'000, u'v'),
          std::u16string(u"lone ") + char16_t{0xDC00}}) {
        store.write(u"App", u"S", u"K", value);
        EXPECT_TRUE(store.read(u"App", u"S", u"K") == value) << value.size();
    }
}

TEST_F(RegistrySettings, AValueOfAnotherTypeIsNoSetting) {
    store.write(u"App", u"S", u"K", u"text");
    const DWORD number = 5;
    ::RegSetKeyValueW(HKEY_CURRENT_USER, L"Software\\Quorel tests\\App\\S", L"N", REG_DWORD, &number,
                      sizeof(number));
    EXPECT_EQ(store.read(u"App", u"S", u"N"), std::nullopt);
}

TEST(Clock, AgreesWithTheSystem) {
    WindowsClock clock;
    const std::int64_t before = std::time(nullptr);
    const std::int64_t now = clock.seconds();
    EXPECT_GE(now, before);
    EXPECT_LE(now, std::time(nullptr));
    SYSTEMTIME local{};
    ::GetLocalTime(&local);
    const shell::LocalTime time = clock.localTime(clock.seconds());
    EXPECT_EQ(time.year, local.wYear);
    EXPECT_EQ(time.month, local.wMonth);
    EXPECT_NEAR(clock.secondsSinceMidnight(), local.wHour * 3600 + local.wMinute * 60 + local.wSecond, 2.0);
}

TEST(Clock, ConvertsTimesFarFromNowAsTheSystemDoes) {
    WindowsClock clock;
    for (const std::int64_t seconds : {0LL, 951'782'400LL, 1'015'164'309LL, 1'711'846'799LL, 1'711'846'800LL,
                                       4'102'444'800LL, 1'700'000'000LL}) {
        const std::int64_t ticks = seconds * 10'000'000 + 116'444'736'000'000'000;
        const FILETIME file{static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
        SYSTEMTIME universal{}, local{};
        ::FileTimeToSystemTime(&file, &universal);
        ::SystemTimeToTzSpecificLocalTime(nullptr, &universal, &local);
        const shell::LocalTime expected{local.wYear, local.wMonth,  local.wDay,
                                        local.wHour, local.wMinute, local.wSecond};
        EXPECT_EQ(clock.localTime(seconds), expected) << seconds;
    }
}

using DesktopMeasures = WindowsTest;

TEST_F(DesktopMeasures, AreInTwips) {
    const ui::Rect area = desktop->workArea();
    EXPECT_GE(area.width.value, 640 * 15);
    const ui::Size one = desktop->textSize(u"W");
    const ui::Size three = desktop->textSize(u"WWW");
    EXPECT_GT(one.height.value, 100);
    EXPECT_EQ(one.height, three.height);
    EXPECT_NEAR(three.width.value, one.width.value * 3, 60);
    EXPECT_GT(desktop->textSize(u"a\0b"sv).width, desktop->textSize(u"ab").width);
}

TEST_F(DesktopMeasures, TheWaitPointerIsShownOverOurWindows) {
    Gallery gallery(*desktop);
    gallery.form->show(ui::Modality::Modeless);
    pump();
    const HWND box = windowFor(*gallery.box);
    const LPARAM move = MAKELPARAM(HTCLIENT, WM_MOUSEMOVE);
    {
        const ui::WaitPointer wait(*desktop);
        ::SendMessageW(box, WM_SETCURSOR, reinterpret_cast<WPARAM>(box), move);
        EXPECT_EQ(::GetCursor(), ::LoadCursorW(nullptr, IDC_WAIT));
    }
    ::SendMessageW(box, WM_SETCURSOR, reinterpret_cast<WPARAM>(box), move);
    EXPECT_NE(::GetCursor(), ::LoadCursorW(nullptr, IDC_WAIT));
}

TEST_F(DesktopMeasures, TheClipboardKeepsAMegabyteAndShowsNulls) {
    const std::u16string text(500'000, u'c');
    desktop->setClipboardText(text);
    EXPECT_TRUE(desktop->clipboardText() == text);
    desktop->setClipboardText(u"a\0b"sv);
    EXPECT_EQ(desktop->clipboardText(), u"a\u2400b");
    desktop->setClipboardText(u"");
    EXPECT_EQ(desktop->clipboardText(), u"");
}

}  // namespace quorel::win32::testing
