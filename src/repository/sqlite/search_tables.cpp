#include "repository/sqlite/search_tables.h"

namespace quorel::repository::sqlite {

namespace {

constexpr const char* kNotes = R"sql(
-- How far the search index got: all nodes and links up to these numbers are in it; 0 while there is none.
CREATE TABLE search_state (
    id    INTEGER PRIMARY KEY,
    nodes INTEGER NOT NULL,
    links INTEGER NOT NULL
);
INSERT INTO search_state VALUES (1, 0, 0);

-- Elements that were changed since they came into the index.
CREATE TABLE search_change (
    kind    INTEGER NOT NULL,
    element INTEGER NOT NULL,
    PRIMARY KEY (kind, element)
) WITHOUT ROWID;
)sql";

// The two word tables keep no texts and no places: a list of rows for each word, and for each beginning of
// one.
constexpr const char* kIndex = R"sql(
DROP TABLE IF EXISTS search_key;
DROP TABLE IF EXISTS search_name;
DROP TABLE IF EXISTS search_text;
CREATE TABLE search_key (
    kind INTEGER NOT NULL,
    key  BLOB NOT NULL,
    id   INTEGER NOT NULL,
    PRIMARY KEY (kind, key, id)
) WITHOUT ROWID;
CREATE VIRTUAL TABLE search_name USING fts5 (text, content = '', columnsize = 0, detail = none, prefix = '1 2 3',
    tokenize = 'unicode61 remove_diacritics 2');
CREATE VIRTUAL TABLE search_text USING fts5 (text, content = '', columnsize = 0, detail = none, prefix = '1 2 3',
    tokenize = 'unicode61 remove_diacritics 2');
DELETE FROM search_change;
REPLACE INTO search_state VALUES (1, 0, 0);
)sql";

}  // namespace

void createSearchNotes(Database& database) {
    database.run(kNotes);
}

void createSearchIndex(Database& database) {
    database.run(kIndex);
}

bool hasSearchIndex(Database& database) {
    return database.number(
               "SELECT count(*) FROM sqlite_schema WHERE name IN ('search_key', 'search_name', "
               "'search_text')") == 3;
}

}  // namespace quorel::repository::sqlite
