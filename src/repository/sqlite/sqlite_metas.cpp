// The half of the store that holds types.

#include <algorithm>

#include "platform/automation/error.h"
#include "repository/errors.h"
#include "repository/sqlite/sqlite_store.h"
#include "repository/sqlite/utf8.h"

namespace quorel::repository::sqlite {

MetaRecord SqliteStore::readMeta(const Run& run) const {
    MetaRecord record;
    record.id = run.id<MetaId>(0);
    record.kind = run.integer(1) == 0 ? Kind::Node : Kind::Link;
    record.name = run.text(2);
    record.description = run.text(3);
    record.dynamic = run.integer(4) != 0;
    record.persistent = run.integer(5) != 0;
    record.source = run.id<MetaId>(6);
    record.target = run.id<MetaId>(7);
    return record;
}

std::optional<MetaRecord> SqliteStore::meta(MetaId id) {
    Run run(meta_.byId, id);
    return run.row() ? std::optional(readMeta(run)) : std::nullopt;
}

std::optional<MetaRecord> SqliteStore::findMeta(Kind kind, std::u16string_view name) {
    const std::string bytes = stored(name);
    Run run(meta_.byName, kind, bytes);
    return run.row() ? std::optional(readMeta(run)) : std::nullopt;
}

std::vector<MetaId> SqliteStore::metas(const MetaScope& scope) {
    const auto collect = [](Run&& run) {
        std::vector<MetaId> ids;
        while (run.row())
            ids.push_back(run.id<MetaId>(0));
        return ids;
    };
    if (!scope.direction)
        return collect(Run(meta_.all, scope.kind));
    return collect(Run(*scope.direction == Direction::Outgoing ? meta_.leaving : meta_.entering, scope.node));
}

std::int64_t SqliteStore::countMetas(const MetaScope& scope) {
    const auto number = [](Run&& run) { return run.row() ? run.integer(0) : 0; };
    if (!scope.direction)
        return number(Run(meta_.countAll, scope.kind));
    return number(
        Run(*scope.direction == Direction::Outgoing ? meta_.countLeaving : meta_.countEntering, scope.node));
}

MetaId SqliteStore::addMeta(const MetaRecord& record) {
    const std::string name = stored(record.name);
    const std::string description = stored(record.description);
    if (!Run(meta_.add, record.kind, name, description, record.dynamic, record.persistent, record.source,
             record.target)
             .finishUnlessTaken())
        throw failure(automation::error_number::kKeyAlreadyUsed,
                      (record.kind == Kind::Node ? u"There is already a meta node named "
                                                 : u"There is already a meta link named ") +
                          inQuotes(record.name));
    const auto id = static_cast<MetaId>(database_->lastInserted());
    if (!record.persistent)
        transient_.push_back(id);
    return id;
}

void SqliteStore::setDescription(MetaId id, std::u16string_view description) {
    const std::string bytes = stored(description);
    Run(meta_.setDescription, id, bytes).finish();
}

void SqliteStore::setPersistent(MetaId id, bool persistent) {
    Run(meta_.setPersistent, id, persistent).finish();
    std::erase(transient_, id);
    if (!persistent)
        transient_.push_back(id);
}

void SqliteStore::removeMeta(MetaId id) {
    Run(meta_.remove, id).finish();
    std::erase(transient_, id);
}

std::vector<PropertyRecord> SqliteStore::metaProperties(MetaId owner, PropertyId after) {
    std::vector<PropertyRecord> records;
    for (Run run(meta_.properties, owner, after); run.row();) {
        const auto type = static_cast<DataType>(std::clamp<std::int64_t>(run.integer(2), 0, kLastDataType));
        records.push_back({run.id<PropertyId>(0), run.text(1), type, run.text(3), {}, run.text(4)});
    }
    for (PropertyRecord& record : records)
        if (record.type == DataType::Enumeration)
            for (Run run(meta_.values, record.id); run.row();)
                record.values.push_back(run.text(0));
    return records;
}

PropertyId SqliteStore::addMetaProperty(MetaId owner, const PropertyRecord& record) {
    const bool ownTransaction = !database_->inTransaction();
    std::optional<Transaction> transaction;
    if (ownTransaction)
        transaction.emplace(*this);
    const std::string name = stored(record.name);
    const std::string description = stored(record.description);
    const std::string category = stored(record.category);
    Run(meta_.addProperty, owner, name, record.type, description, category).finish();
    const auto id = static_cast<PropertyId>(database_->lastInserted());
    std::int64_t position = 0;
    for (const std::u16string& value : record.values) {
        const std::string bytes = stored(value);
        Run(meta_.addValue, id, position++, bytes).finish();
    }
    if (transaction)
        transaction->commit();
    return id;
}

void SqliteStore::removeTransient(MetaId id) {
    std::erase(transient_, id);
    const std::optional<MetaRecord> record = meta(id);
    if (!record)
        return;
    if (record->kind == Kind::Node)
        for (const Direction direction : {Direction::Outgoing, Direction::Incoming})
            for (const MetaId link : metas({Kind::Link, direction, id}))
                removeTransient(link);
    const std::string number = std::to_string(static_cast<std::int64_t>(id));
    const std::string table = record->kind == Kind::Node ? "node" : "link";
    Transaction transaction(*this);
    database_->run(("DELETE FROM " + table + " WHERE type = " + number).c_str());
    removeMeta(id);
    transaction.commit();
}

void SqliteStore::removeAbandoned() {
    if (database_->number("SELECT count(*) FROM meta_object WHERE persistent = 0") == 0)
        return;
    // Only the sole user of a file gets it exclusively; otherwise they belong to a session that still runs.
    const Database::Patience impatient(*database_, 0);
    try {
        database_->run("PRAGMA locking_mode = EXCLUSIVE; BEGIN IMMEDIATE");
        std::vector<MetaId> abandoned;
        {
            Statement statement(*database_, "SELECT id FROM meta_object WHERE persistent = 0");
            for (Run run(statement); run.row();)
                abandoned.push_back(run.id<MetaId>(0));
        }
        database_->run("COMMIT");
        for (const MetaId id : abandoned)
            removeTransient(id);
    } catch (const automation::Error& error) {
        rollback();
        if (error.number() != error_number::kPermissionDenied)
            throw;
    }
    // The lock itself is given back by the next read.
    database_->run("PRAGMA locking_mode = NORMAL; SELECT count(*) FROM repository_property");
}

}  // namespace quorel::repository::sqlite
