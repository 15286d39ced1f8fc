// The property editor's events as compiled hosts receive them: the library itself, through its published
// interface, with its own windows.

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "platform/automation/calls.h"
#include "platform/win32/com/bridge.h"
#include "server/QuorelUtility.h"
#include "tests/platform/win32/ui/native_user.h"
#include "tests/server/server_dll.h"
#include "tests/server/typed_callback.h"
#include "tests/support/repository_double.h"

namespace quorel::server::testing {
namespace {

using automation::make;
using automation::Object;
using automation::Ref;
using win32::ComPtr;
using win32::makeBstr;
using win32::viewOf;
using Log = std::vector<std::wstring>;
namespace user = win32::testing;

constexpr auto kRaised = static_cast<HRESULT>(0x800A04D2);  // 1234
enum Line : std::size_t { kAge, kNote };

struct NamedControl {
    const wchar_t* name;
    HWND window;
};

BOOL CALLBACK compareName(HWND window, LPARAM wanted) {
    static const UINT message = ::RegisterWindowMessageW(L"WM_GETCONTROLNAME");
    auto& named = *reinterpret_cast<NamedControl*>(wanted);
    std::array<wchar_t, 64> name{};
    ::SendMessageW(window, message, name.size(), reinterpret_cast<LPARAM>(name.data()));
    if (std::wstring_view(name.data()) != named.name)
        return TRUE;
    named.window = window;
    return FALSE;
}

void replaceText(BSTR& variable, std::u16string_view text) {
    ::SysFreeString(std::exchange(variable, makeBstr(text).release()));
}

void dropObject(IDispatch*& variable) {
    ComPtr<IDispatch>::adopt(std::exchange(variable, nullptr)).reset();
}

/// Reads and confirms the error boxes that open, in whatever loop runs.
class BoxReader {
  public:
    BoxReader() {
        current_ = this;
        timer_ = ::SetTimer(nullptr, 0, 20, &BoxReader::read);
    }
    ~BoxReader() {
        ::KillTimer(nullptr, timer_);
        current_ = nullptr;
    }
    BoxReader(const BoxReader&) = delete;
    BoxReader& operator=(const BoxReader&) = delete;

    std::vector<std::u16string> texts;

  private:
    static void CALLBACK read(HWND, UINT, UINT_PTR, DWORD) {
        const user::FoundBox box = user::openBox(L"QuorelUtility");
        if (box.window == nullptr || box.window == current_->confirmed_)
            return;
        current_->texts.push_back(box.text);
        current_->confirmed_ = box.window;
        ::PostMessageW(box.window, WM_COMMAND, IDOK, 0);
    }

    static inline BoxReader* current_ = nullptr;
    UINT_PTR timer_ = 0;
    HWND confirmed_ = nullptr;
};

class EarlyBoundCallbacks : public ::testing::Test {
  protected:
    EarlyBoundCallbacks() {
        person->withProperty(u"Age", u"Integer");
        person->withProperty(u"Note", u"String");
        callback->act = [this](const EventArguments& arguments) { return react(arguments); };
    }
    ~EarlyBoundCallbacks() override {
        EXPECT_EQ(boxes.texts, expectedBoxes);
        editor->Destroy();
        repository->clear();
    }

    /// Shows a person, 40 years old and without a note.
    void open() {
        anna->values = {{u"Age", 40}};
        callback->log.clear();
        const win32::Bstr path = makeBstr(u"");
        BSTR variable = path.get();
        ASSERT_EQ(editor->Create(&variable), S_OK);
        const ComPtr<IDispatch> type = win32::toDispatch(person);
        IDispatch* metaObject = type.get();
        ASSERT_EQ(editor->Init(&metaObject), S_OK);
        ASSERT_EQ(editor->putref_repObject(win32::toDispatch(anna).get()), S_OK);
        ASSERT_EQ(editor->putref_CallbackObject(callback.get()), S_OK);
        ASSERT_EQ(editor->PopUp(VARIANT_FALSE), S_OK);
        user::pump();
    }
    [[nodiscard]] static HWND form() { return ::FindWindowW(L"frmPropertyEditor", nullptr); }
    /// Null while the control has not been shown.
    [[nodiscard]] static HWND control(const wchar_t* name) {
        NamedControl named{name, nullptr};
        ::EnumChildWindows(form(), compareName, reinterpret_cast<LPARAM>(&named));
        return named.window;
    }
    [[nodiscard]] static std::u16string cell(std::size_t line) {
        return user::cellOf(control(L"Property1"), line, 1);
    }
    static bool beginEdit(std::size_t line) {
        const HWND list = control(L"Property1");
        user::click(list, user::pointInRow(list, line));
        user::press(form(), {ui::Key::F2});
        return ::IsWindowVisible(control(L"Property1.Text")) != FALSE;
    }
    /// A user who enters a text, as far as the window lets him.
    static void enter(std::size_t line, std::u16string_view text) {
        if (!beginEdit(line))
            return;
        ::SendMessageW(control(L"Property1.Text"), EM_SETSEL, 0, -1);
        user::type(form(), text);
        user::press(form(), {ui::Key::Enter});
    }
    HRESULT react(const EventArguments& arguments) {
        if (chosen.empty() || chosen == arguments.event)
            return reaction ? reaction(arguments) : S_OK;
        return S_OK;
    }
    /// From now on only that event does something.
    void on(std::wstring event, TypedCallback::Act act) {
        chosen = std::move(event);
        reaction = std::move(act);
    }

    ServerDll dll;
    quorel::testing::ScriptRef script = std::make_shared<quorel::testing::Script>();
    Ref<quorel::testing::RepositoryDouble> repository = make<quorel::testing::RepositoryDouble>(script);
    Ref<quorel::testing::MetaDouble> person = repository->addMetaNode(u"Person");
    Ref<quorel::testing::InstanceDouble> anna = repository->addNode(person, u"Anna");
    ComPtr<TypedCallback> callback = win32::makeCom<TypedCallback>();
    ComPtr<IPropertyEditor> editor = dll.create<IPropertyEditor>(__uuidof(::PropertyEditor));
    std::wstring chosen;
    TypedCallback::Act reaction;
    BoxReader boxes;
    std::vector<std::u16string> expectedBoxes;
};

TEST_F(EarlyBoundCallbacks, AllSixArriveInOrderWithTypedArguments) {
    open();
    std::vector<std::u16string> texts;
    on(L"", [&](const EventArguments& arguments) {
        EXPECT_EQ(win32::fromDispatch(*arguments.property).get(u"name").toString(), u"Note");
        if (arguments.control != nullptr)
            texts.push_back(win32::fromDispatch(arguments.control).get(u"name").toString());
        if (arguments.newText != nullptr)
            texts.insert(texts.end(), {std::u16string(viewOf(*arguments.oldText)),
                                       std::u16string(viewOf(*arguments.newText))});
        return S_OK;
    });
    enter(kNote, u"new");
    EXPECT_EQ(callback->log, (Log{L"CreatePropertyControl", L"PropertyControlCreated", L"PropertyValidate",
                                  L"PropertyChanged", L"NewProperty"}));
    EXPECT_EQ(texts, (std::vector<std::u16string>{u"Property1.Text", u"", u"new"}));
    callback->log.clear();
    user::press(form(), {ui::Key::Delete});
    EXPECT_EQ(callback->log, (Log{L"PropertyValidate", L"PropertyChanged", L"PropertyDeleted"}));
    EXPECT_EQ(cell(kNote), u"");
}

TEST_F(EarlyBoundCallbacks, FlagAndPropertyOfCreateDecideWhoEdits) {
    open();
    on(L"CreatePropertyControl", [](const EventArguments& arguments) {
        EXPECT_EQ(*arguments.flag, VARIANT_FALSE);
        win32::fromDispatch(*arguments.property).put(u"Value", 77);
        *arguments.flag = VARIANT_TRUE;
        return S_OK;
    });
    EXPECT_FALSE(beginEdit(kAge)) << "the host has edited it";
    EXPECT_EQ(cell(kAge), u"77");
    on(L"CreatePropertyControl", [](const EventArguments& arguments) {
        dropObject(*arguments.property);
        return S_OK;
    });
    EXPECT_FALSE(beginEdit(kNote)) << "nothing for the property prevents its editing";
    on(L"", {});
    EXPECT_TRUE(beginEdit(kNote));
}

TEST_F(EarlyBoundCallbacks, TextsAndFlagOfAChangeAreTakenOver) {
    open();
    on(L"PropertyChanged", [](const EventArguments& arguments) {
        replaceText(*arguments.newText, u"55");
        return S_OK;
    });
    enter(kAge, u"41");
    EXPECT_EQ(cell(kAge), u"55");
    on(L"PropertyChanged", [](const EventArguments& arguments) {
        replaceText(*arguments.oldText, u"33");
        *arguments.flag = VARIANT_TRUE;
        return S_OK;
    });
    enter(kAge, u"41");
    EXPECT_EQ(cell(kAge), u"33") << "the old text, for the change was cancelled";
}

TEST_F(EarlyBoundCallbacks, FlagOfAValidationRefusesTheText) {
    open();
    on(L"PropertyValidate", [](const EventArguments& arguments) {
        EXPECT_EQ(*arguments.flag, VARIANT_TRUE);
        win32::fromDispatch(*arguments.property).put(u"Message", u"Too old.");
        *arguments.flag = VARIANT_FALSE;
        return S_OK;
    });
    enter(kAge, u"41");
    EXPECT_EQ(cell(kAge), u"41   ! Too old.");
}

TEST_F(EarlyBoundCallbacks, PropertiesPutInPlaceElsewhereDoNotCount) {
    for (const wchar_t* event : {L"PropertyControlCreated", L"PropertyValidate", L"PropertyChanged",
                                 L"NewProperty", L"PropertyDeleted"}) {
        open();
        on(event, [](const EventArguments& arguments) {
            dropObject(*arguments.property);
            return S_OK;
        });
        enter(kNote, u"new");
        EXPECT_EQ(cell(kNote), u"new");
        user::press(form(), {ui::Key::Delete});
        EXPECT_EQ(cell(kNote), u"");
        editor->Destroy();
    }
}

TEST_F(EarlyBoundCallbacks, EachThatFailsIsReportedUnderItsEventAndTheWindowGoesOn) {
    for (const std::wstring event : {L"CreatePropertyControl", L"PropertyControlCreated", L"PropertyValidate",
                                     L"PropertyChanged", L"NewProperty", L"PropertyDeleted"}) {
        open();
        on(event, [](const EventArguments&) { return failWith(kRaised, L"Not now", L"Host"); });
        enter(kNote, u"new");
        EXPECT_EQ(cell(kNote), u"new");
        user::press(form(), {ui::Key::Delete});
        EXPECT_EQ(cell(kNote), u"");
        const bool twice = event == L"PropertyValidate" || event == L"PropertyChanged";
        expectedBoxes.insert(expectedBoxes.end(), twice ? 2 : 1,
                             u"Error No: 1234  'Not now'\r\n  'Host'\r\n(Module 'PropertyEditor' Function '" +
                                 std::u16string(win32::narrowView(event.c_str())) + u"()')");
        editor->Destroy();
    }
}

TEST_F(EarlyBoundCallbacks, EachMayDestroyTheEditor) {
    for (const std::wstring event : {L"CreatePropertyControl", L"PropertyControlCreated", L"PropertyValidate",
                                     L"PropertyChanged", L"NewProperty", L"PropertyDeleted"}) {
        open();
        on(event, [this](const EventArguments&) { return editor->Destroy(); });
        enter(kNote, u"new");
        if (form() != nullptr)
            user::press(form(), {ui::Key::Delete});
        EXPECT_EQ(callback->log.back(), event);
        EXPECT_EQ(form(), nullptr);
        VARIANT_BOOL ok = VARIANT_FALSE;
        EXPECT_EQ(editor->get_OK(&ok), kNotSet);
    }
    editor.reset();
    user::pump();
    EXPECT_EQ(dll.canUnloadNow(), S_OK);
    editor = dll.create<IPropertyEditor>(__uuidof(::PropertyEditor));
}

}  // namespace
}  // namespace quorel::server::testing
