// Hosts that call through the published interfaces.

#include <gtest/gtest.h>

#include "platform/automation/calls.h"
#include "platform/win32/com/bridge.h"
#include "platform/win32/com/failures.h"
#include "server/QuorelUtility.h"
#include "tests/server/server_dll.h"

namespace quorel::server::testing {
namespace {

using win32::Bstr;
using win32::ComPtr;
using win32::makeBstr;
using win32::Variant;
using win32::viewOf;

class EarlyBound : public ::testing::Test {
  protected:
    ServerDll dll;
};

TEST_F(EarlyBound, MakesIdentifiers) {
    const auto generator = dll.create<IUUIDGenerator>(__uuidof(::UUIDGenerator));
    ASSERT_TRUE(generator);
    Variant nothing;
    EXPECT_EQ(generator->Create(nothing.out()), S_OK);
    EXPECT_EQ(V_VT(nothing.get()), VT_EMPTY);
    EXPECT_EQ(generator->Init(makeBstr(u"Early").get(), nothing.out()), S_OK);
    Bstr first;
    Bstr second;
    ASSERT_EQ(generator->GetUUID(first.out()), S_OK);
    ASSERT_EQ(generator->GetUUID(second.out()), S_OK);
    const std::u16string text(viewOf(first.get()));
    EXPECT_EQ(text.substr(0, 3), u"ID:");
    EXPECT_EQ(text.substr(8, 8), u":Early::");
    EXPECT_EQ(text.substr(text.size() - 12), u"::0000000002");
    EXPECT_TRUE(viewOf(second.get()).ends_with(u"::0000000003"));
    EXPECT_EQ(generator->Deinit(nothing.out()), S_OK);
    EXPECT_EQ(generator->Destroy(nothing.out()), S_OK);
}

TEST_F(EarlyBound, AsksForNames) {
    const auto dialog = dll.create<INameEdit>(__uuidof(::NameEdit));
    ASSERT_TRUE(dialog);
    ASSERT_EQ(dialog->Create(), S_OK);
    Bstr caption = makeBstr(u"Caption");
    BSTR variable = caption.get();
    EXPECT_EQ(dialog->Caption(&variable), S_OK);
    EXPECT_EQ(variable, caption.get());
    EXPECT_EQ(dialog->put_name(makeBstr(u"proposed").get()), S_OK);
    Bstr name;
    EXPECT_EQ(dialog->get_name(name.out()), S_OK);
    EXPECT_EQ(viewOf(name.get()), u"proposed");
    VARIANT_BOOL ok = VARIANT_TRUE;
    EXPECT_EQ(dialog->IsOk(&ok), S_OK);
    EXPECT_EQ(ok, VARIANT_FALSE);
    EXPECT_EQ(dialog->Destroy(), S_OK);
    EXPECT_EQ(dialog->Destroy(), S_OK);
}

TEST_F(EarlyBound, AnythingBeforeCreateIsError91) {
    const auto pane = dll.create<ISixPane>(__uuidof(::SixPane));
    ASSERT_TRUE(pane);
    Variant result;
    Bstr text;
    IDispatch* object = nullptr;
    EXPECT_EQ(pane->PopUp(VARIANT_TRUE), kNotSet);
    EXPECT_EQ(pane->Conceal(), kNotSet);
    EXPECT_EQ(pane->Init(result.out()), kNotSet);
    EXPECT_EQ(pane->Populate(result.out()), kNotSet);
    EXPECT_EQ(pane->get_Path(text.out()), kNotSet);
    EXPECT_EQ(pane->get_Repository(&object), kNotSet);
    EXPECT_EQ(pane->putref_Repository(nullptr), kNotSet);
    EXPECT_EQ(pane->SetSelection(&object), kNotSet);
    EXPECT_EQ(pane->Destroy(), S_OK);
}

TEST_F(EarlyBound, FailuresComeWithAText) {
    const auto pane = dll.create<ISixPane>(__uuidof(::SixPane));
    const auto support = pane.as<ISupportErrorInfo>();
    ASSERT_TRUE(support);
    EXPECT_EQ(support->InterfaceSupportsErrorInfo(__uuidof(ISixPane)), S_OK);
    ASSERT_EQ(pane->Conceal(), kNotSet);
    const automation::Error error = win32::errorOfCall(kNotSet);
    EXPECT_EQ(error.number(), 91);
    EXPECT_EQ(error.description(), automation::standardDescription(91));
    EXPECT_EQ(error.source(), u"QuorelUtility");
}

TEST_F(EarlyBound, NullPointersAreRefused) {
    const auto generator = dll.create<IUUIDGenerator>(__uuidof(::UUIDGenerator));
    EXPECT_EQ(generator->GetUUID(nullptr), E_POINTER);
    const auto dialog = dll.create<INameEdit>(__uuidof(::NameEdit));
    ASSERT_EQ(dialog->Create(), S_OK);
    EXPECT_EQ(dialog->Caption(nullptr), E_POINTER);
    EXPECT_EQ(dialog->put_name(nullptr), S_OK);
    EXPECT_EQ(dialog->Destroy(), S_OK);
}

TEST_F(EarlyBound, BothBindingsAreOneObject) {
    const auto generator = dll.create<IUUIDGenerator>(__uuidof(::UUIDGenerator));
    const auto late = generator.as<IDispatch>();
    ASSERT_TRUE(late);
    EXPECT_EQ(late.as<IUnknown>().get(), generator.as<IUnknown>().get());
    EXPECT_FALSE(late.as<INameEdit>());
    Variant nothing;
    generator->Init(makeBstr(u"Both").get(), nothing.out());
    const automation::Object object = win32::fromDispatch(late.get());
    EXPECT_NE(object.call(u"getuuid").toString().find(u":Both::"), std::u16string::npos);
}

TEST_F(EarlyBound, DescribesItsPublishedInterface) {
    const auto first = dll.create<IDispatch>(__uuidof(::UUIDGenerator));
    const auto second = dll.create<IDispatch>(__uuidof(::UUIDGenerator));
    ComPtr<ITypeInfo> one;
    ComPtr<ITypeInfo> other;
    ASSERT_EQ(first->GetTypeInfo(0, 0, one.out()), S_OK);
    ASSERT_EQ(second->GetTypeInfo(0, 0, other.out()), S_OK);
    EXPECT_EQ(one.get(), other.get());
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(one->GetTypeAttr(&attributes), S_OK);
    EXPECT_EQ(attributes->guid, __uuidof(IUUIDGenerator));
    one->ReleaseTypeAttr(attributes);
}

TEST_F(EarlyBound, ObjectsKeepTheLibraryLoaded) {
    ASSERT_EQ(dll.canUnloadNow(), S_OK);
    auto dialog = dll.create<INameEdit>(__uuidof(::NameEdit));
    EXPECT_EQ(dll.canUnloadNow(), S_FALSE);
    ASSERT_EQ(dialog->Create(), S_OK);
    ASSERT_EQ(dialog->Destroy(), S_OK);
    dialog.reset();
    EXPECT_EQ(dll.canUnloadNow(), S_OK);
}

TEST_F(EarlyBound, LettingGoWithoutDestroyLeavesNothing) {
    auto pane = dll.create<ISixPane>(__uuidof(::SixPane));
    ASSERT_EQ(pane->Create(makeBstr(u"pane").get(), nullptr), S_OK);
    pane.reset();
    EXPECT_EQ(dll.canUnloadNow(), S_OK);
}

TEST_F(EarlyBound, DescribesAnExplorer) {
    const auto explorer = dll.create<IExplorer>(__uuidof(::Explorer));
    ASSERT_TRUE(explorer);
    Bstr paneName = makeBstr(u"pane"), empty = makeBstr(u""), type = makeBstr(u"Group");
    BSTR pane = paneName.get(), nothing = empty.get(), typ = type.get();
    Bstr id;
    EXPECT_EQ(explorer->AddPane(&pane, &nothing, &nothing, nullptr), kNotSet);
    EXPECT_EQ(explorer->AddTreeDesc(&nothing, &typ, &nothing, &pane, &nothing, &pane, id.out()), kNotSet);
    ASSERT_EQ(explorer->Create(), S_OK);
    EXPECT_EQ(explorer->AddPane(&pane, &nothing, &nothing, nullptr), S_OK);
    EXPECT_EQ(explorer->AddLabel(&pane, &typ, VARIANT_TRUE, 12, nullptr), S_OK);
    EXPECT_EQ(explorer->AddSeparator(&pane, nullptr), S_OK);
    EXPECT_EQ(explorer->AddToolbar(&pane, nullptr), S_OK);
    EXPECT_EQ(explorer->AddSubPane(&pane, &typ), S_OK);
    EXPECT_EQ(explorer->AddSubPane(&pane, &typ), static_cast<HRESULT>(0x800A01C9)) << "457";
    EXPECT_EQ(explorer->AddSeparator(&typ, nullptr), static_cast<HRESULT>(0x800A0009));
    EXPECT_EQ(explorer->AddTreeDesc(&nothing, &typ, &nothing, &pane, &nothing, &pane, id.out()), S_OK);
    ASSERT_NE(id.get(), nullptr);
    EXPECT_NE(viewOf(id.get()), u"");
    BSTR parent = id.get();
    Bstr below;
    EXPECT_EQ(explorer->AddTreeDesc(&parent, &typ, &nothing, &pane, &nothing, &pane, below.out()), S_OK);
    EXPECT_EQ(explorer->AddTreeDesc(&typ, &typ, &nothing, &pane, &nothing, &pane, below.out()),
              static_cast<HRESULT>(0x800A0009));
    EXPECT_EQ(explorer->PopUp(VARIANT_FALSE), S_OK);
    EXPECT_EQ(explorer->Conceal(), S_OK);
    EXPECT_EQ(explorer->Deinit(), S_OK);
    EXPECT_EQ(explorer->Destroy(), S_OK);
    EXPECT_EQ(explorer->Destroy(), S_OK);
}

TEST_F(EarlyBound, ExploresAHierarchy) {
    const auto explorer = dll.create<IHTExplorer>(__uuidof(::HTExplorer));
    ASSERT_TRUE(explorer);
    Variant result;
    EXPECT_EQ(explorer->SetupTree(), kNotSet);
    EXPECT_EQ(explorer->Populate(), kNotSet);
    EXPECT_EQ(explorer->Init(result.out()), kNotSet);
    ASSERT_EQ(explorer->Create(makeBstr(u"Hierarchy").get(), nullptr), S_OK)
        << "the pictures lie beside the library";
    EXPECT_EQ(explorer->put_RepositoryFileName(makeBstr(u"garden.quorel").get()), S_OK);
    Bstr fileName;
    EXPECT_EQ(explorer->get_RepositoryFileName(fileName.out()), S_OK);
    EXPECT_EQ(viewOf(fileName.get()), u"garden.quorel");
    EXPECT_EQ(explorer->putref_PackageObject(nullptr), S_OK);
    ComPtr<IDispatch> repository;
    EXPECT_EQ(explorer->get_Repository(repository.out()), S_OK);
    EXPECT_FALSE(repository);
    EXPECT_EQ(explorer->Init(result.out()), S_OK);
    EXPECT_EQ(V_VT(result.get()), VT_EMPTY);
    EXPECT_EQ(explorer->Populate(), S_OK);
    EXPECT_EQ(explorer->PopUp(VARIANT_FALSE), S_OK);
    EXPECT_EQ(explorer->Conceal(), S_OK);
    EXPECT_EQ(explorer->Deinit(result.out()), S_OK);
    EXPECT_EQ(explorer->Destroy(), S_OK);
    EXPECT_EQ(explorer->Destroy(), S_OK);
}

TEST_F(EarlyBound, NavigatesByMatrix) {
    const auto browser = dll.create<IMatrixBrowser>(__uuidof(::MatrixBrowser));
    ASSERT_TRUE(browser);
    Bstr name = makeBstr(u"Book");
    BSTR variable = name.get();
    EXPECT_EQ(browser->Navigate(), kNotSet);
    EXPECT_EQ(browser->SelectSourceMetaNode(&variable), kNotSet);
    EXPECT_EQ(browser->putref_RepositoryManager(nullptr), kNotSet);
    ASSERT_EQ(browser->Create(makeBstr(u"Navigator").get(), nullptr), S_OK);
    EXPECT_EQ(browser->put_RepositoryFileName(makeBstr(u"garden.quorel").get()), S_OK);
    Bstr text;
    EXPECT_EQ(browser->get_RepositoryFileName(text.out()), S_OK);
    EXPECT_EQ(viewOf(text.get()), u"garden.quorel");
    IDispatch* object = browser.as<IDispatch>().get();
    EXPECT_EQ(browser->GetTargetInstance(&object), S_OK);
    EXPECT_EQ(object, nullptr);
    object = browser.as<IDispatch>().get();
    EXPECT_EQ(browser->GetTargetMetaNode(&object), S_OK);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(browser->GetRepository(&object), S_OK);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(browser->SelectTargetInstance(&variable), S_OK);
    EXPECT_EQ(variable, name.get());
    EXPECT_EQ(browser->Navigate(), S_OK);
    Variant result;
    EXPECT_EQ(browser->Init(result.out()), S_OK);
    EXPECT_EQ(V_VT(result.get()), VT_EMPTY);
    EXPECT_EQ(browser->PopUp(VARIANT_FALSE), S_OK);
    EXPECT_EQ(browser->Conceal(), S_OK);
    EXPECT_EQ(browser->Destroy(), S_OK);
    EXPECT_EQ(browser->Destroy(), S_OK);
}

TEST_F(EarlyBound, EditsProperties) {
    const auto editor = dll.create<IPropertyEditor>(__uuidof(::PropertyEditor));
    ASSERT_TRUE(editor);
    VARIANT_BOOL flag = VARIANT_TRUE;
    EXPECT_EQ(editor->get_OK(&flag), kNotSet);
    EXPECT_EQ(flag, VARIANT_FALSE);
    EXPECT_EQ(editor->PopUp(VARIANT_FALSE), kNotSet);
    EXPECT_EQ(editor->Destroy(), S_OK);
    Bstr path = makeBstr(u"C:\\Models");
    BSTR variable = path.get();
    ASSERT_EQ(editor->Create(&variable), S_OK);
    EXPECT_EQ(variable, path.get());
    EXPECT_EQ(editor->get_Cancelled(&flag), S_OK);
    EXPECT_EQ(flag, VARIANT_TRUE);
    EXPECT_EQ(editor->get_OK(&flag), S_OK);
    EXPECT_EQ(flag, VARIANT_FALSE);
    IDispatch* none = nullptr;
    EXPECT_EQ(editor->Init(&none), kNotSet) << "there is no meta object";
    EXPECT_EQ(editor->put_ReadOnly(VARIANT_TRUE), S_OK);
    EXPECT_EQ(editor->get_ReadOnly(&flag), S_OK);
    EXPECT_EQ(flag, VARIANT_TRUE);
    Bstr caption;
    EXPECT_EQ(editor->get_Caption(caption.out()), S_OK);
    EXPECT_EQ(viewOf(caption.get()), u"Property Editor");
    EXPECT_EQ(editor->put_Caption(makeBstr(u"Anna").get()), S_OK);
    const ComPtr<IDispatch> self = editor.as<IDispatch>();
    EXPECT_EQ(editor->putref_CallbackObject(self.get()), S_OK);
    ComPtr<IDispatch> callback;
    EXPECT_EQ(editor->get_CallbackObject(callback.out()), S_OK);
    EXPECT_EQ(callback.get(), self.get());
    EXPECT_EQ(editor->putref_CallbackObject(nullptr), S_OK);
    ComPtr<IDispatch> object;
    EXPECT_EQ(editor->get_repObject(object.out()), S_OK);
    EXPECT_EQ(object.get(), nullptr);
    EXPECT_EQ(editor->PopUp(VARIANT_FALSE), S_OK);
    EXPECT_EQ(editor->Conceal(), S_OK);
    EXPECT_EQ(editor->Deinit(), S_OK);
    EXPECT_EQ(editor->Destroy(), S_OK);
}

TEST_F(EarlyBound, ProgressCountsWhatIsTooMuch) {
    const auto progress = dll.create<IProgress>(__uuidof(::Progress));
    EXPECT_EQ(progress->incValue(1), kNotSet);
    EXPECT_EQ(progress->Create(), S_OK);
    LONG start = -2;
    LONG most = 5;
    EXPECT_EQ(progress->Init(&start, &most, 0), S_OK);
    EXPECT_EQ(start, -2);
    EXPECT_EQ(most, 5);
    EXPECT_EQ(progress->incValue(3), S_OK);
    EXPECT_EQ(progress->incValue(0), S_OK);
    LONG overflow = -1;
    EXPECT_EQ(progress->getOverflow(&overflow), S_OK);
    EXPECT_EQ(overflow, 1);
    EXPECT_EQ(progress->PopUp(), S_OK);
    EXPECT_EQ(progress->Conceal(), S_OK);
    EXPECT_EQ(progress->Destroy(), S_OK);
}

TEST_F(EarlyBound, ProgressBarTakesItsNumbers) {
    const auto progress = dll.create<IProgressBar>(__uuidof(::ProgressBar));
    LONG number = 3;
    EXPECT_EQ(progress->Value(&number), kNotSet);
    EXPECT_EQ(progress->Create(), S_OK);
    EXPECT_EQ(progress->Value(&number), S_OK);
    EXPECT_EQ(progress->max(&number), S_OK);
    EXPECT_EQ(progress->min(&number), S_OK);
    Bstr text = makeBstr(u"Reading");
    BSTR variable = text.get();
    EXPECT_EQ(progress->Information(&variable), S_OK);
    EXPECT_EQ(progress->PopUp(), S_OK);
    EXPECT_EQ(progress->Conceal(), S_OK);
    EXPECT_EQ(progress->Destroy(), S_OK);
}

int windowsOfThread() {
    int count = 0;
    ::EnumThreadWindows(
        ::GetCurrentThreadId(),
        [](HWND, LPARAM counter) -> BOOL {
            ++*reinterpret_cast<int*>(counter);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&count));
    return count;
}

void serveMessages() {
    MSG message;
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE)
        ::DispatchMessageW(&message);
}

/// One life of a browser: made, shown, ended.
void liveOnce(const ServerDll& dll) {
    const auto browser = dll.create<ISixPane>(__uuidof(::SixPane));
    ASSERT_TRUE(browser);
    Variant result;
    ASSERT_EQ(browser->Create(makeBstr(u"Browser").get(), nullptr), S_OK);
    ASSERT_EQ(browser->Init(result.out()), S_OK);
    ASSERT_EQ(browser->PopUp(VARIANT_FALSE), S_OK);
    serveMessages();
    ASSERT_EQ(browser->Deinit(result.out()), S_OK);
    ASSERT_EQ(browser->Destroy(), S_OK);
}

// What the first life makes once for all stays. What a life leaves behind is there as often as there were
// lives, so that each is counted and a hundred say what thousands would.
TEST_F(EarlyBound, AHundredBrowsersLeaveNoWindowAndNoReferenceBehind) {
    liveOnce(dll);
    serveMessages();
    const int before = windowsOfThread();
    for (int life = 0; life < 100 && !HasFatalFailure(); ++life)
        liveOnce(dll);
    serveMessages();
    EXPECT_EQ(windowsOfThread(), before);
    EXPECT_EQ(dll.canUnloadNow(), S_OK);
}

}  // namespace
}  // namespace quorel::server::testing
