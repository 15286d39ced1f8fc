// What it costs to open a node with a million links in the matrix browser, against a list of a million rows.

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "matrix/frm_matrix_browser.h"
#include "platform/automation/class_table.h"
#include "platform/automation/text.h"
#include "platform/headless/user.h"
#include "platform/shell/memory_settings_store.h"
#include "ratio.h"

namespace {

using namespace quorel;
using automation::Argument;
using automation::make;
using automation::MemberId;
using automation::Object;
using automation::Ref;
using automation::Value;

constexpr std::size_t kMany = 1'000'000;
constexpr std::size_t kFew = 1'000;
constexpr std::size_t kPage = 40;

std::size_t memberCalls = 0;

/// An object whose members, with or without arguments, have one value each.
class Thing final : public automation::NativeObject {
  public:
    Thing& with(std::u16string_view name, Value value) {
        members_.insert_or_assign(idOf(name), std::move(value));
        return *this;
    }
    [[nodiscard]] const automation::ClassTable& classTable() const override {
        static const automation::ClassTable table = automation::ClassTable::of<Thing>(u"Thing");
        return table;
    }
    [[nodiscard]] std::optional<MemberId> resolveExtra(std::u16string_view name) override {
        const std::int32_t id = idOf(name);
        return members_.contains(id) ? std::optional(MemberId{id}) : std::nullopt;
    }
    Value invokeExtra(MemberId id, automation::InvokeKind, std::span<Argument>) override {
        ++memberCalls;
        return members_.at(static_cast<std::int32_t>(id));
    }

  private:
    [[nodiscard]] static std::int32_t idOf(std::u16string_view name) {
        static std::map<std::u16string, std::int32_t> ids;
        return ids.try_emplace(automation::foldCase(name), 0x10000 + static_cast<std::int32_t>(ids.size()))
            .first->second;
    }
    std::map<std::int32_t, Value> members_;
};

class List final : public automation::NativeObject {
  public:
    explicit List(std::vector<Object> items) : items_(std::move(items)) {}
    [[nodiscard]] const automation::ClassTable& classTable() const override {
        static const automation::ClassTable table = automation::ClassTable::of<List>(u"List");
        return table;
    }
    [[nodiscard]] std::unique_ptr<automation::Enumerator> enumerate() override {
        return std::make_unique<Reader>(*this);
    }

  private:
    class Reader final : public automation::Enumerator {
      public:
        explicit Reader(List& list) : list_(&list) {}
        std::size_t next(std::span<Value> values) override {
            const std::vector<Object>& all = list_->items_;
            const std::size_t given = std::min(values.size(), all.size() - position_);
            for (std::size_t i = 0; i < given; ++i)
                values[i] = Value(all[position_ + i]);
            position_ += given;
            return given;
        }

      private:
        Ref<List> list_;
        std::size_t position_ = 0;
    };
    std::vector<Object> items_;
};

[[nodiscard]] Value list(std::vector<Object> items) {
    return Object(make<List>(std::move(items)));
}

[[nodiscard]] Ref<Thing> named(std::u16string_view name) {
    auto thing = make<Thing>();
    thing->with(u"name", std::u16string(name));
    return thing;
}

/// One type with one node that has that many links of one kind; the links are the extension of another type
/// too, so that a list of as many rows can be filled with the same objects.
struct Model {
    explicit Model(std::size_t count) {
        std::vector<Object> links;
        links.reserve(count);
        target->with(u"Prop_", 7);
        for (std::size_t i = 0; i < count; ++i) {
            const auto link = make<Thing>();
            link->with(u"target", Object(target)).with(u"name", u"a link").with(u"Prop_", 7);
            links.emplace_back(link);
        }
        const Value all = list(std::move(links));
        const Value properties = list({Object(named(u"Size"))});
        node->with(u"Outgoing_", all).with(u"Identifier", u"ID:1");
        metaLink->with(u"target", Object(metaNode)).with(u"source", Object(metaNode));
        metaNode->with(u"Properties", properties)
            .with(u"Extension", list({Object(node)}))
            .with(u"incoming", list({}))
            .with(u"outgoing", list({Object(metaLink)}));
        node->with(u"Parent", Object(metaNode));
        linkType->with(u"Properties", properties).with(u"Extension", all);
        repository->with(u"MetaNodes", list({Object(metaNode)}));
    }
    ~Model() {
        for (const Ref<Thing>& each : {node, metaLink})
            each->with(u"Parent", Value()).with(u"target", Value()).with(u"source", Value());
    }
    Model(const Model&) = delete;
    Model& operator=(const Model&) = delete;

    Ref<Thing> target = named(u"a target of the model");
    Ref<Thing> node = named(u"the node");
    Ref<Thing> metaLink = named(u"Needs");
    Ref<Thing> metaNode = named(u"Package");
    Ref<Thing> linkType = named(u"Link");
    Ref<Thing> repository = named(u"Model");
};

class StillClock final : public shell::Clock {
  public:
    [[nodiscard]] std::int64_t seconds() override { return 0; }
    [[nodiscard]] shell::LocalTime localTime(std::int64_t) override { return {}; }
    [[nodiscard]] double secondsSinceMidnight() override { return 0; }
};

/// A browser on the screen whose node is chosen; a click on the meta link shows its links.
struct Browser {
    Browser(headless::HeadlessDesktop& desktop, const Model& model)
        : user(desktop), world{desktop, classes, clock, settings} {
        form->SetRepository(model.repository);
        form->PopUp(false);
        form->SetSelection(model.node);
    }
    ~Browser() {
        form->unload();
        form->Destroy();
    }
    Browser(const Browser&) = delete;
    Browser& operator=(const Browser&) = delete;
    void open() { user.selectRow(headless::get<ui::VirtualList>(*form, u"MetaLinkListOutgoing"), 0); }
    [[nodiscard]] controls::ListView& targets() {
        return headless::get<controls::ListView>(*form, u"TargetInstanceList.View");
    }

    headless::User user;
    automation::ClassRegistry classes;
    StillClock clock;
    shell::MemorySettingsStore settings;
    frame::Environment world;
    std::shared_ptr<matrix::frmMatrixBrowser> form = std::make_shared<matrix::frmMatrixBrowser>(world);
};

void benchOpen(headless::HeadlessDesktop& desktop, const Model& model) {
    Browser browser(desktop, model);
    const auto form = std::make_shared<ui::Form>(desktop, u"frmBench");
    form->show(ui::Modality::Modeless);
    auto& plain = form->add<controls::ListView>(u"Links", desktop);
    std::vector<double> opened, filled, ratios;
    for (int run = 0; run < 11; ++run) {
        browser.targets().empty();
        opened.push_back(bench::seconds([&] { browser.open(); }));
        if (browser.targets().count() != kMany)
            std::abort();
        browser.targets().empty();
        plain.empty();
        filled.push_back(bench::seconds([&] { plain.fillWithExtension(model.linkType, true); }));
        plain.empty();
        ratios.push_back(opened.back() / filled.back());
    }
    std::printf(
        "a node's 1,000,000 links, by a click / a list of 1,000,000 rows: %.1f ms / %.1f ms = %.2f (aim: "
        "1.20)\n",
        bench::median(opened) * 1e3, bench::median(filled) * 1e3, bench::median(ratios));
    browser.open();
    memberCalls = 0;
    browser.targets().clearRows();
    browser.open();
    std::printf("members called to open them: %zu (aim: 10)\n", memberCalls);
}

void benchPaint(headless::HeadlessDesktop& desktop, const Model& many, const Model& few) {
    Browser large(desktop, many), small(desktop, few);
    large.open();
    small.open();
    // Taking the sorting away shows the rows anew: nothing of an earlier page is remembered.
    const auto paint = [](Browser& browser) {
        for (int time = 0; time < 100; ++time) {
            browser.targets().sortBy(0, ui::SortOrder::None);
            static_cast<void>(browser.user.look(browser.targets().list(), 0, kPage));
        }
    };
    bench::compare(
        "first paint of 40 targets at 1,000,000 / at 1,000", 100, 1.2, [&] { paint(large); },
        [&] { paint(small); }, 51);
}

}  // namespace

int main() {
    headless::HeadlessDesktop desktop;
    const Model many(kMany), few(kFew);
    benchOpen(desktop, many);
    benchPaint(desktop, many, few);
    return 0;
}
