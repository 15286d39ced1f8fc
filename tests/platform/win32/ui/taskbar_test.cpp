// Progress on a window's button in the task bar: what the shell is told.

#include <shobjidl.h>

#include <string>
#include <vector>

#include "platform/ui/form.h"
#include "platform/win32/com/com_object.h"
#include "tests/platform/win32/ui/windows_fixture.h"

namespace quorel::win32::testing {
namespace {

/// The shell's list of buttons as far as it is called here: notes what it is told.
class TaskbarNotes final : public ComObject<ITaskbarList3> {
  public:
    explicit TaskbarNotes(std::vector<std::string>& notes) : notes_(notes) {}

    STDMETHODIMP HrInit() override { return note("begin", nullptr); }
    STDMETHODIMP SetProgressValue(HWND window, ULONGLONG done, ULONGLONG total) override {
        return note(std::to_string(done) + " of " + std::to_string(total), window);
    }
    STDMETHODIMP SetProgressState(HWND window, TBPFLAG state) override {
        return note("state " + std::to_string(state), window);
    }

    STDMETHODIMP AddTab(HWND window) override { return note("AddTab", window); }
    STDMETHODIMP DeleteTab(HWND window) override { return note("DeleteTab", window); }
    STDMETHODIMP ActivateTab(HWND window) override { return note("ActivateTab", window); }
    STDMETHODIMP SetActiveAlt(HWND window) override { return note("SetActiveAlt", window); }
    STDMETHODIMP MarkFullscreenWindow(HWND window, BOOL) override { return note("Mark", window); }
    STDMETHODIMP RegisterTab(HWND window, HWND) override { return note("RegisterTab", window); }
    STDMETHODIMP UnregisterTab(HWND window) override { return note("UnregisterTab", window); }
    STDMETHODIMP SetTabOrder(HWND window, HWND) override { return note("SetTabOrder", window); }
    STDMETHODIMP SetTabActive(HWND window, HWND, DWORD) override { return note("SetTabActive", window); }
    STDMETHODIMP ThumbBarAddButtons(HWND window, UINT, LPTHUMBBUTTON) override { return note("Bar", window); }
    STDMETHODIMP ThumbBarUpdateButtons(HWND window, UINT, LPTHUMBBUTTON) override {
        return note("Bar", window);
    }
    STDMETHODIMP ThumbBarSetImageList(HWND window, HIMAGELIST) override { return note("Bar", window); }
    STDMETHODIMP SetOverlayIcon(HWND window, HICON, LPCWSTR) override { return note("Icon", window); }
    STDMETHODIMP SetThumbnailTooltip(HWND window, LPCWSTR) override { return note("Tip", window); }
    STDMETHODIMP SetThumbnailClip(HWND window, RECT*) override { return note("Clip", window); }

    HWND told = nullptr;

  private:
    HRESULT note(std::string what, HWND window) {
        notes_.push_back(std::move(what));
        if (window != nullptr)
            told = window;
        return S_OK;
    }
    std::vector<std::string>& notes_;
};

/// Gives that list to whoever makes the shell's; null refuses.
class TaskbarFactory final : public ComObject<IClassFactory> {
  public:
    explicit TaskbarFactory(ComPtr<TaskbarNotes> list) : list_(std::move(list)) {}
    STDMETHODIMP CreateInstance(IUnknown*, REFIID iid, void** result) override {
        ++asked;
        *result = nullptr;
        return list_ ? list_->QueryInterface(iid, result) : REGDB_E_CLASSNOTREG;
    }
    STDMETHODIMP LockServer(BOOL) override { return S_OK; }

    int asked = 0;

  private:
    ComPtr<TaskbarNotes> list_;
};

/// While it lives, a factory stands for the shell's in this process.
class Registration {
  public:
    explicit Registration(IClassFactory& factory) {
        EXPECT_HRESULT_SUCCEEDED(::CoRegisterClassObject(__uuidof(TaskbarList), &factory,
                                                         CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &place_));
    }
    Registration(const Registration&) = delete;
    Registration& operator=(const Registration&) = delete;
    ~Registration() { EXPECT_HRESULT_SUCCEEDED(::CoRevokeClassObject(place_)); }

  private:
    DWORD place_ = 0;
};

class TaskbarTest : public WindowsTest {
  protected:
    void SetUp() override { ASSERT_HRESULT_SUCCEEDED(::CoInitialize(nullptr)); }
    void TearDown() override {
        WindowsTest::TearDown();
        ::CoUninitialize();
    }
    [[nodiscard]] std::unique_ptr<ui::Form> shownForm() {
        auto form = std::make_unique<ui::Form>(*desktop, u"frmWork");
        form->show(ui::Modality::Modeless);
        pump();
        return form;
    }
};

TEST_F(TaskbarTest, TheShellIsToldEachStepOnceAndTheEnd) {
    std::vector<std::string> notes;
    const auto list = makeCom<TaskbarNotes>(notes);
    const auto factory = makeCom<TaskbarFactory>(list);
    const Registration registration(*factory.get());
    auto form = shownForm();
    EXPECT_EQ(notes, std::vector<std::string>{}) << "a window without progress does not ask for the shell";
    for (const double done : {0.0, 0.25, 0.25, 0.2504, 0.999, 1.0})
        form->setProgress(done);
    form->setProgress(std::nullopt);
    form->setProgress(std::nullopt);
    EXPECT_EQ(notes, (std::vector<std::string>{"begin", "0 of 1000", "250 of 1000", "999 of 1000",
                                               "1000 of 1000", "state 0"}));
    EXPECT_EQ(list->told, windowFor(*form));
    EXPECT_EQ(factory->asked, 1);
}

TEST_F(TaskbarTest, TheSystemsOwnShellTakesIt) {
    auto form = shownForm();
    for (int i = 0; i <= 100; ++i)
        form->setProgress(i / 100.0);
    form->setProgress(std::nullopt);
    pump();
    EXPECT_NE(::IsWindowVisible(windowFor(*form)), FALSE);
}

TEST_F(TaskbarTest, WhereThereIsNoShellItIsAskedForOnce) {
    const auto factory = makeCom<TaskbarFactory>(nullptr);
    const Registration registration(*factory.get());
    auto form = shownForm();
    for (int i = 0; i <= 100; ++i)
        form->setProgress(i / 100.0);
    EXPECT_EQ(factory->asked, 1);
    EXPECT_NE(::IsWindowVisible(windowFor(*form)), FALSE);
}

}  // namespace
}  // namespace quorel::win32::testing
