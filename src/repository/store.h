#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/automation/value.h"
#include "repository/model.h"
#include "repository/search_hit.h"

namespace quorel::repository {

/// What the objects of a repository need of a storage engine, and nothing else. A change is committed when
/// the member returns, or, between `begin` and `commit`, by `commit`. Strings are any UTF-16. Every member
/// may throw `Error`: 70 locked by another program, 75 not accessible, 61 disk full, 57 input/output, 321
/// damaged. One thread.
class Store {
  public:
    Store() = default;
    Store(const Store&) = delete;
    Store& operator=(const Store&) = delete;
    virtual ~Store() = default;

    virtual void begin() = 0;
    virtual void commit() = 0;
    virtual void rollback() noexcept = 0;
    /// From here until `rollback` every read sees the repository as it is now, whatever other programs
    /// change.
    virtual void beginSnapshot() = 0;
    /// Prepares for a load of many rows within the transaction that is open: whatever slows a load down and
    /// can be made again at its end is put off until `commit`.
    virtual void expectBulk() = 0;

    /// A number that is another one once a read has met changes of another program, so that what was learned
    /// before may be kept while it stays the same.
    [[nodiscard]] virtual std::uint32_t foreignChanges() = 0;

    [[nodiscard]] virtual std::vector<RepositoryProperty> repositoryProperties() = 0;
    [[nodiscard]] virtual std::optional<std::u16string> repositoryProperty(std::u16string_view name) = 0;
    virtual void setRepositoryProperty(std::u16string_view name, std::u16string_view value) = 0;

    [[nodiscard]] virtual std::optional<MetaRecord> meta(MetaId id) = 0;
    [[nodiscard]] virtual std::optional<MetaRecord> findMeta(Kind kind, std::u16string_view name) = 0;
    /// In the order in which they were made.
    [[nodiscard]] virtual std::vector<MetaId> metas(const MetaScope& scope) = 0;
    [[nodiscard]] virtual std::int64_t countMetas(const MetaScope& scope) = 0;
    /// `record.id` is ignored. Error 457 when the kind has a meta object of that name.
    virtual MetaId addMeta(const MetaRecord& record) = 0;
    virtual void setDescription(MetaId id, std::u16string_view description) = 0;
    virtual void setPersistent(MetaId id, bool persistent) = 0;
    /// Removes the meta object with its properties; the caller has seen that it has no instances and no meta
    /// links.
    virtual void removeMeta(MetaId id) = 0;
    /// In the order in which they were added, from behind `after` on (all of them behind none).
    [[nodiscard]] virtual std::vector<PropertyRecord> metaProperties(MetaId owner, PropertyId after) = 0;
    /// `record.id` is ignored.
    virtual PropertyId addMetaProperty(MetaId owner, const PropertyRecord& record) = 0;

    [[nodiscard]] virtual std::int64_t count(const ElementScope& scope) = 0;
    /// The greatest number that an element of this kind has; 0 when there is none.
    [[nodiscard]] virtual ElementId last(Kind kind) = 0;
    /// Ascending ids above `after`, up to `upTo`, at most `limit`.
    [[nodiscard]] virtual std::vector<ElementId> page(const ElementScope& scope, ElementId after,
                                                      ElementId upTo, std::size_t limit) = 0;
    [[nodiscard]] virtual std::optional<ElementId> find(const ElementScope& scope,
                                                        std::u16string_view identifier) = 0;
    /// `index` counts from 0.
    [[nodiscard]] virtual std::optional<ElementId> at(const ElementScope& scope, std::int64_t index) = 0;
    /// The first of a type's nodes with exactly this name.
    [[nodiscard]] virtual std::optional<ElementId> findNodeNamed(MetaId type, std::u16string_view name) = 0;
    [[nodiscard]] virtual bool exists(Kind kind, ElementId id) = 0;
    [[nodiscard]] virtual std::optional<std::u16string> name(Kind kind, ElementId id) = 0;
    [[nodiscard]] virtual std::optional<std::u16string> identifier(Kind kind, ElementId id) = 0;
    /// False when there is no such element.
    virtual bool setName(Kind kind, ElementId id, std::u16string_view name) = 0;
    /// The link's source (outgoing) or target (incoming) node.
    [[nodiscard]] virtual std::optional<ElementId> end(ElementId link, Direction direction) = 0;
    /// Empty when the property is unset.
    [[nodiscard]] virtual automation::Value value(Kind kind, ElementId id, PropertyId property,
                                                  DataType type) = 0;
    /// `value` is of the property's type, or empty to unset it. The element exists.
    virtual void setValue(Kind kind, ElementId id, PropertyId property, const automation::Value& value) = 0;

    /// Error 457 when the identifier is taken by another node (or another link).
    virtual ElementId addNode(MetaId type, std::u16string_view name, std::u16string_view identifier) = 0;
    virtual ElementId addLink(MetaId type, std::u16string_view name, std::u16string_view identifier,
                              ElementId source, ElementId target) = 0;
    /// The links that are listed in the node's own link collections.
    [[nodiscard]] virtual std::int64_t countLinksAt(ElementId node) = 0;
    /// Removes the node and the links that still name it as an end. False when there is no such node.
    virtual bool removeNode(ElementId node) = 0;
    virtual bool removeLink(ElementId link) = 0;
    /// Takes the link out of its source's outgoing or its target's incoming collection; it stays in the
    /// extension, with both its ends. False when it is not listed there.
    virtual bool detach(ElementId link, Direction direction) = 0;
    [[nodiscard]] virtual bool isListed(ElementId link, Direction direction) = 0;

    /// Works for about that long at what `search` looks in, waiting no longer for another program that
    /// writes. How far it is: 100 when nothing is missing.
    virtual int prepareSearch(std::chrono::milliseconds duration) = 0;
    /// What has all words of `text`, in any order, by their beginnings: types, then elements by name (exactly
    /// so, beginning so, others), then by their values; nodes before links. At most `limit`, at least 1.
    [[nodiscard]] virtual std::vector<SearchHit> search(std::u16string_view text, std::size_t limit) = 0;
};

/// A transaction of a store, rolled back unless committed.
class Transaction {
  public:
    explicit Transaction(Store& store) : store_(&store) { store.begin(); }
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    ~Transaction() {
        if (store_ != nullptr)
            store_->rollback();
    }
    void commit() {
        store_->commit();
        store_ = nullptr;
    }

  private:
    Store* store_;
};

/// One consistent view of a store for a long reading.
class Snapshot {
  public:
    explicit Snapshot(Store& store) : store_(store) { store.beginSnapshot(); }
    Snapshot(const Snapshot&) = delete;
    Snapshot& operator=(const Snapshot&) = delete;
    ~Snapshot() { store_.rollback(); }

  private:
    Store& store_;
};

}  // namespace quorel::repository
