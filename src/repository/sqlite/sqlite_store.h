#pragma once

#include <memory>
#include <string>
#include <vector>

#include "repository/sqlite/database.h"
#include "repository/sqlite/search_engine.h"
#include "repository/sqlite/search_notes.h"
#include "repository/sqlite/statements.h"
#include "repository/store.h"

namespace quorel::repository::sqlite {

/// A repository in one file.
class SqliteStore final : public Store {
  public:
    /// `database` holds the tables of this program's version.
    explicit SqliteStore(std::unique_ptr<Database> database);
    /// Dynamic meta objects that were never made persistent end here.
    ~SqliteStore() override;

    void begin() override;
    void commit() override;
    void rollback() noexcept override;
    void beginSnapshot() override;
    void expectBulk() override;
    std::uint32_t foreignChanges() override { return database_->dataVersion(); }

    std::vector<RepositoryProperty> repositoryProperties() override;
    std::optional<std::u16string> repositoryProperty(std::u16string_view name) override;
    void setRepositoryProperty(std::u16string_view name, std::u16string_view value) override;

    std::optional<MetaRecord> meta(MetaId id) override;
    std::optional<MetaRecord> findMeta(Kind kind, std::u16string_view name) override;
    std::vector<MetaId> metas(const MetaScope& scope) override;
    std::int64_t countMetas(const MetaScope& scope) override;
    MetaId addMeta(const MetaRecord& record) override;
    void setDescription(MetaId id, std::u16string_view description) override;
    void setPersistent(MetaId id, bool persistent) override;
    void removeMeta(MetaId id) override;
    std::vector<PropertyRecord> metaProperties(MetaId owner, PropertyId after) override;
    PropertyId addMetaProperty(MetaId owner, const PropertyRecord& record) override;

    std::int64_t count(const ElementScope& scope) override;
    ElementId last(Kind kind) override;
    std::vector<ElementId> page(const ElementScope& scope, ElementId after, ElementId upTo,
                                std::size_t limit) override;
    std::optional<ElementId> find(const ElementScope& scope, std::u16string_view identifier) override;
    std::optional<ElementId> at(const ElementScope& scope, std::int64_t index) override;
    std::optional<ElementId> findNodeNamed(MetaId type, std::u16string_view name) override;
    bool exists(Kind kind, ElementId id) override;
    std::optional<std::u16string> name(Kind kind, ElementId id) override;
    std::optional<std::u16string> identifier(Kind kind, ElementId id) override;
    bool setName(Kind kind, ElementId id, std::u16string_view name) override;
    std::optional<ElementId> end(ElementId link, Direction direction) override;
    automation::Value value(Kind kind, ElementId id, PropertyId property, DataType type) override;
    void setValue(Kind kind, ElementId id, PropertyId property, const automation::Value& value) override;

    ElementId addNode(MetaId type, std::u16string_view name, std::u16string_view identifier) override;
    ElementId addLink(MetaId type, std::u16string_view name, std::u16string_view identifier, ElementId source,
                      ElementId target) override;
    std::int64_t countLinksAt(ElementId node) override;
    bool removeNode(ElementId node) override;
    bool removeLink(ElementId link) override;
    bool detach(ElementId link, Direction direction) override;
    bool isListed(ElementId link, Direction direction) override;

    int prepareSearch(std::chrono::milliseconds duration) override;
    std::vector<SearchHit> search(std::u16string_view text, std::size_t limit) override;

    /// Removes what an earlier session that was cut short left behind, if nobody else has the file open.
    void removeAbandoned();
    void keepReads() { database_->keepReads(); }

  private:
    [[nodiscard]] ScopeStatements& scopeStatements(const ElementScope& scope);
    /// Runs `change` of an element's name or value, and notes it for the search.
    template <class Change>
    void changeNoted(Kind kind, ElementId id, const Change& change);
    void storeValue(Kind kind, ElementId id, PropertyId property, const automation::Value& value);
    [[nodiscard]] SearchEngine& searchEngine();
    void removeTransient(MetaId id);
    [[nodiscard]] MetaRecord readMeta(const Run& run) const;

    std::unique_ptr<Database> database_;
    FileStatements file_;
    MetaStatements meta_;
    ElementStatements element_;
    SearchNotes searchNotes_;
    std::unique_ptr<SearchEngine> search_;  ///< made when somebody searches
    /// Dynamic meta objects of this session that are not persistent.
    std::vector<MetaId> transient_;
    bool bulk_ = false;
    /// For the texts of the statement that runs.
    std::string textBuffer_, identifierBuffer_;
};

/// Opens an existing repository file. Throws `Error` (see `checkFile` and `Store`) and leaves the file
/// untouched when it is no repository, newer, locked or read-only.
[[nodiscard]] std::unique_ptr<Store> openStore(const std::u16string& file);
/// Makes a new, empty repository file. Throws `Error` 58 when the file exists.
[[nodiscard]] std::unique_ptr<Store> createStore(const std::u16string& file);

}  // namespace quorel::repository::sqlite
