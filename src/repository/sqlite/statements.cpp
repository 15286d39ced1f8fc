#include "repository/sqlite/statements.h"

namespace quorel::repository::sqlite {

namespace {

/// `sql` with "@" replaced: once by "node", once by "link".
PerKind perKind(Database& database, const std::string& sql) {
    const auto filled = [&sql](const char* table) {
        std::string text;
        for (const char letter : sql)
            letter == '@' ? text.append(table) : text.append(1, letter);
        return text;
    };
    return {Statement(database, filled("node")), Statement(database, filled("link"))};
}

}  // namespace

ScopeStatements::ScopeStatements(Database& database, const std::string& condition, const std::string& index,
                                 const std::string& table)
    : count(database, "SELECT count(*) FROM " + table + " INDEXED BY " + index + " WHERE " + condition),
      page(database, "SELECT id FROM " + table + " INDEXED BY " + index + " WHERE " + condition +
                         " AND id > ?3 AND id <= ?4 ORDER BY id LIMIT ?5"),
      find(database, "SELECT id FROM " + table + " WHERE identifier = ?3 AND " + condition),
      at(database, "SELECT id FROM " + table + " INDEXED BY " + index + " WHERE " + condition +
                       " ORDER BY id LIMIT 1 OFFSET ?3") {}

// Parameter 2 of a type's extension is unused; naming it keeps the numbers of all four shapes the same.
ElementStatements::ElementStatements(Database& database)
    : last(perKind(database, "SELECT max(id) FROM @")),
      scopes{ScopeStatements(database, "type = ?1 AND ?2 IS NOT NULL", "node_by_type", "node"),
             ScopeStatements(database, "type = ?1 AND ?2 IS NOT NULL", "link_by_type", "link"),
             ScopeStatements(database, "type = ?1 AND source = ?2 AND detached & 1 = 0", "link_by_source",
                             "link"),
             ScopeStatements(database, "type = ?1 AND target = ?2 AND detached & 2 = 0", "link_by_target",
                             "link")},
      nodeNamed(database, "SELECT min(id) FROM node INDEXED BY node_by_name WHERE type = ?1 AND name = ?2"),
      exists(perKind(database, "SELECT 1 FROM @ WHERE id = ?1")),
      name(perKind(database, "SELECT name FROM @ WHERE id = ?1")),
      identifier(perKind(database, "SELECT identifier FROM @ WHERE id = ?1")),
      setName(perKind(database, "UPDATE @ SET name = ?2 WHERE id = ?1")),
      end{Statement(database, "SELECT source FROM link WHERE id = ?1"),
          Statement(database, "SELECT target FROM link WHERE id = ?1")},
      value(perKind(database, "SELECT value FROM @_property WHERE @ = ?1 AND property = ?2")),
      setValue(perKind(database, "REPLACE INTO @_property (@, property, value) VALUES (?1, ?2, ?3)")),
      unsetValue(perKind(database, "DELETE FROM @_property WHERE @ = ?1 AND property = ?2")),
      addNode(database, "INSERT INTO node (type, name, identifier) VALUES (?1, ?2, ?3)"),
      addLink(database,
              "INSERT INTO link (type, source, target, name, identifier) VALUES (?1, ?2, ?3, ?4, ?5)"),
      linksAt(database,
              "SELECT (SELECT count(*) FROM link WHERE source = ?1 AND detached & 1 = 0) + "
              "(SELECT count(*) FROM link WHERE target = ?1 AND detached & 2 = 0)"),
      removeLinksAt(database, "DELETE FROM link WHERE source = ?1 OR target = ?1"),
      remove(perKind(database, "DELETE FROM @ WHERE id = ?1")),
      detach(database, "UPDATE link SET detached = detached | ?2 WHERE id = ?1 AND detached & ?2 = 0"),
      isListed(database, "SELECT 1 FROM link WHERE id = ?1 AND detached & ?2 = 0") {}

MetaStatements::MetaStatements(Database& database)
    : byId(database,
           "SELECT id, kind, name, description, dynamic, persistent, source, target FROM meta_object WHERE "
           "id = ?1"),
      byName(database,
             "SELECT id, kind, name, description, dynamic, persistent, source, target FROM meta_object "
             "WHERE kind = ?1 AND name = ?2"),
      all(database, "SELECT id FROM meta_object WHERE kind = ?1 ORDER BY id"),
      leaving(database, "SELECT id FROM meta_object WHERE source = ?1 ORDER BY id"),
      entering(database, "SELECT id FROM meta_object WHERE target = ?1 ORDER BY id"),
      countAll(database, "SELECT count(*) FROM meta_object WHERE kind = ?1"),
      countLeaving(database, "SELECT count(*) FROM meta_object WHERE source = ?1"),
      countEntering(database, "SELECT count(*) FROM meta_object WHERE target = ?1"),
      add(database,
          "INSERT INTO meta_object (kind, name, description, dynamic, persistent, source, target) "
          "VALUES (?1, ?2, ?3, ?4, ?5, nullif(?6, 0), nullif(?7, 0))"),
      setDescription(database, "UPDATE meta_object SET description = ?2 WHERE id = ?1"),
      setPersistent(database, "UPDATE meta_object SET persistent = ?2 WHERE id = ?1"),
      remove(database, "DELETE FROM meta_object WHERE id = ?1"),
      properties(
          database,
          "SELECT id, name, datatype, description, category FROM meta_property WHERE owner = ?1 AND id > ?2 "
          "ORDER BY id"),
      values(database, "SELECT value FROM enumeration_value WHERE property = ?1 ORDER BY position"),
      addProperty(database,
                  "INSERT INTO meta_property (owner, name, datatype, description, category) VALUES (?1, ?2, "
                  "?3, ?4, ?5)"),
      addValue(database, "INSERT INTO enumeration_value (property, position, value) VALUES (?1, ?2, ?3)") {}

FileStatements::FileStatements(Database& database)
    : begin(database, "BEGIN IMMEDIATE"),
      beginReading(database, "BEGIN"),
      commit(database, "COMMIT"),
      rollback(database, "ROLLBACK"),
      properties(database, "SELECT name, value FROM repository_property ORDER BY name"),
      property(database, "SELECT value FROM repository_property WHERE name = ?1"),
      setProperty(database, "REPLACE INTO repository_property (name, value) VALUES (?1, ?2)") {}

}  // namespace quorel::repository::sqlite
