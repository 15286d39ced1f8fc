// What it takes to show an object's properties: many of them against few, in a window that shows the same
// lines.

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <system_error>

#include "dialogs/node_edit.h"
#include "platform/automation/calls.h"
#include "platform/automation/text.h"
#include "platform/headless/headless_desktop.h"
#include "platform/headless/user.h"
#include "platform/shell/memory_settings_store.h"
#include "platform/shell/system_clock.h"
#include "ratio.h"
#include "repository/repository.h"

namespace {

using namespace quorel;
using automation::Object;

constexpr int kFew = 20;
constexpr int kMany = 200;
constexpr std::size_t kPage = 18;

/// A file of the reference repository with a node of few and one of many properties.
class StoredModel {
  public:
    StoredModel() {
        std::filesystem::create_directories(folder_);
        repository_->create((folder_ / "nodes.quorel").u16string());
        few = node(u"Few", kFew);
        many = node(u"Many", kMany);
    }
    ~StoredModel() {
        few.reset();
        many.reset();
        repository_->close();
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }
    StoredModel(const StoredModel&) = delete;
    StoredModel& operator=(const StoredModel&) = delete;

    Object few, many;

  private:
    Object node(const std::u16string& type, int properties) {
        const Object metaNode = repository_->makeMetaNode(type, u"");
        for (int i = 0; i < properties; ++i)
            metaNode.call(u"MakeMetaProperty", u"Property " + automation::decimal(i), u"Integer");
        const Object made = repository_->makeNode(type, type, type);
        for (int i = 0; i < properties; ++i)
            made.call(u"SetProperty", u"Property " + automation::decimal(i), i);
        return made;
    }

    std::filesystem::path folder_ = std::filesystem::temp_directory_path() / "quorel-property-bench";
    automation::Ref<repository::Repository> repository_ = automation::make<repository::Repository>();
};

}  // namespace

int main() {
    headless::HeadlessDesktop desktop;
    headless::User user(desktop);
    automation::ClassRegistry classes;
    shell::SystemClock clock;
    shell::MemorySettingsStore settings;
    const frame::Environment environment{desktop, classes, clock, settings};
    const StoredModel model;
    const auto show = [&](const Object& node) {
        const auto window = std::make_shared<dialogs::NodeEdit>(environment);
        window->load();
        window->Property1().initialise();
        window->Property1().setMetaObject(node.get(u"Parent").toObject());
        window->Property1().build();
        window->SetNode(node);
        window->show(ui::Modality::Modeless);
        static_cast<void>(user.look(window->Property1().list(), 0, kPage));
        window->unload();
    };
    bench::compare(
        "properties of a node shown: 200 / 20", 1, 2.0, [&] { show(model.many); }, [&] { show(model.few); },
        101);
    return 0;
}
