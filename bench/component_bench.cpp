// What a host pays that reaches the components as any host does, through the platform and their libraries: an
// explorer of a large metamodel in a repository file, and items added to the selection dialog beside the same
// calls of an object that does nothing.

#include <oaidl.h>
#include <psapi.h>
#include <windows.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

#include "bench/numbered.h"
#include "bench/ratio.h"
#include "platform/automation/calls.h"
#include "platform/win32/com/activation.h"
#include "platform/win32/com/bridge.h"
#include "platform/win32/com/com_object.h"
#include "platform/win32/com/com_ptr.h"

namespace {

using namespace quorel;
using automation::Object;
using automation::Value;
using bench::numbered;
using win32::ComPtr;

[[nodiscard]] std::filesystem::path programFolder() {
    std::wstring path(0x1000, L'\0');
    path.resize(::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return std::filesystem::path(path).parent_path();
}

/// A component by its identifier, from the library beside this program.
[[nodiscard]] Object create(const wchar_t* manifest, std::u16string_view identifier) {
    const win32::ActivationContext context((programFolder() / manifest).wstring());
    const win32::ActivationScope active(context);
    return win32::createPlatformObject(identifier);
}

/// A file with so many meta nodes in a ring, twice as many meta links and two properties each.
class StoredMetamodel {
  public:
    explicit StoredMetamodel(std::size_t size) {
        std::filesystem::create_directories(folder_);
        Object information = manager_.call(u"Create", (folder_ / "bench.quorel").u16string()).toObject();
        repository = information.get(u"Repository").toObject();
        for (std::size_t i = 0; i < size; ++i) {
            const Object type = repository.call(u"MakeMetaNode", numbered(u"Type", i)).toObject();
            for (const char16_t* property : {u"Size", u"Colour"})
                type.call(u"MakeMetaProperty", property, u"String");
        }
        for (std::size_t i = 0; i < size * 2; ++i)
            repository.call(u"MakeMetaLink", numbered(u"Leads", i), numbered(u"Type", i % size),
                            numbered(u"Type", (i * 7 + 1) % size));
        repository.call(u"MakeNode", u"Type0", u"one", u"ID:0");
    }
    ~StoredMetamodel() {
        repository.reset();
        manager_.call(u"Close");
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }
    StoredMetamodel(const StoredMetamodel&) = delete;
    StoredMetamodel& operator=(const StoredMetamodel&) = delete;

    Object repository;

  private:
    std::filesystem::path folder_ = std::filesystem::temp_directory_path() / "quorel-component-bench";
    Object manager_ = create(L"QuorelRepository.manifest", u"QuorelRepository.RepositoryManager");
};

[[nodiscard]] double setUp(const Object& repository) {
    const Object explorer = create(L"QuorelUtility.manifest", u"QuorelUtility.HTExplorer");
    explorer.call(u"Create");
    explorer.putRef(u"Repository", repository);
    explorer.call(u"Init");
    const double seconds = bench::seconds([&] { explorer.call(u"SetupTree"); });
    explorer.call(u"Destroy");
    return seconds;
}

void benchExplorer() {
    double perType = 0;
    for (const std::size_t size : {500, 1000, 2000}) {
        const StoredMetamodel model(size);
        std::vector<double> times;
        for (int run = 0; run < 3; ++run)
            times.push_back(setUp(model.repository));
        const double seconds = bench::median(times);
        if (perType == 0)
            perType = seconds / static_cast<double>(size);
        std::printf("SetupTree of %zu meta nodes and %zu meta links: %.2f s", size, size * 2, seconds);
        std::printf(size == 2000 ? " (aim: 2.00)\n" : "\n");
        std::printf("  a meta node, against 500 of them: %.2f (aim: 1.20)\n",
                    seconds / static_cast<double>(size) / perType);
        std::fflush(stdout);
        if (size != 2000)
            continue;
        const Object node =
            model.repository.get(u"MetaNodes", u"Type0").toObject().get(u"Extension", u"ID:0").toObject();
        constexpr int kReads = 20'000;
        const double reading = bench::seconds([&] {
            for (int i = 0; i < kReads; ++i)
                node.call(u"GetProperty", u"Name");
        });
        std::printf("GetProperty of a node: %.1f us a call\n", reading / kReads * 1e6);
    }
}

/// Takes items as the dialog does and forgets them.
class Bare final : public win32::ComObject<IDispatch> {
  public:
    STDMETHODIMP GetTypeInfoCount(UINT* count) override {
        *count = 0;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID* ids) override {
        ids[0] = 1;
        return S_OK;
    }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT*, EXCEPINFO*,
                        UINT*) override {
        if (id != 1 || (flags & DISPATCH_METHOD) == 0)
            return DISP_E_MEMBERNOTFOUND;
        if (parameters->cArgs < 2 || parameters->cArgs > 9)
            return DISP_E_BADPARAMCOUNT;
        return S_OK;
    }
};

constexpr std::size_t kItems = 100'000;

/// A host that was compiled: it knows the member's id and makes a text for each argument, as its language
/// does.
class Host {
  public:
    Host(IDispatch& callee, const Object& behind, std::size_t columns)
        : callee_(callee), behind_(win32::toDispatch(behind)), columns_(columns) {
        wchar_t name[] = L"AddItem";
        LPOLESTR names = name;
        callee.GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id_);
    }
    void addItems(std::size_t count) const {
        for (std::size_t i = 0; i < count; ++i) {
            std::array<win32::Variant, 9> arguments;
            const std::size_t last = 1 + columns_;
            text(arguments[last], numbered(u"Item number ", i));
            V_VT(arguments[last - 1].out()) = VT_DISPATCH;
            V_DISPATCH(arguments[last - 1].get()) = ComPtr<IDispatch>(behind_).detach();
            for (std::size_t column = 0; column < columns_; ++column)
                text(arguments[last - 2 - column], u"a column");
            std::array<VARIANT, 9> passed;
            for (std::size_t k = 0; k <= last; ++k)
                passed[k] = *arguments[k];
            DISPPARAMS parameters{passed.data(), nullptr, static_cast<UINT>(last + 1), 0};
            if (FAILED(callee_.Invoke(id_, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters,
                                      nullptr, nullptr, nullptr)))
                std::abort();
        }
    }

  private:
    static void text(win32::Variant& argument, std::u16string_view value) {
        V_VT(argument.out()) = VT_BSTR;
        V_BSTR(argument.get()) = ::SysAllocStringLen(win32::wide(value), static_cast<UINT>(value.size()));
    }
    IDispatch& callee_;
    ComPtr<IDispatch> behind_;
    std::size_t columns_;
    DISPID id_ = 0;
};

[[nodiscard]] std::size_t bytesInUse() {
    PROCESS_MEMORY_COUNTERS counters{};
    ::GetProcessMemoryInfo(::GetCurrentProcess(), &counters, sizeof(counters));
    return counters.PagefileUsage;
}

/// Before anything else took memory and gave it back.
void printMemory(const Object& dialog, const Object& behind) {
    dialog.call(u"Create");
    const std::size_t before = bytesInUse();
    std::size_t added = 0;
    for (const std::size_t items : {10'000, 100'000}) {
        Host(*win32::toDispatch(dialog).get(), behind, 0).addItems(items - added);
        added = items;
        std::printf("%7zu items: %.0f bytes an item\n", items,
                    static_cast<double>(bytesInUse() - before) / static_cast<double>(items));
    }
}

void benchItems() {
    const Object dialog = create(L"QuorelUtility.manifest", u"QuorelUtility.SelectItem");
    const Object behind = create(L"QuorelUtility.manifest", u"QuorelUtility.UUIDGenerator");
    printMemory(dialog, behind);
    const auto bare = win32::makeCom<Bare>();
    for (const std::size_t columns : {0, 3}) {
        const auto dispatch = win32::toDispatch(dialog);
        const Host host(*dispatch.get(), behind, columns);
        const Host bareHost(*bare.get(), behind, columns);
        bench::compare(
            columns == 0 ? "AddItem by a compiled host / the same call of an object that does nothing"
                         : "AddItem with three columns / the same call of an object that does nothing",
            kItems, 3,
            [&] {
                dialog.call(u"Create");
                if (columns != 0)
                    dialog.call(u"AsListView", true);
                host.addItems(kItems);
            },
            [&] { bareHost.addItems(kItems); });
    }
    dialog.call(u"Destroy");
}

}  // namespace

int main() {
    if (FAILED(::OleInitialize(nullptr)))
        return 1;
    benchItems();
    benchExplorer();
    ::OleUninitialize();
    return 0;
}
