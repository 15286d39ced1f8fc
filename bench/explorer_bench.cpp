// What it costs to describe a large explorer and to open an entry with very many others below it.

#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <system_error>
#include <vector>

#include "explorer/explorer.h"
#include "numbered.h"
#include "platform/controls/tree_view.h"
#include "platform/headless/user.h"
#include "platform/shell/memory_settings_store.h"
#include "platform/shell/system_clock.h"
#include "ratio.h"
#include "repository/repository.h"

namespace {

using namespace quorel;
using automation::make;
using automation::Object;
using automation::Ref;
using bench::numbered;

constexpr std::size_t kPanes = 2000;
constexpr std::size_t kMany = 100'000;
constexpr std::size_t kFew = 100;

/// A file of the reference repository with a type of many nodes and one of few.
class StoredModel {
  public:
    StoredModel() {
        std::filesystem::create_directories(folder_);
        repository_->create((folder_ / "nodes.qrep").u16string());
        for (const char16_t* type : {u"Many", u"Few"})
            repository_->makeMetaNode(type, u"").call(u"MakeMetaProperty", u"Size", u"Integer");
        repository::Transaction load(repository_->store());
        fill(u"Many", kMany);
        fill(u"Few", kFew);
        load.commit();
    }
    ~StoredModel() {
        repository_->close();
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }
    StoredModel(const StoredModel&) = delete;
    StoredModel& operator=(const StoredModel&) = delete;
    [[nodiscard]] Object repository() const { return repository_; }

  private:
    void fill(std::u16string_view type, std::size_t count) {
        for (std::size_t i = 0; i < count; ++i)
            static_cast<void>(
                repository_->makeNode(std::u16string(type), numbered(u"node", i), numbered(type, i)));
    }

    std::filesystem::path folder_ = std::filesystem::temp_directory_path() / "quorel-explorer-bench";
    Ref<repository::Repository> repository_ = make<repository::Repository>();
};

struct World {
    headless::HeadlessDesktop desktop;
    automation::ClassRegistry classes;
    shell::SystemClock clock;
    shell::MemorySettingsStore settings;
    frame::Environment environment{desktop, classes, clock, settings};
};

void describe(explorer::Explorer& explorer) {
    const std::u16string all = explorer.AddTreeDesc(u"", u"Group", u"", u"All", u"", u"none");
    for (std::size_t i = 0; i < kPanes; ++i) {
        const std::u16string id = numbered(u"pane", i);
        explorer.AddTreeDesc(all, u"Group", u"", id, u"", id);
        explorer.AddPane(id, u"", id, u"Data");
        explorer.AddToolbar(id, u"");
        explorer.AddProperty(id, u"Few", u"");
        explorer.AddListView(id, u"Other", u"Few", u"", u"");
    }
}

void benchDescription(const StoredModel& model) {
    World world;
    std::vector<double> times;
    std::size_t peers = 0;
    for (int run = 0; run < 5; ++run) {
        const auto explorer = make<explorer::Explorer>(world.environment);
        explorer->Create();
        explorer->setRepository(model.repository());
        explorer->Init();
        times.push_back(bench::seconds([&] { describe(*explorer); }));
        explorer->PopUp(false);
        peers = world.desktop.livePeers();
        explorer->Destroy();
    }
    std::printf("2,000 panes with 6,000 controls described: %.0f ms (aim: 1000)\n",
                bench::median(times) * 1e3);
    std::printf("native windows of the window when no pane is shown: %zu (aim: 20)\n", peers);
}

/// A shown tree with one closed entry for each type.
class Shown {
  public:
    Shown(headless::HeadlessDesktop& desktop, const StoredModel& model, std::u16string_view type)
        : desktop_(desktop),
          form_(std::make_shared<ui::Form>(desktop, u"frmBench")),
          view_(form_->add<controls::TreeView>(u"TreeView1", desktop)) {
        view_.setBounds({{0}, {0}, {6000}, {9000}});
        view_.setRepository(model.repository());
        const auto group = view_.AddChildDesc(view_.rootDescription(), u"Group", u"", u"All", u"", u"");
        view_.AddChildDesc(*group, u"Extension", type, u"", u"", u"");
        form_->show(ui::Modality::Modeless);
    }
    ~Shown() { view_.initialise(); }
    Shown(const Shown&) = delete;
    Shown& operator=(const Shown&) = delete;

    /// Forgets everything and closes the entry.
    void reset() {
        view_.setRepository(view_.repository());
        view_.populate();
        desktop_.runPosted();
    }
    /// Until the page is listed and its seen lines are read; its number follows from the message loop.
    void open() {
        view_.tree().userExpands(view_.tree().firstChild(ui::TreeItemId::Root));
        ui::TreeItemId item = view_.tree().firstChild(ui::TreeItemId::Root);
        for (int line = 0; line < kSeenLines && item != ui::TreeItemId::None; ++line) {
            units_ += view_.tree().itemText(item).size();
            item = view_.tree().shownAfter(item);
        }
    }

  private:
    headless::HeadlessDesktop& desktop_;
    std::shared_ptr<ui::Form> form_;
    controls::TreeView& view_;
    std::size_t units_ = 0;

    static constexpr int kSeenLines = 33;
};

void benchExpansion(const StoredModel& model) {
    headless::HeadlessDesktop desktop;
    Shown many(desktop, model, u"Many"), few(desktop, model, u"Few");
    std::vector<double> manyTimes, fewTimes, ratios;
    for (int run = 0; run < 101; ++run) {
        many.reset();
        few.reset();
        manyTimes.push_back(bench::seconds([&] { many.open(); }));
        fewTimes.push_back(bench::seconds([&] { few.open(); }));
        ratios.push_back(manyTimes.back() / fewTimes.back());
    }
    std::printf("first page below an entry with 100,000 / with 100: %.0f us / %.0f us = %.2f (aim: 1.20)\n",
                bench::median(manyTimes) * 1e6, bench::median(fewTimes) * 1e6, bench::median(ratios));
}

}  // namespace

int main() {
    const StoredModel model;
    benchDescription(model);
    benchExpansion(model);
    return 0;
}
