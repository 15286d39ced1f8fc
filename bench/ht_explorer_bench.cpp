// What it costs to make an explorer of a metamodel: growing with its size, and against a host that describes
// the same panes one by one.

#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <system_error>
#include <vector>

#include "dialogs/progress.h"
#include "explorer/explorer.h"
#include "explorer/ht_explorer.h"
#include "numbered.h"
#include "platform/automation/calls.h"
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

/// A file of the reference repository with so many meta nodes in a ring, twice as many meta links, two
/// properties and one node each.
class StoredMetamodel {
  public:
    explicit StoredMetamodel(std::size_t size) : size_(size) {
        std::filesystem::create_directories(folder_);
        repository_->create((folder_ / (std::to_string(size) + ".qrep")).u16string());
        repository::Transaction load(repository_->store());
        for (std::size_t i = 0; i < size; ++i) {
            const Object type = repository_->makeMetaNode(numbered(u"Type", i), u"");
            for (const char16_t* property : {u"Size", u"Colour"})
                type.call(u"MakeMetaProperty", property, u"String");
            static_cast<void>(repository_->makeNode(numbered(u"Type", i), u"one", numbered(u"ID:", i)));
        }
        for (std::size_t i = 0; i < size * 2; ++i)
            repository_->makeMetaLink(numbered(u"Leads", i), numbered(u"Type", i % size),
                                      numbered(u"Type", (i * 7 + 1) % size), u"");
        load.commit();
    }
    ~StoredMetamodel() {
        repository_->close();
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }
    StoredMetamodel(const StoredMetamodel&) = delete;
    StoredMetamodel& operator=(const StoredMetamodel&) = delete;
    [[nodiscard]] Object repository() const { return repository_; }
    [[nodiscard]] std::size_t size() const noexcept { return size_; }

  private:
    std::size_t size_;
    std::filesystem::path folder_ = std::filesystem::temp_directory_path() / "quorel-hierarchy-bench";
    Ref<repository::Repository> repository_ = make<repository::Repository>();
};

struct World {
    headless::HeadlessDesktop desktop;
    automation::ClassRegistry classes;
    shell::SystemClock clock;
    shell::MemorySettingsStore settings;
    frame::Environment environment{desktop, classes, clock, settings};

    World() {
        environment.libraryFolder = u"library";
        for (const char16_t* file : {u"library\\Node.ico", u"library\\Link.ico"})
            desktop.setPicture(file, {ui::Picture{16, 16, std::vector<std::uint8_t>(1024, 255)}});
        classes.add(u"QuorelUtility.Progress",
                    [this] { return Object(make<dialogs::Progress>(environment)); });
    }
};

/// Seconds that the setup takes; how many native windows there are then and when the window is shown.
struct Cost {
    double seconds = 0;
    std::size_t hidden = 0, shown = 0;
};

[[nodiscard]] Cost setUp(const StoredMetamodel& model) {
    World world;
    const auto explorer = make<explorer::HTExplorer>(world.environment);
    explorer->Create(u"", {});
    explorer->setRepository(model.repository());
    explorer->Init();
    Cost cost;
    cost.seconds = bench::seconds([&] { explorer->SetupTree(); });
    cost.hidden = world.desktop.livePeers();
    explorer->PopUp(false);
    cost.shown = world.desktop.livePeers();
    explorer->Destroy();
    return cost;
}

/// The same panes and controls, by a host that knows the names.
[[nodiscard]] double describe(const StoredMetamodel& model) {
    World world;
    const auto explorer = make<explorer::Explorer>(world.environment);
    explorer->Create();
    explorer->setRepository(model.repository());
    explorer->Init();
    const double seconds = bench::seconds([&] {
        for (std::size_t i = 0; i < model.size(); ++i) {
            const std::u16string name = numbered(u"Type", i);
            explorer->AddPane(name, u"", name, u"Properties");
            explorer->AddProperty(name, name, u"");
            explorer->AddPane(u"0 " + name, u"", name, u"Instances");
            explorer->AddListView(u"0 " + name, u"Extension", name, u"", u"");
        }
        for (std::size_t i = 0; i < model.size() * 2; ++i) {
            const std::u16string name = numbered(u"Leads", i);
            explorer->AddPane(u"2 " + name, u"", name, u"Targets");
            explorer->AddProperty(u"2 " + name, numbered(u"Type", i % model.size()), u"");
            explorer->AddListView(u"2 " + name, u"Link-Target", name, u"", u"");
            explorer->AddSubPane(u"2 " + name, u"Sources");
            explorer->AddListView(u"2 " + name, u"Link-Source", name, u"", u"Sources");
        }
    });
    explorer->Destroy();
    return seconds;
}

void benchSize(std::size_t size, double& perType) {
    const StoredMetamodel model(size);
    std::vector<double> made, described, ratios;
    Cost cost;
    for (int run = 0; run < 5; ++run) {
        cost = setUp(model);
        made.push_back(cost.seconds);
        described.push_back(describe(model));
        ratios.push_back(made.back() / described.back());
    }
    const double seconds = bench::median(made);
    std::printf(
        "%zu meta nodes, %zu meta links set up / described by a host: %.0f ms / %.0f ms = %.2f (aim: 1.50)\n",
        size, size * 2, seconds * 1e3, bench::median(described) * 1e3, bench::median(ratios));
    if (perType == 0)
        perType = seconds / static_cast<double>(size);
    std::printf("  a meta node, against 500 of them: %.2f (aim: 1.20)\n",
                seconds / static_cast<double>(size) / perType);
    std::printf("  native windows before it is shown: %zu, shown: %zu (aim: 20)\n", cost.hidden, cost.shown);
    std::fflush(stdout);
}

}  // namespace

int main() {
    double perType = 0;
    for (const std::size_t size : {500, 1000, 2000})
        benchSize(size, perType);
    return 0;
}
