// The repository's members against the raw statements they stand on.

#include <sqlite3.h>

#include <cstdio>
#include <filesystem>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "platform/automation/calls.h"
#include "platform/automation/text.h"
#include "ratio.h"
#include "repository/import/new_file.h"
#include "repository/repository.h"
#include "repository/sqlite/database.h"
#include "repository/sqlite/file_check.h"
#include "repository/sqlite/schema.h"
#include "repository/sqlite/statement.h"

namespace quorel::repository {
namespace {

using automation::Member;
using automation::Object;
using automation::Value;
using sqlite::Database;

constexpr int kNodes = 100'000;
constexpr int kLinksPerNode = 3;
constexpr int kReads = 20'000;

/// The numbers that a raw program would know as we do.
struct Ids {
    MetaId item{}, to{};
    PropertyId text{}, number{};
};

Ids addTypes(Store& store) {
    Ids ids;
    MetaRecord item;
    item.name = u"Item";
    ids.item = store.addMeta(item);
    ids.text = store.addMetaProperty(ids.item, {{}, u"Note", DataType::String, u"", {}});
    ids.number = store.addMetaProperty(ids.item, {{}, u"Size", DataType::Integer, u"", {}});
    MetaRecord to;
    to.kind = Kind::Link;
    to.name = u"Item.To.Item";
    to.source = to.target = ids.item;
    ids.to = store.addMeta(to);
    return ids;
}

std::u16string numbered(std::u16string_view prefix, int number) {
    std::u16string text(prefix);
    return text.append(automation::decimal(number));
}

int targetOf(int node, int link) {
    return static_cast<int>((static_cast<std::int64_t>(node) * 7919 + link * 104'729) % kNodes) + 1;
}

void loadByStore(const std::u16string& file) {
    makeRepositoryFile(file, true, [](Store& store) {
        const Ids ids = addTypes(store);
        for (int i = 1; i <= kNodes; ++i) {
            const ElementId node =
                store.addNode(ids.item, numbered(u"Item number ", i), numbered(u"item:", i));
            store.setValue(Kind::Node, node, ids.text, numbered(u"A note on the item number ", i));
            store.setValue(Kind::Node, node, ids.number, i);
        }
        for (int i = 0; i < kNodes * kLinksPerNode; ++i)
            store.addLink(ids.to, u"", numbered(u"link:", i), static_cast<ElementId>(i / kLinksPerNode + 1),
                          static_cast<ElementId>(targetOf(i / kLinksPerNode, i % kLinksPerNode)));
    });
}

/// What a program would do that knows nothing but SQLite: the same tables, one transaction, prepared
/// statements, indexes made at the end.
void loadRaw(const std::string& file) {
    std::filesystem::remove(file);
    Database database(automation::fromUtf8(file), Database::Mode::CreateNew);
    database.run("PRAGMA synchronous = NORMAL; PRAGMA cache_size = -16384");
    sqlite::createSchema(database);
    database.run("PRAGMA journal_mode = WAL; BEGIN");
    sqlite::dropReadIndexes(database);
    database.run(
        "INSERT INTO meta_object VALUES (1, 0, 'Item', '', 0, 1, NULL, NULL), (2, 1, 'Item.To.Item', '', 0, "
        "1, 1, 1)");
    sqlite::Statement addNode(database, "INSERT INTO node (type, name, identifier) VALUES (1, ?1, ?2)");
    sqlite::Statement addValue(database, "INSERT INTO node_property VALUES (?1, ?2, ?3)");
    sqlite::Statement addLink(
        database, "INSERT INTO link (type, source, target, name, identifier) VALUES (2, ?1, ?2, '', ?3)");
    for (int i = 1; i <= kNodes; ++i) {
        const std::string number = std::to_string(i);
        sqlite::Run(addNode, "Item number " + number, "item:" + number).finish();
        sqlite::Run(addValue, i, 1, "A note on the item number " + number).finish();
        sqlite::Run(addValue, i, 2, i).finish();
    }
    for (int i = 0; i < kNodes * kLinksPerNode; ++i)
        sqlite::Run(addLink, i / kLinksPerNode + 1, targetOf(i / kLinksPerNode, i % kLinksPerNode),
                    "link:" + std::to_string(i))
            .finish();
    sqlite::createReadIndexes(database);
    database.run("COMMIT");
}

/// A statement as SQLite gives it, without any layer of ours.
class RawStatement {
  public:
    RawStatement(sqlite3* database, const char* sql) {
        sqlite3_prepare_v2(database, sql, -1, &handle_, nullptr);
    }
    RawStatement(const RawStatement&) = delete;
    RawStatement& operator=(const RawStatement&) = delete;
    ~RawStatement() { sqlite3_finalize(handle_); }
    [[nodiscard]] sqlite3_stmt* get() const noexcept { return handle_; }

  private:
    sqlite3_stmt* handle_ = nullptr;
};

/// One connection of its own for the peer, so that neither side pays for the other.
struct RawConnection {
    explicit RawConnection(const std::string& file) {
        sqlite3_open_v2(file.c_str(), &handle, SQLITE_OPEN_READWRITE, nullptr);
        sqlite3_exec(handle, "PRAGMA cache_size = -16384", nullptr, nullptr, nullptr);
    }
    RawConnection(const RawConnection&) = delete;
    RawConnection& operator=(const RawConnection&) = delete;
    ~RawConnection() { sqlite3_close_v2(handle); }
    sqlite3* handle = nullptr;
};

std::size_t sum = 0;  // what was read is used, so that the reading is not left out

void compareProperties(const std::vector<Object>& nodes, const std::vector<int>& rows, sqlite3* raw) {
    const RawStatement statement(raw, "SELECT value FROM node_property WHERE node = ?1 AND property = ?2");
    const auto readRaw = [&] {
        for (const int row : rows) {
            sqlite3_bind_int64(statement.get(), 1, row);
            sqlite3_bind_int64(statement.get(), 2, 1);
            sqlite3_step(statement.get());
            const std::string text(reinterpret_cast<const char*>(sqlite3_column_text(statement.get(), 0)),
                                   static_cast<std::size_t>(sqlite3_column_bytes(statement.get(), 0)));
            sum += text.size();
            sqlite3_reset(statement.get());
        }
    };
    const Member note(u"Note");
    bench::compare(
        "property member / prepared statement", kReads, 1.5,
        [&] {
            for (const Object& node : nodes)
                sum += node.get(note).text()->size();
        },
        readRaw);
    const Member getProperty(u"GetProperty");
    bench::compare(
        "GetProperty(name) / prepared statement", kReads, 1.5,
        [&] {
            for (const Object& node : nodes)
                sum += node.call(getProperty, u"Note").text()->size();
        },
        readRaw);
}

void compareEnds(const std::vector<Object>& links, const std::vector<int>& rows, sqlite3* raw) {
    const RawStatement statement(raw, "SELECT target FROM link WHERE id = ?1");
    const Member target(u"target");
    bench::compare(
        "link.target / prepared statement", kReads, 1.5,
        [&] {
            for (const Object& link : links)
                sum += link.get(target).getIf<Object>()->native() != nullptr ? 1 : 0;
        },
        [&] {
            for (const int row : rows) {
                sqlite3_bind_int64(statement.get(), 1, row);
                sqlite3_step(statement.get());
                sum += static_cast<std::size_t>(sqlite3_column_int64(statement.get(), 0));
                sqlite3_reset(statement.get());
            }
        });
}

void compareLinkLists(const std::vector<Object>& nodes, const std::vector<int>& rows, sqlite3* raw) {
    const RawStatement count(raw,
                             "SELECT count(*) FROM link WHERE source = ?1 AND type = 2 AND detached & 1 = 0");
    const Member outgoing(u"Outgoing_");
    const RawStatement type(raw, "SELECT id FROM meta_object WHERE kind = 1 AND name = ?1");
    const std::string name = "Item.To.Item";
    bench::compare(
        "Outgoing_(name).Count / the same two prepared statements", kReads, 1.5,
        [&] {
            for (const Object& node : nodes)
                sum += static_cast<std::size_t>(*node.get(outgoing, u"Item.To.Item")
                                                     .getIf<Object>()
                                                     ->get(u"Count")
                                                     .getIf<std::int32_t>());
        },
        [&] {
            for (const int row : rows) {
                sqlite3_bind_text(type.get(), 1, name.data(), static_cast<int>(name.size()), SQLITE_STATIC);
                sqlite3_step(type.get());
                sum += static_cast<std::size_t>(sqlite3_column_int64(type.get(), 0));
                sqlite3_reset(type.get());
                sqlite3_bind_int64(count.get(), 1, row);
                sqlite3_step(count.get());
                sum += static_cast<std::size_t>(sqlite3_column_int64(count.get(), 0));
                sqlite3_reset(count.get());
            }
        });
}

void compareReads(const std::u16string& file) {
    const auto repository = automation::make<Repository>();
    repository->open(file);
    const RawConnection raw(automation::toUtf8(file));
    std::mt19937 random(1);
    std::vector<int> nodeRows, linkRows;
    std::vector<Object> nodes, links;
    const Object items = repository->metaNodes().item(u"Item").toObject().get(u"Extension").toObject();
    const Object all = repository->metaLinks().item(u"Item.To.Item").toObject().get(u"Extension").toObject();
    for (int i = 0; i < kReads; ++i) {
        nodeRows.push_back(static_cast<int>(random() % kNodes) + 1);
        nodes.push_back(items.item(numbered(u"item:", nodeRows.back())).toObject());
        linkRows.push_back(static_cast<int>(random() % (kNodes * kLinksPerNode)) + 1);
        links.push_back(all.item(numbered(u"link:", linkRows.back() - 1)).toObject());
    }
    compareProperties(nodes, nodeRows, raw.handle);
    compareEnds(links, linkRows, raw.handle);
    compareLinkLists(nodes, nodeRows, raw.handle);
}

void compareOpening(const std::u16string& file) {
    const std::string utf8 = automation::toUtf8(file);
    constexpr int kOpenings = 200;
    bench::compare(
        "Open and MetaNodes.Count / sqlite3_open and first statement", kOpenings, 2.0,
        [&] {
            for (int i = 0; i < kOpenings; ++i) {
                const auto repository = automation::make<Repository>();
                repository->open(file);
                sum += static_cast<std::size_t>(repository->metaNodes().get(u"Count").toInteger());
            }
        },
        [&] {
            for (int i = 0; i < kOpenings; ++i) {
                const RawConnection raw(utf8);
                const RawStatement statement(raw.handle, "SELECT count(*) FROM meta_object WHERE kind = 0");
                sqlite3_step(statement.get());
                sum += static_cast<std::size_t>(sqlite3_column_int64(statement.get(), 0));
            }
        });
}

void compareLoads(const std::filesystem::path& folder) {
    const std::u16string file = (folder / "load.quorel").u16string();
    const std::string rawFile = (folder / "raw.quorel").string();
    // At least 0.7 times the speed is at most 1 / 0.7 times the time.
    bench::compare(
        "load through the store / raw SQLite", kNodes * (3 + kLinksPerNode), 1 / 0.7,
        [&] { loadByStore(file); }, [&] { loadRaw(rawFile); }, 5);
}

void run() {
    const std::filesystem::path folder = std::filesystem::temp_directory_path() / "quorel-repository-bench";
    std::filesystem::create_directories(folder);
    compareLoads(folder);
    const std::u16string file = (folder / "load.quorel").u16string();
    compareReads(file);
    compareOpening(file);
    std::filesystem::remove_all(folder);
    std::printf("(%zu)\n", sum % 10);
}

}  // namespace
}  // namespace quorel::repository

int main() {
    quorel::repository::run();
}
