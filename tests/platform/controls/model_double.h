#pragma once

// A repository whose objects answer whatever a test has told them to, and count what they are asked.

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "platform/automation/calls.h"
#include "platform/automation/class_table.h"
#include "platform/automation/error.h"
#include "platform/automation/native_object.h"
#include "platform/automation/text.h"

namespace quorel::controls::testing {

using automation::Argument;
using automation::Object;
using automation::Value;

/// What one model was asked, and the call that is to fail.
struct Calls {
    std::size_t count = 0;
    std::size_t failAt = 0;  ///< the number of the call that fails, from 1; 0 for none

    void next() {
        if (++count == failAt)
            throw automation::Error(1000, u"the call was to fail", u"double");
    }
};

/// An object with the members that it was given.
class Thing final : public automation::NativeObject {
  public:
    using Member = std::function<Value(std::span<Argument>)>;

    explicit Thing(Calls& calls) : calls_(calls) {}
    Thing& with(std::u16string_view name, Value value) {
        return with(name, Member([value](std::span<Argument>) { return value; }));
    }
    Thing& with(std::u16string_view name, Member member) {
        members_[idOf(name)] = std::move(member);
        return *this;
    }
    /// Takes the member away.
    void without(std::u16string_view name) { members_.erase(idOf(name)); }

    [[nodiscard]] const automation::ClassTable& classTable() const override {
        static const automation::ClassTable table = automation::ClassTable::of<Thing>(u"Thing");
        return table;
    }
    [[nodiscard]] std::optional<automation::MemberId> resolveExtra(std::u16string_view name) override {
        const std::int32_t id = idOf(name);
        return members_.contains(id) ? std::optional(automation::MemberId{id}) : std::nullopt;
    }
    Value invokeExtra(automation::MemberId id, automation::InvokeKind,
                      std::span<Argument> arguments) override {
        calls_.next();
        const auto member = members_.find(static_cast<std::int32_t>(id));
        if (member == members_.end())
            throw automation::Error(automation::error_number::kMemberNotSupported);
        const Member asked = member->second;
        return asked(arguments);
    }

  private:
    [[nodiscard]] static std::int32_t idOf(std::u16string_view name) {
        static std::map<std::u16string, std::int32_t> ids;
        return ids.try_emplace(automation::foldCase(name), 0x10000 + static_cast<std::int32_t>(ids.size()))
            .first->second;
    }

    Calls& calls_;
    std::map<std::int32_t, Member> members_;
};

/// A collection; `whenEnumerated` runs before each batch with the number of elements given so far.
class Collection final : public automation::NativeObject {
  public:
    explicit Collection(std::vector<Value> values) : items(std::move(values)) {}
    [[nodiscard]] const automation::ClassTable& classTable() const override {
        static const automation::ClassTable table = automation::ClassTable::of<Collection>(u"Collection");
        return table;
    }
    [[nodiscard]] std::unique_ptr<automation::Enumerator> enumerate() override;

    std::vector<Value> items;
    std::function<void(std::size_t)> whenEnumerated;

  private:
    class Reader;
};

class Collection::Reader final : public automation::Enumerator {
  public:
    explicit Reader(Collection& collection) : collection_(&collection) {}
    std::size_t next(std::span<Value> values) override {
        if (collection_->whenEnumerated) {
            const auto hook = collection_->whenEnumerated;
            hook(position_);
        }
        std::size_t given = 0;
        while (given < values.size() && position_ < collection_->items.size())
            values[given++] = collection_->items[position_++];
        return given;
    }

  private:
    automation::Ref<Collection> collection_;
    std::size_t position_ = 0;
};

inline std::unique_ptr<automation::Enumerator> Collection::enumerate() {
    return std::make_unique<Reader>(*this);
}

[[nodiscard]] inline std::u16string numbered(std::u16string_view stem, std::size_t number) {
    std::u16string text(stem);
    text += automation::decimal(static_cast<std::int64_t>(number));
    return text;
}

/// A meta node "Package" with nodes "node0" … and the properties "Version" and "Size", and a meta link
/// "Needs" from each node to the next, with the property "Kind".
struct Model {
    using ThingRef = automation::Ref<Thing>;

    explicit Model(std::size_t nodeCount);

    Calls calls;
    std::vector<ThingRef> nodes;
    std::vector<ThingRef> links;
    automation::Ref<Collection> nodeExtension;
    automation::Ref<Collection> linkExtension;
    ThingRef metaNode;
    ThingRef metaLink;
    ThingRef repository;

  private:
    [[nodiscard]] ThingRef thing(std::u16string_view name) {
        ThingRef made = automation::make<Thing>(calls);
        made->with(u"name", Value(name));
        return made;
    }
    [[nodiscard]] Value collection(std::vector<Value> items) {
        return automation::make<Collection>(std::move(items));
    }
    void makeNodes(std::size_t count);
    void makeLinks();
};

inline void Model::makeNodes(std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        ThingRef node = thing(numbered(u"node", i));
        node->with(u"Identifier", Value(numbered(u"ID:", i)));
        node->with(u"Prop_", Thing::Member([i](std::span<Argument> arguments) {
                       return arguments[0].value().toString() == u"Size"
                                  ? Value(static_cast<std::int32_t>(i * 7 % 11))
                                  : Value(numbered(u"v", i));
                   }));
        nodes.push_back(std::move(node));
    }
}

inline void Model::makeLinks() {
    for (std::size_t i = 0; i + 1 < nodes.size(); ++i) {
        ThingRef link = thing(numbered(u"link", i));
        link->with(u"Identifier", Value(numbered(u"LK:", i)));
        link->with(u"source", nodes[i]).with(u"target", nodes[i + 1]);
        link->with(u"Prop_", Value(u"strong"));
        links.push_back(std::move(link));
    }
}

inline Model::Model(std::size_t nodeCount) {
    makeNodes(nodeCount);
    makeLinks();
    nodeExtension = automation::make<Collection>(std::vector<Value>(nodes.begin(), nodes.end()));
    linkExtension = automation::make<Collection>(std::vector<Value>(links.begin(), links.end()));
    metaNode = thing(u"Package");
    metaNode->with(u"Extension", nodeExtension)
        .with(u"Properties", collection({thing(u"Version"), thing(u"Size")}));
    metaLink = thing(u"Needs");
    metaLink->with(u"Extension", linkExtension).with(u"Properties", collection({thing(u"Kind")}));
    repository = automation::make<Thing>(calls);
    repository->with(u"MetaNodes", collection({metaNode, thing(u"Section"), thing(u"Person")}))
        .with(u"MetaLinks", collection({metaLink}));
    calls.count = 0;
}

}  // namespace quorel::controls::testing
