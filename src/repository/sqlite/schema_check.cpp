#include "repository/sqlite/schema_check.h"

#include <map>
#include <string_view>
#include <utility>

#include "repository/errors.h"
#include "repository/sqlite/schema.h"
#include "repository/sqlite/search_tables.h"
#include "repository/sqlite/statement.h"

namespace quorel::repository::sqlite {

namespace {

/// What is said about one table, index, view or trigger.
struct Entry {
    std::u16string type, table, text;
    friend bool operator==(const Entry&, const Entry&) = default;
};
using Entries = std::map<std::u16string, Entry>;

bool isSpace(char16_t unit) noexcept {
    return unit == u' ' || (unit >= u'\t' && unit <= u'\r');
}

bool standsAlone(char16_t unit) noexcept {
    return std::u16string_view(u"(),").find(unit) != std::u16string_view::npos;
}

/// `text` with one space for any white space, and none where a bracket or comma parts the words: a column
/// that was added to a table stands there in another layout than one that was made with it.
std::u16string inOneLayout(std::u16string_view text) {
    std::u16string result;
    for (const char16_t unit : text) {
        const bool wordEnded = result.empty() || result.back() == u' ' || standsAlone(result.back());
        if (!isSpace(unit)) {
            if (standsAlone(unit) && !result.empty() && result.back() == u' ')
                result.pop_back();
            result.push_back(unit);
        } else if (!wordEnded) {
            result.push_back(u' ');
        }
    }
    return result;
}

Entries readEntries(Database& database) {
    Entries entries;
    Statement statement(database, "SELECT name, type, tbl_name, sql FROM main.sqlite_master");
    for (Run run(statement); run.row();)
        entries.insert_or_assign(run.text(0), Entry{run.text(1), run.text(2), inOneLayout(run.text(3))});
    return entries;
}

/// What a file of that version holds. The schema itself is the list, so that there is one.
Entries ownEntries(std::int64_t version) {
    Database memory(u":memory:", Database::Mode::CreateNew);
    createSchema(memory);
    if (version < 2)
        memory.run("ALTER TABLE meta_property DROP COLUMN category");
    if (version < 3)
        memory.run("DROP TABLE search_state; DROP TABLE search_change");
    else
        createSearchIndex(memory);
    return readEntries(memory);
}

[[noreturn]] void refuse(const Database& database, const std::u16string& what) {
    throw failure(error_number::kBadFileFormat,
                  u"The repository " + inQuotes(database.file()) + u" is refused: " + what);
}

}  // namespace

void checkSchema(Database& database) {
    const std::int64_t version = database.number("PRAGMA user_version");
    static const Entries present = ownEntries(kSchemaVersion);
    const Entries older = version < kSchemaVersion ? ownEntries(version) : Entries();
    const Entries& own = version < kSchemaVersion ? older : present;
    for (const auto& [name, entry] : readEntries(database)) {
        const auto known = own.find(name);
        const std::u16string called = entry.type + u' ' + inQuotes(name);
        if (known == own.end() || known->second.type != entry.type)
            refuse(database, u"it holds the " + called + u", which no repository has");
        if (known->second != entry)
            refuse(database, u"its " + called + u" is not made as that of a repository");
    }
}

}  // namespace quorel::repository::sqlite
