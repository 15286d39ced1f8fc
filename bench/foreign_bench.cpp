// What a cell costs that is read from somebody else's object by name, against the bare call of a member whose
// id is known.

#include <activscp.h>
#include <oaidl.h>
#include <windows.h>

#include <cstdio>
#include <string>

#include "bench/compiled_node.h"
#include "bench/ratio.h"
#include "platform/automation/calls.h"
#include "platform/controls/cell_text.h"
#include "platform/win32/com/activation.h"
#include "platform/win32/com/bridge.h"
#include "platform/win32/com/com_ptr.h"

namespace {

using namespace quorel;
using automation::Member;
using automation::MemberId;
using automation::Object;
using automation::Value;
using win32::ComPtr;
using win32::Variant;

constexpr int kCells = 20'000;
constexpr int kColumns = 4;
constexpr double kAim = 1.3;

/// The engine's site: scripts here ask for nothing.
class Site final : public win32::ComObject<IActiveScriptSite> {
  public:
    STDMETHODIMP GetLCID(LCID*) override { return E_NOTIMPL; }
    STDMETHODIMP GetItemInfo(LPCOLESTR, DWORD, IUnknown**, ITypeInfo**) override {
        return TYPE_E_ELEMENTNOTFOUND;
    }
    STDMETHODIMP GetDocVersionString(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP OnScriptTerminate(const VARIANT*, const EXCEPINFO*) override { return S_OK; }
    STDMETHODIMP OnStateChange(SCRIPTSTATE) override { return S_OK; }
    STDMETHODIMP OnScriptError(IActiveScriptError*) override { return S_OK; }
    STDMETHODIMP OnEnterScript() override { return S_OK; }
    STDMETHODIMP OnLeaveScript() override { return S_OK; }
};

/// A script engine that holds one object, made by its function `MakeNode`.
class Script {
  public:
    Script(const wchar_t* language, const wchar_t* source) {
        CLSID clsid;
        if (FAILED(::CLSIDFromProgID(language, &clsid)) ||
            FAILED(::CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IActiveScript),
                                      engine_.outVoid())))
            return;
        engine_->SetScriptSite(site_.get());
        const auto parser = engine_.as<IActiveScriptParse>();
        parser->InitNew();
        parser->ParseScriptText(source, nullptr, nullptr, nullptr, 0, 0, SCRIPTTEXT_ISVISIBLE, nullptr,
                                nullptr);
        engine_->SetScriptState(SCRIPTSTATE_STARTED);
    }
    ~Script() { engine_->Close(); }
    Script(const Script&) = delete;
    Script& operator=(const Script&) = delete;

    [[nodiscard]] Object node() const {
        ComPtr<IDispatch> globals;
        engine_->GetScriptDispatch(nullptr, globals.out());
        return win32::fromDispatch(globals.get()).call(u"MakeNode").toObject();
    }

  private:
    ComPtr<Site> site_ = win32::makeCom<Site>();
    ComPtr<IActiveScript> engine_;
};

std::size_t seen = 0;

void bareCells(IDispatch& node, DISPID id) {
    DISPPARAMS none{};
    for (int i = 0; i < kCells; ++i) {
        Variant result;
        node.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none, result.get(), nullptr,
                    nullptr);
        seen += ::SysStringLen(V_BSTR(result.get()));
    }
}

/// What a list does with what it reads: it keeps the text as it shows it, until another takes its place.
class Cell {
  public:
    void keep(Value&& read) {
        controls::makeDisplayText(read);
        text_ = std::move(read);
        seen += text_.text()->size();
    }

  private:
    Value text_;
};

/// `read` gives the value of the node's cell.
template <class Read>
void compareCell(const char* name, double aim, const Object& node, MemberId id, Read&& read) {
    IDispatch& dispatch = *win32::toDispatch(node).get();
    Cell cell;
    bench::compare(
        name, kCells, aim,
        [&] {
            for (int i = 0; i < kCells; ++i)
                cell.keep(read());
        },
        [&] { bareCells(dispatch, static_cast<DISPID>(id)); });
}

void compareKnownId(const char* name, const Object& node) {
    const MemberId id = node.resolve(u"name");
    compareCell(name, kAim, node, id, [&] { return node.invoke(id, automation::InvokeKind::Get, {}); });
}

/// The name is resolved for the type; each call proves that the object is of it.
void compareMember(const char* name, double aim, const Object& node) {
    const Member member(u"name");
    compareCell(name, aim, node, member.idFor(node), [&] { return node.get(member); });
}

/// As a list reads a row: it proves the row's type once for all its cells.
void compareRows(const char* name, const Object& node) {
    const Member member(u"name");
    IDispatch& dispatch = *win32::toDispatch(node).get();
    const auto id = static_cast<DISPID>(member.idFor(node));
    Cell cells[kColumns];
    bench::compare(
        name, kCells, 0,
        [&] {
            for (int row = 0; row < kCells / kColumns; ++row) {
                const automation::Typed typed(node);
                for (Cell& cell : cells)
                    cell.keep(typed.get(member));
            }
        },
        [&] { bareCells(dispatch, id); });
}

std::wstring beside(const wchar_t* file) {
    std::wstring path(0x1000, L'\0');
    path.resize(::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return path.substr(0, path.find_last_of(L'\\') + 1) + file;
}

/// A node of the reference repository, reached as any host's.
void compareRepositoryNode() {
    const win32::ActivationContext manifest(beside(L"QuorelRepository.manifest"));
    const win32::ActivationScope active(manifest);
    const std::wstring file = beside(L"foreign_bench.repository");
    const Object repository = win32::createPlatformObject(u"QuorelRepository.Repository");
    repository.call(u"Create", win32::narrowView(file.c_str()));
    repository.call(u"MakeDynamicMetaClass", u"Package");
    compareMember("Cell of the reference repository by name / bare Invoke", kAim,
                  repository.call(u"MakeNode", u"Package", u"libquorel-common-data", u"ID:1").toObject());
    repository.call(u"Close");
    ::DeleteFileW(file.c_str());
}

}  // namespace

int main() {
    if (FAILED(::OleInitialize(nullptr)))
        return 1;
    {
        const auto compiled = win32::makeCom<bench::CompiledNode>(bench::nodeDescription());
        const Object node = win32::fromDispatch(compiled.get());
        compareKnownId("Cell of a compiled object, its id known / bare Invoke", node);
        compareRows("Cell of a compiled object by name, in a row of four / bare Invoke", node);
        compareMember("Cell of a compiled object by name, alone in its row / bare Invoke", 0, node);

        compareRepositoryNode();

        const Script visual(L"VBScript",
                            L"Class Node\nPublic name\nEnd Class\n"
                            L"Function MakeNode\nDim made\nSet made = New Node\n"
                            L"made.name = \"libquorel-common-data\"\nSet MakeNode = made\nEnd Function\n");
        compareKnownId("Cell of a VBScript object, its id known / bare Invoke", visual.node());
        const Script java(L"JScript", L"function MakeNode() { return { name: \"libquorel-common-data\" }; }");
        compareKnownId("Cell of a JScript object, its id known / bare Invoke", java.node());
    }
    ::OleUninitialize();
    return seen > 0 ? 0 : 1;
}
