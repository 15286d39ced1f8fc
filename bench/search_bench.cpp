// Searching 100,000 nodes with 1,000,000 values as the window does, by members of the repository object (on
// Windows those of the component, by its interface), beside a scan of the same file with LIKE; what making
// the index takes, and what writes cost with it.

#include <sqlite3.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <random>
#include <string>
#include <system_error>
#include <vector>

#include "bench/numbered.h"
#include "bench/ratio.h"
#include "platform/automation/calls.h"
#include "platform/automation/text.h"
#include "repository/import/new_file.h"
#include "repository/repository.h"
#include "repository/store.h"

#ifdef _WIN32
#include <windows.h>

#include "platform/win32/com/activation.h"
#include "platform/win32/com/bridge.h"
#endif

namespace {

using namespace quorel;
using automation::Object;
using automation::Value;
using bench::numbered;

constexpr int kNodes = 100'000;
constexpr int kValues = 10;
constexpr double kAimMs = 50;

#ifdef _WIN32
Object repositoryObject() {
    std::wstring path(0x1000, L'\0');
    path.resize(::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    const auto manifest = std::filesystem::path(path).parent_path() / L"QuorelRepository.manifest";
    const win32::ActivationContext context(manifest.wstring());
    const win32::ActivationScope active(context);
    return win32::createPlatformObject(u"QuorelRepository.Repository");
}
#else
Object repositoryObject() {
    return Object(automation::make<repository::Repository>());
}
#endif

Object opened(const std::filesystem::path& file) {
    Object repository = repositoryObject();
    repository.call(u"Open", file.u16string());
    return repository;
}

/// 20,000 words of three to nine letters.
std::vector<std::u16string> vocabulary(std::mt19937& random) {
    std::vector<std::u16string> words(20'000);
    for (std::u16string& word : words)
        for (std::uint32_t letters = 3 + random() % 7; letters > 0; --letters)
            word += static_cast<char16_t>(u'a' + random() % 26);
    return words;
}

std::u16string valueOf(int property, int node, const std::vector<std::u16string>& words,
                       std::mt19937& random) {
    switch (property) {
        case 0:
            return numbered(u"A note on the item number ", static_cast<std::size_t>(node));
        case 1:
            return numbered(u"", static_cast<std::size_t>(node) * 37 % 10'000);
        case 2:
            return numbered(u"customer", static_cast<std::size_t>(node));
        default:
            return words[random() % words.size()] + u" " + words[random() % words.size()] + u" " +
                   words[random() % words.size()];
    }
}

void fill(repository::Store& store) {
    std::mt19937 random(1);
    const std::vector<std::u16string> words = vocabulary(random);
    repository::MetaRecord item;
    item.name = u"Item";
    const repository::MetaId type = store.addMeta(item);
    std::array<repository::PropertyId, kValues> properties{};
    for (std::size_t i = 0; i < properties.size(); ++i)
        properties.at(i) = store.addMetaProperty(
            type, {{}, numbered(u"Property", i), repository::DataType::String, u"", {}});
    for (int node = 1; node <= kNodes; ++node) {
        const auto number = static_cast<std::size_t>(node);
        const repository::ElementId id = store.addNode(
            type, words[random() % words.size()] + numbered(u" item ", number), numbered(u"i", number));
        for (int i = 0; i < kValues; ++i)
            store.setValue(repository::Kind::Node, id, properties.at(static_cast<std::size_t>(i)),
                           valueOf(i, node, words, random));
    }
}

double megabytes(const std::filesystem::path& file) {
    return static_cast<double>(std::filesystem::file_size(file)) / 1e6;
}

/// Makes the index in slices, as the window does.
void makeIndex(const std::filesystem::path& file) {
    double longest = 0;
    int slices = 0;
    const double whole = bench::seconds([&] {
        const Object repository = opened(file);
        for (int progress = 0; progress < 100; ++slices)
            longest = std::max(longest, bench::seconds([&] {
                                   progress = repository.call(u"PrepareSearch", 50).toInteger();
                               }));
    });
    std::printf("index of %d nodes with %d values: %.1f s in %d slices of 50 ms, the longest %.0f ms\n",
                kNodes, kNodes * kValues, whole, slices, longest * 1e3);
    std::fflush(stdout);
}

std::size_t sum = 0;  // what was read is used, so that the reading is not left out

/// What is seen of the results: a screen of rows.
void searchAsTheWindowDoes(const Object& repository, const std::u16string& text) {
    const Object results = repository.call(u"Search", text).toObject();
    int rows = 0;
    for (const Object& result : automation::each(results)) {
        for (const char16_t* member : {u"Kind", u"name", u"TypeName", u"PropertyName", u"Text"})
            sum += result.get(member).toString().size();
        if (++rows == 20)
            break;
    }
}

/// SQLite alone, on the same file.
class Sqlite {
  public:
    explicit Sqlite(const std::filesystem::path& file) {
        sqlite3_open_v2(automation::toUtf8(file.u16string()).c_str(), &database_, SQLITE_OPEN_READWRITE,
                        nullptr);
        sqlite3_exec(database_, "PRAGMA cache_size = -16384", nullptr, nullptr, nullptr);
        sqlite3_prepare_v2(database_,
                           "SELECT name FROM node WHERE name LIKE ?1 UNION ALL "
                           "SELECT value FROM node_property WHERE value LIKE ?1 LIMIT 100",
                           -1, &statement_, nullptr);
    }
    Sqlite(const Sqlite&) = delete;
    Sqlite& operator=(const Sqlite&) = delete;
    ~Sqlite() {
        sqlite3_finalize(statement_);
        sqlite3_close(database_);
    }
    void operator()(const std::u16string& text) {
        std::string pattern(1, '%');
        pattern.append(automation::toUtf8(text)).append(1, '%');
        sqlite3_bind_text(statement_, 1, pattern.c_str(), -1, SQLITE_TRANSIENT);
        while (sqlite3_step(statement_) == SQLITE_ROW)
            sum += static_cast<std::size_t>(sqlite3_column_bytes(statement_, 0));
        sqlite3_reset(statement_);
    }
    /// The property of nodes here and there, each in a transaction of its own.
    void write(int round, int count) {
        sqlite3_exec(database_, "PRAGMA synchronous = NORMAL", nullptr, nullptr, nullptr);
        sqlite3_stmt* statement = nullptr;
        sqlite3_prepare_v2(database_, "REPLACE INTO node_property (node, property, value) VALUES (?1, 4, ?2)",
                           -1, &statement, nullptr);
        const std::string text = "changed " + std::to_string(round);
        std::mt19937 random(7);
        for (int i = 0; i < count; ++i) {
            sqlite3_bind_int64(statement, 1, static_cast<sqlite3_int64>(random() % kNodes + 1));
            sqlite3_bind_text(statement, 2, text.c_str(), -1, SQLITE_STATIC);
            sqlite3_step(statement);
            sqlite3_reset(statement);
        }
        sqlite3_finalize(statement);
    }

  private:
    sqlite3* database_ = nullptr;
    sqlite3_stmt* statement_ = nullptr;
};

void compareKeystrokes(const std::filesystem::path& file) {
    const Object repository = opened(file);
    Sqlite scan(file);
    double slowest = 0;
    for (const char16_t* text : {u"n",
                                 u"nu",
                                 u"num",
                                 u"numb",
                                 u"numbe",
                                 u"number",
                                 u"number 7",
                                 u"number 77",
                                 u"number 7777",
                                 u"c",
                                 u"cu",
                                 u"cus",
                                 u"cust",
                                 u"custom",
                                 u"customer",
                                 u"customer9",
                                 u"customer99",
                                 u"customer9999",
                                 u"customer99999",
                                 u"note customer",
                                 u"note customer 12",
                                 u"qz",
                                 u"qzx",
                                 u"zzzzz",
                                 u"a b",
                                 u"item a b c",
                                 u"xq wv ab",
                                 u"customer1 number2"}) {
        std::vector<double> times, scans;
        for (int run = 0; run < 7; ++run)
            times.push_back(bench::seconds([&] { searchAsTheWindowDoes(repository, text); }) * 1e3);
        for (int run = 0; run < 3; ++run)
            scans.push_back(bench::seconds([&] { scan(text); }) * 1e3);
        const int found = repository.call(u"Search", text).toObject().get(u"Count").toInteger();
        std::printf("%-20s %3d results: first %6.2f ms, then %6.2f ms; LIKE %7.1f ms\n",
                    automation::toUtf8(text).c_str(), found, times.front(), bench::median(times),
                    bench::median(scans));
        std::fflush(stdout);
        slowest = std::max(slowest, *std::max_element(times.begin(), times.end()));
    }
    std::printf("the slowest keystroke: %.1f ms (aim: %.0f)\n", slowest, kAimMs);
}

/// The same writes by members into a file with an index and into one without.
void compareWrites(const std::filesystem::path& indexed, const std::filesystem::path& plain) {
    constexpr int kWrites = 2'000;
    std::mt19937 random(7);
    const auto nodesOf = [](const Object& repository, std::mt19937 numbers) {
        const Object items = repository.get(u"MetaNodes", u"Item").toObject().get(u"Extension").toObject();
        std::vector<Object> nodes;
        for (int i = 0; i < kWrites; ++i)
            nodes.push_back(items.get(u"Item", numbered(u"i", numbers() % kNodes + 1)).toObject());
        return nodes;
    };
    const Object first = opened(indexed);
    const Object second = opened(plain);
    const std::vector<Object> withIndex = nodesOf(first, random);
    const std::vector<Object> without = nodesOf(second, random);
    Sqlite raw(plain);
    int round = 0;
    const auto write = [&round](const std::vector<Object>& nodes) {
        const Value value(numbered(u"changed ", static_cast<std::size_t>(++round)));
        for (const Object& node : nodes)
            node.put(u"Property3", value);
    };
    bench::compare(
        "a value written with an index / without one", kWrites, 1.2, [&] { write(withIndex); },
        [&] { write(without); });
    bench::compare(
        "a value written with an index / the same statement of SQLite alone", kWrites, 0,
        [&] { write(withIndex); }, [&] { raw.write(++round, kWrites); });
    const double catchUp = bench::seconds([&] {
        while (first.call(u"PrepareSearch", 50).toInteger() < 100) {
        }
    });
    std::printf("the index takes up %d changed nodes: %.0f ms\n", kWrites, catchUp * 1e3);
}

void run() {
    const std::filesystem::path folder = std::filesystem::temp_directory_path() / "quorel-search-bench";
    std::filesystem::create_directories(folder);
    const std::filesystem::path file = folder / "indexed.quorel";
    const std::filesystem::path plain = folder / "plain.quorel";
    repository::makeRepositoryFile(file.u16string(), true, fill);
    std::filesystem::copy_file(file, plain, std::filesystem::copy_options::overwrite_existing);
    makeIndex(file);
    std::printf("file: %.1f MB, with its index %.1f MB\n", megabytes(plain), megabytes(file));
    compareKeystrokes(file);
    compareWrites(file, plain);
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
    std::printf("(%zu)\n", sum % 10);
}

}  // namespace

int main() {
#ifdef _WIN32
    if (::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED) < 0)
        return 1;
#endif
    run();
}
