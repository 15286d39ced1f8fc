// What it takes to fill a list with a million objects of a foreign repository's, against their bare
// enumeration.

#include <oaidl.h>
#include <windows.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <vector>

#include "bench/foreign_extension.h"
#include "bench/ratio.h"
#include "platform/automation/class_table.h"
#include "platform/controls/list_view.h"
#include "platform/ui/form.h"
#include "platform/win32/com/bridge.h"
#include "platform/win32/com/com_ptr.h"
#include "platform/win32/ui/windows_desktop.h"

namespace {

using namespace quorel;
using automation::Object;
using win32::ComPtr;
using win32::Variant;

constexpr std::size_t kMany = 1'000'000;
constexpr std::size_t kBatch = 256;

using Nodes = std::vector<ComPtr<IDispatch>>;

class MetaNode final : public automation::NativeObject {
  public:
    explicit MetaNode(Object extension) : extension_(std::move(extension)) {}
    [[nodiscard]] const automation::ClassTable& classTable() const override {
        static const automation::ClassTable table =
            automation::ClassTable::of<MetaNode>(u"MetaNode").readOnly(u"Extension", &MetaNode::extension);
        return table;
    }

  private:
    [[nodiscard]] Object extension() const { return extension_; }
    Object extension_;
};

/// Reads every node and gives it to `use`, which takes the reference over.
template <class Use>
void enumerate(IDispatch& extension, Use&& use) {
    DISPPARAMS none{};
    Variant result;
    extension.Invoke(DISPID_NEWENUM, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none, result.out(),
                     nullptr, nullptr);
    const auto items = ComPtr<IUnknown>(V_UNKNOWN(result.get())).as<IEnumVARIANT>();
    std::array<VARIANT, kBatch> batch{};
    std::size_t seen = 0;
    ULONG fetched = kBatch;
    while (fetched == kBatch) {
        items->Next(kBatch, batch.data(), &fetched);
        for (ULONG i = 0; i < fetched; ++i)
            use(ComPtr<IDispatch>::adopt(V_DISPATCH(&batch[i])));
        seen += fetched;
    }
    if (seen != kMany)
        std::abort();
}

/// What was held is let go between the timings.
void compareFill(const char* peer, controls::ListView& view, const Object& metaNode, IDispatch& extension,
                 bool keeping) {
    std::vector<double> fills, peers, ratios;
    for (int run = 0; run < 11; ++run) {
        view.clearRows();
        fills.push_back(bench::seconds([&] { view.fillWithExtension(metaNode, false); }));
        view.clearRows();
        Nodes kept;
        peers.push_back(bench::seconds([&] {
            if (!keeping)
                return enumerate(extension, [](ComPtr<IDispatch>&& node) { node.reset(); });
            kept.reserve(kMany);
            enumerate(extension, [&](ComPtr<IDispatch>&& node) { kept.push_back(std::move(node)); });
        }));
        ratios.push_back(fills.back() / peers.back());
    }
    std::printf(
        "fill of 1,000,000 foreign objects into an empty list (a row) / %s: %.1f ns / %.1f ns = %.2f%s\n",
        peer, bench::median(fills) / kMany * 1e9, bench::median(peers) / kMany * 1e9, bench::median(ratios),
        keeping ? "" : " (aim: 1.20)");
    std::fflush(stdout);
}

}  // namespace

int main() {
    if (FAILED(::OleInitialize(nullptr)))
        return 1;
    {
        win32::WindowsDesktop desktop(::GetModuleHandleW(nullptr));
        const auto form = std::make_shared<ui::Form>(desktop, u"frmBench");
        auto& view = form->add<controls::ListView>(u"Nodes", desktop);
        form->show(ui::Modality::Modeless);
        const auto extension = ComPtr<IDispatch>::adopt(bench_makeExtension(kMany));
        const Object metaNode = automation::make<MetaNode>(win32::fromDispatch(extension.get()));
        compareFill("bare enumeration", view, metaNode, *extension.get(), false);
        compareFill("bare enumeration that keeps", view, metaNode, *extension.get(), true);
        view.clearRows();
    }
    ::OleUninitialize();
    return 0;
}
