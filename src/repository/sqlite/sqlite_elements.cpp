// The half of the store that holds nodes and links.

#include "platform/automation/error.h"
#include "repository/errors.h"
#include "repository/sqlite/search_values.h"
#include "repository/sqlite/sqlite_store.h"
#include "repository/sqlite/utf8.h"

namespace quorel::repository::sqlite {

using automation::Bytes;
using automation::Date;
using automation::Value;
using automation::ValueKind;

namespace {

std::size_t indexOf(Kind kind) noexcept {
    return static_cast<std::size_t>(kind);
}

int detachedBit(Direction direction) noexcept {
    return direction == Direction::Outgoing ? 1 : 2;
}

std::optional<ElementId> firstId(Run&& run) {
    // An aggregate over nothing gives a row that holds NULL.
    if (!run.row() || run.type(0) == SQLITE_NULL)
        return std::nullopt;
    return run.id<ElementId>(0);
}

[[noreturn]] void refuseTaken(std::u16string_view what, std::u16string_view identifier) {
    throw failure(
        automation::error_number::kKeyAlreadyUsed,
        u"There is already a " + std::u16string(what) + u" with the identifier " + inQuotes(identifier));
}

}  // namespace

ScopeStatements& SqliteStore::scopeStatements(const ElementScope& scope) {
    if (!scope.direction)
        return element_.scopes.at(indexOf(scope.kind));
    return element_.scopes.at(*scope.direction == Direction::Outgoing ? 2 : 3);
}

std::int64_t SqliteStore::count(const ElementScope& scope) {
    Run run(scopeStatements(scope).count, scope.type, scope.node);
    return run.row() ? run.integer(0) : 0;
}

ElementId SqliteStore::last(Kind kind) {
    return firstId(Run(element_.last.at(indexOf(kind)))).value_or(ElementId{});
}

std::vector<ElementId> SqliteStore::page(const ElementScope& scope, ElementId after, ElementId upTo,
                                         std::size_t limit) {
    std::vector<ElementId> ids;
    for (Run run(scopeStatements(scope).page, scope.type, scope.node, after, upTo, limit); run.row();)
        ids.push_back(run.id<ElementId>(0));
    return ids;
}

std::optional<ElementId> SqliteStore::find(const ElementScope& scope, std::u16string_view identifier) {
    const std::string& bytes = storedIn(identifierBuffer_, identifier);
    return firstId(Run(scopeStatements(scope).find, scope.type, scope.node, bytes));
}

std::optional<ElementId> SqliteStore::at(const ElementScope& scope, std::int64_t index) {
    return firstId(Run(scopeStatements(scope).at, scope.type, scope.node, index));
}

std::optional<ElementId> SqliteStore::findNodeNamed(MetaId type, std::u16string_view name) {
    const std::string& bytes = storedIn(textBuffer_, name);
    return firstId(Run(element_.nodeNamed, type, bytes));
}

bool SqliteStore::exists(Kind kind, ElementId id) {
    return Run(element_.exists.at(indexOf(kind)), id).row();
}

std::optional<std::u16string> SqliteStore::name(Kind kind, ElementId id) {
    Run run(element_.name.at(indexOf(kind)), id);
    return run.row() ? std::optional(run.text(0)) : std::nullopt;
}

std::optional<std::u16string> SqliteStore::identifier(Kind kind, ElementId id) {
    Run run(element_.identifier.at(indexOf(kind)), id);
    return run.row() ? std::optional(run.text(0)) : std::nullopt;
}

template <class Change>
void SqliteStore::changeNoted(Kind kind, ElementId id, const Change& change) {
    std::optional<Transaction> transaction;
    if (!database_->inTransaction())
        transaction.emplace(*this);
    change();
    searchNotes_.changed(kind, id);
    if (transaction)
        transaction->commit();
}

bool SqliteStore::setName(Kind kind, ElementId id, std::u16string_view name) {
    const std::string& bytes = storedIn(textBuffer_, name);
    bool isThere = false;
    changeNoted(kind, id, [&] {
        Run(element_.setName.at(indexOf(kind)), id, bytes).finish();
        isThere = database_->changed() != 0;
    });
    return isThere;
}

std::optional<ElementId> SqliteStore::end(ElementId link, Direction direction) {
    return firstId(Run(element_.end.at(direction == Direction::Outgoing ? 0 : 1), link));
}

Value SqliteStore::value(Kind kind, ElementId id, PropertyId property, DataType type) {
    Run run(element_.value.at(indexOf(kind)), id, property);
    if (!run.row())
        return {};
    return valueIn(run, 0, type);
}

void SqliteStore::storeValue(Kind kind, ElementId id, PropertyId property, const Value& value) {
    const std::size_t index = indexOf(kind);
    Statement& statement = element_.setValue.at(index);
    switch (value.kind()) {
        case ValueKind::String: {
            const std::string& bytes = storedIn(textBuffer_, *value.text());
            return Run(statement, id, property, bytes).finish();
        }
        case ValueKind::Integer:
            return Run(statement, id, property, *value.getIf<std::int32_t>()).finish();
        case ValueKind::Double:
            return Run(statement, id, property, *value.getIf<double>()).finish();
        case ValueKind::Boolean:
            return Run(statement, id, property, *value.getIf<bool>()).finish();
        case ValueKind::Date:
            return Run(statement, id, property, value.getIf<Date>()->serial).finish();
        case ValueKind::Bytes:
            return Run(statement, id, property, value.getIf<Bytes>()->data).finish();
        default:
            Run(element_.unsetValue.at(index), id, property).finish();
    }
}

void SqliteStore::setValue(Kind kind, ElementId id, PropertyId property, const Value& value) {
    changeNoted(kind, id, [&] { storeValue(kind, id, property, value); });
}

ElementId SqliteStore::addNode(MetaId type, std::u16string_view name, std::u16string_view identifier) {
    const std::string& nameBytes = storedIn(textBuffer_, name);
    const std::string& identifierBytes = storedIn(identifierBuffer_, identifier);
    if (!Run(element_.addNode, type, nameBytes, identifierBytes).finishUnlessTaken())
        refuseTaken(u"node", identifier);
    return static_cast<ElementId>(database_->lastInserted());
}

ElementId SqliteStore::addLink(MetaId type, std::u16string_view name, std::u16string_view identifier,
                               ElementId source, ElementId target) {
    const std::string& nameBytes = storedIn(textBuffer_, name);
    const std::string& identifierBytes = storedIn(identifierBuffer_, identifier);
    if (!Run(element_.addLink, type, source, target, nameBytes, identifierBytes).finishUnlessTaken())
        refuseTaken(u"link", identifier);
    return static_cast<ElementId>(database_->lastInserted());
}

std::int64_t SqliteStore::countLinksAt(ElementId node) {
    Run run(element_.linksAt, node);
    return run.row() ? run.integer(0) : 0;
}

bool SqliteStore::removeNode(ElementId node) {
    const bool ownTransaction = !database_->inTransaction();
    std::optional<Transaction> transaction;
    if (ownTransaction)
        transaction.emplace(*this);
    Run(element_.removeLinksAt, node).finish();
    Run(element_.remove[0], node).finish();
    const bool removed = database_->changed() != 0;
    if (transaction)
        transaction->commit();
    return removed;
}

bool SqliteStore::removeLink(ElementId link) {
    Run(element_.remove[1], link).finish();
    return database_->changed() != 0;
}

bool SqliteStore::detach(ElementId link, Direction direction) {
    Run(element_.detach, link, detachedBit(direction)).finish();
    return database_->changed() != 0;
}

bool SqliteStore::isListed(ElementId link, Direction direction) {
    return Run(element_.isListed, link, detachedBit(direction)).row();
}

}  // namespace quorel::repository::sqlite
