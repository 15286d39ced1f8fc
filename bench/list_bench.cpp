// What a list of a million repository objects costs, against what it is made of.

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <system_error>
#include <vector>

#include "platform/automation/class_table.h"
#include "platform/automation/text.h"
#include "platform/controls/list_view.h"
#include "platform/headless/user.h"
#include "ratio.h"
#include "repository/repository.h"

namespace {

using namespace quorel;
using automation::Object;
using automation::Value;

constexpr std::size_t kMany = 1'000'000;
constexpr std::size_t kFew = 1'000;
constexpr std::size_t kPage = 40;

std::size_t memberCalls = 0;

/// A node that its repository holds.
class Node final : public automation::NativeObject {
  public:
    explicit Node(std::int32_t number) : number_(number) {}
    [[nodiscard]] const automation::ClassTable& classTable() const override {
        static const automation::ClassTable table =
            automation::ClassTable::of<Node>(u"Node")
                .readOnly(u"name", &Node::name)
                .readOnly(u"Prop_", &Node::property, {automation::param(u"name")});
        return table;
    }

  private:
    [[nodiscard]] std::u16string name() const {
        ++memberCalls;
        return u"a node of the model";
    }
    [[nodiscard]] std::int32_t property(const std::u16string&) const {
        ++memberCalls;
        return number_;
    }
    std::int32_t number_;
};

class Nodes final : public automation::NativeObject {
  public:
    explicit Nodes(std::size_t count) {
        nodes_.reserve(count);
        for (std::size_t i = 0; i < count; ++i)
            nodes_.emplace_back(automation::make<Node>(static_cast<std::int32_t>(i)));
    }
    [[nodiscard]] const automation::ClassTable& classTable() const override {
        static const automation::ClassTable table = automation::ClassTable::of<Nodes>(u"Nodes");
        return table;
    }
    [[nodiscard]] std::unique_ptr<automation::Enumerator> enumerate() override {
        return std::make_unique<Reader>(*this);
    }

  private:
    class Reader final : public automation::Enumerator {
      public:
        explicit Reader(Nodes& nodes) : nodes_(&nodes) {}
        std::size_t next(std::span<Value> values) override {
            const std::vector<Object>& all = nodes_->nodes_;
            const std::size_t given = std::min(values.size(), all.size() - position_);
            for (std::size_t i = 0; i < given; ++i)
                values[i] = Value(all[position_ + i]);
            position_ += given;
            return given;
        }

      private:
        automation::Ref<Nodes> nodes_;
        std::size_t position_ = 0;
    };
    std::vector<Object> nodes_;
};

class MetaProperty final : public automation::NativeObject {
  public:
    [[nodiscard]] const automation::ClassTable& classTable() const override {
        static const automation::ClassTable table =
            automation::ClassTable::of<MetaProperty>(u"MetaProperty").readOnly(u"name", &MetaProperty::name);
        return table;
    }

  private:
    [[nodiscard]] std::u16string name() const { return u"Size"; }
};

class Properties final : public automation::NativeObject {
  public:
    [[nodiscard]] const automation::ClassTable& classTable() const override {
        static const automation::ClassTable table = automation::ClassTable::of<Properties>(u"Properties");
        return table;
    }
    [[nodiscard]] std::unique_ptr<automation::Enumerator> enumerate() override {
        class Reader final : public automation::Enumerator {
          public:
            std::size_t next(std::span<Value> values) override {
                if (std::exchange(given_, true))
                    return 0;
                values[0] = Value(Object(automation::make<MetaProperty>()));
                return 1;
            }

          private:
            bool given_ = false;
        };
        return std::make_unique<Reader>();
    }
};

class MetaNode final : public automation::NativeObject {
  public:
    explicit MetaNode(std::size_t count) : extension_(automation::make<Nodes>(count)) {}
    [[nodiscard]] const automation::ClassTable& classTable() const override {
        static const automation::ClassTable table = automation::ClassTable::of<MetaNode>(u"MetaNode")
                                                        .readOnly(u"Extension", &MetaNode::extension)
                                                        .readOnly(u"Properties", &MetaNode::properties);
        return table;
    }
    [[nodiscard]] Object extension() const { return extension_; }

  private:
    [[nodiscard]] Object properties() const { return automation::make<Properties>(); }
    Object extension_;
};

/// The same reading without a list: every object is taken and let go.
void enumerateBare(const Object& collection) {
    const auto reader = collection.enumerate();
    std::vector<Value> batch(256);
    std::size_t objects = 0;
    std::size_t got = batch.size();
    while (got == batch.size()) {
        got = reader->next(batch);
        for (std::size_t i = 0; i < got; ++i)
            objects += batch[i].getIf<Object>() != nullptr ? 1U : 0U;
    }
    if (objects != kMany)
        std::abort();
}

/// The least that holding them costs: one reserved vector.
void enumerateInto(const Object& collection, std::vector<Object>& kept) {
    const auto reader = collection.enumerate();
    std::vector<Value> batch(256);
    std::size_t got = batch.size();
    while (got == batch.size()) {
        got = reader->next(batch);
        for (std::size_t i = 0; i < got; ++i)
            kept.push_back(std::move(*batch[i].getIf<Object>()));
    }
}

struct Shown {
    explicit Shown(ui::Desktop& desktop) : form(std::make_shared<ui::Form>(desktop, u"frmBench")) {
        form->show(ui::Modality::Modeless);
    }
    std::shared_ptr<ui::Form> form;
    controls::ListView& view = form->add<controls::ListView>(u"Nodes", form->desktop());
};

void printFill(const char* what, const char* peer, const std::vector<double>& fills,
               const std::vector<double>& peers) {
    std::vector<double> ratios;
    for (std::size_t run = 0; run < fills.size(); ++run)
        ratios.push_back(fills[run] / peers[run]);
    std::printf("fill of 1,000,000 %s into an empty list / %s: %.1f ns / %.1f ns = %.2f (aim: 1.20)\n", what,
                peer, bench::median(fills) / kMany * 1e9, bench::median(peers) / kMany * 1e9,
                bench::median(ratios));
}

/// What was held is let go between the timings. The second peer keeps what it reads in one reserved vector:
/// what is left against it is the list's own share.
void benchFirstFill(const char* what, Shown& shown, const Object& metaNode, const Object& extension) {
    std::vector<double> fills, bare, keeping;
    for (int run = 0; run < 11; ++run) {
        shown.view.empty();
        fills.push_back(bench::seconds([&] { shown.view.fillWithExtension(metaNode, true); }));
        shown.view.empty();
        bare.push_back(bench::seconds([&] { enumerateBare(extension); }));
        std::vector<Object> kept;
        keeping.push_back(bench::seconds([&] {
            kept.reserve(kMany);
            enumerateInto(extension, kept);
        }));
    }
    printFill(what, "bare enumeration", fills, bare);
    printFill(what, "enumeration that keeps", fills, keeping);
}

void benchFill(ui::Desktop& desktop, const Object& metaNode, const Object& extension) {
    Shown shown(desktop);
    benchFirstFill("objects in memory", shown, metaNode, extension);
    // Letting go the million of a former fill is a second pass over as many objects.
    bench::compare(
        "fill of 1,000,000 objects in memory over as many rows (a row) / bare enumeration and letting go",
        kMany, 1.2, [&] { shown.view.fillWithExtension(metaNode, true); },
        [&] {
            std::vector<Object> kept;
            kept.reserve(kMany);
            enumerateInto(extension, kept);
        });
    std::printf("members of rows called by the fills: %zu (aim: 0)\n", memberCalls);
    std::printf("bytes a row beside the reference, as filled: %.2f (aim: 16)\n",
                static_cast<double>(shown.view.bookkeepingBytes()) / kMany);
    shown.view.sortBy(1, ui::SortOrder::Descending);
    std::printf("bytes a row beside the reference, sorted: %.2f (aim: 16)\n",
                static_cast<double>(shown.view.bookkeepingBytes()) / kMany);
}

void benchPaint(headless::HeadlessDesktop& desktop, const Object& many, const Object& few) {
    Shown large(desktop), small(desktop);
    large.view.fillWithExtension(many, true);
    small.view.fillWithExtension(few, true);
    headless::User user(desktop);
    memberCalls = 0;
    std::size_t cells = 0;
    for (std::size_t first = 0; first < 4000; first += kPage)
        for (const auto& row : user.look(large.view.list(), first, kPage))
            cells += row.size();
    std::printf("calls a visible cell: %.2f (aim: 1.25)\n",
                static_cast<double>(memberCalls) / static_cast<double>(cells));
    // Taking the sorting away shows the rows anew: nothing of an earlier page is remembered.
    const auto paint = [&user](controls::ListView& view) {
        for (int time = 0; time < 100; ++time) {
            view.sortBy(0, ui::SortOrder::None);
            static_cast<void>(user.look(view.list(), 0, kPage));
        }
    };
    bench::compare(
        "first paint of 40 rows at 1,000,000 / at 1,000", 100, 1.2, [&] { paint(large.view); },
        [&] { paint(small.view); }, 51);
}

/// A file of the reference repository with as many nodes of one type, taken away at the end.
class StoredModel {
  public:
    explicit StoredModel(std::size_t count) {
        std::filesystem::create_directories(folder_);
        repository_->create((folder_ / "nodes.qrep").u16string());
        repository_->makeMetaNode(u"Package", u"").call(u"MakeMetaProperty", u"Size", u"Integer");
        repository::Transaction load(repository_->store());
        for (std::size_t i = 0; i < count; ++i) {
            const std::u16string name = automation::decimal(static_cast<std::int64_t>(i));
            static_cast<void>(repository_->makeNode(u"Package", name, name));
        }
        load.commit();
    }
    ~StoredModel() {
        repository_->close();
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }
    StoredModel(const StoredModel&) = delete;
    StoredModel& operator=(const StoredModel&) = delete;
    [[nodiscard]] Object metaNode() const {
        return Object(repository_).call(u"MetaNodes", u"Package").toObject();
    }

  private:
    std::filesystem::path folder_ = std::filesystem::temp_directory_path() / "quorel-list-bench";
    automation::Ref<repository::Repository> repository_ = automation::make<repository::Repository>();
};

void benchStored(ui::Desktop& desktop) {
    const StoredModel model(kMany);
    const Object metaNode = model.metaNode();
    Shown shown(desktop);
    benchFirstFill("stored nodes", shown, metaNode, metaNode.get(u"Extension").toObject());
    shown.view.empty();
}

}  // namespace

int main() {
    headless::HeadlessDesktop desktop;
    const auto many = automation::make<MetaNode>(kMany);
    const auto few = automation::make<MetaNode>(kFew);
    benchFill(desktop, many, many->extension());
    benchPaint(desktop, many, few);
    benchStored(desktop);
    return 0;
}
