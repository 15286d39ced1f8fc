#include "repository/sqlite/schema.h"

#include <string>

#include "repository/sqlite/search_tables.h"

namespace quorel::repository::sqlite {

namespace {

// Row numbers are never given twice (AUTOINCREMENT), so that a handle of a removed row can not come to mean
// another.
constexpr const char* kTables = R"sql(
CREATE TABLE repository_property (
    name  TEXT PRIMARY KEY,
    value TEXT NOT NULL
) WITHOUT ROWID;

-- kind: 0 meta node, 1 meta link; the ends are those of a meta link.
CREATE TABLE meta_object (
    id          INTEGER PRIMARY KEY AUTOINCREMENT,
    kind        INTEGER NOT NULL,
    name        TEXT NOT NULL,
    description TEXT NOT NULL,
    dynamic     INTEGER NOT NULL,
    persistent  INTEGER NOT NULL,
    source      INTEGER REFERENCES meta_object (id),
    target      INTEGER REFERENCES meta_object (id),
    UNIQUE (kind, name)
);
CREATE INDEX meta_object_by_source ON meta_object (source) WHERE source IS NOT NULL;
CREATE INDEX meta_object_by_target ON meta_object (target) WHERE target IS NOT NULL;

CREATE TABLE meta_property (
    id          INTEGER PRIMARY KEY AUTOINCREMENT,
    owner       INTEGER NOT NULL REFERENCES meta_object (id) ON DELETE CASCADE,
    name        TEXT NOT NULL,
    datatype    INTEGER NOT NULL,
    description TEXT NOT NULL,
    category    TEXT NOT NULL DEFAULT ''
);
CREATE INDEX meta_property_by_owner ON meta_property (owner);

CREATE TABLE enumeration_value (
    property INTEGER NOT NULL REFERENCES meta_property (id) ON DELETE CASCADE,
    position INTEGER NOT NULL,
    value    TEXT NOT NULL,
    PRIMARY KEY (property, position)
) WITHOUT ROWID;

CREATE TABLE node (
    id         INTEGER PRIMARY KEY AUTOINCREMENT,
    type       INTEGER NOT NULL REFERENCES meta_object (id),
    name       TEXT NOT NULL,
    identifier TEXT NOT NULL UNIQUE
);

-- detached: bit 1 out of its source's outgoing links, bit 2 out of its target's incoming links.
CREATE TABLE link (
    id         INTEGER PRIMARY KEY AUTOINCREMENT,
    type       INTEGER NOT NULL REFERENCES meta_object (id),
    source     INTEGER NOT NULL REFERENCES node (id),
    target     INTEGER NOT NULL REFERENCES node (id),
    detached   INTEGER NOT NULL DEFAULT 0,
    name       TEXT NOT NULL,
    identifier TEXT NOT NULL UNIQUE
);

-- A property's definition outlives its values by rule, not by reference: the check would read this whole table
-- whenever a definition goes.
CREATE TABLE node_property (
    node     INTEGER NOT NULL REFERENCES node (id) ON DELETE CASCADE,
    property INTEGER NOT NULL,
    value    NOT NULL,
    PRIMARY KEY (node, property)
) WITHOUT ROWID;

CREATE TABLE link_property (
    link     INTEGER NOT NULL REFERENCES link (id) ON DELETE CASCADE,
    property INTEGER NOT NULL,
    value    NOT NULL,
    PRIMARY KEY (link, property)
) WITHOUT ROWID;
)sql";

constexpr const char* kReadIndexes = R"sql(
CREATE INDEX IF NOT EXISTS node_by_type ON node (type);
CREATE INDEX IF NOT EXISTS node_by_name ON node (type, name);
CREATE INDEX IF NOT EXISTS link_by_type ON link (type);
CREATE INDEX IF NOT EXISTS link_by_source ON link (source, type, id, detached);
CREATE INDEX IF NOT EXISTS link_by_target ON link (target, type, id, detached);
)sql";

constexpr const char* kDropReadIndexes = R"sql(
DROP INDEX IF EXISTS node_by_type;
DROP INDEX IF EXISTS node_by_name;
DROP INDEX IF EXISTS link_by_type;
DROP INDEX IF EXISTS link_by_source;
DROP INDEX IF EXISTS link_by_target;
)sql";

}  // namespace

void createSchema(Database& database) {
    database.run("BEGIN IMMEDIATE");
    database.run(kTables);
    createSearchNotes(database);
    createReadIndexes(database);
    database.run(("PRAGMA application_id = " + std::to_string(kApplicationId)).c_str());
    database.run(("PRAGMA user_version = " + std::to_string(kSchemaVersion)).c_str());
    database.run("COMMIT");
}

void upgradeSchema(Database& database) {
    if (database.number("PRAGMA user_version") == kSchemaVersion)
        return;
    database.run("BEGIN IMMEDIATE");
    // Another program may have been here between the question and the lock.
    const std::int64_t version = database.number("PRAGMA user_version");
    if (version < 2)
        database.run("ALTER TABLE meta_property ADD COLUMN category TEXT NOT NULL DEFAULT ''");
    if (version < 3)
        createSearchNotes(database);
    database.run(("PRAGMA user_version = " + std::to_string(kSchemaVersion)).c_str());
    database.run("COMMIT");
}

void createReadIndexes(Database& database) {
    database.run(kReadIndexes);
}

void dropReadIndexes(Database& database) {
    database.run(kDropReadIndexes);
}

}  // namespace quorel::repository::sqlite
