#include "repository/import/debian_import.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <unordered_map>
#include <utility>

#include "platform/automation/text.h"
#include "repository/errors.h"
#include "repository/import/debian_model.h"
#include "repository/import/debian_records.h"
#include "repository/import/debian_relations.h"

namespace quorel::repository::debian {

namespace {

using automation::fromUtf8;
using automation::Value;

/// A package by the name others relate to it: packages of the machine's own architecture, or of every one, by
/// their bare name, those of a foreign one with it.
struct PackageEntry {
    ElementId node{};
    std::size_t list = 0;
    std::uint64_t line = 0;
    std::string version;
};

/// The architecture that a list's name tells, as in "..._binary-amd64_Packages".
std::string architectureOf(const std::filesystem::path& list) {
    const std::string name = shown(list.filename());
    constexpr std::string_view kMark = "_binary-";
    const std::size_t start = name.find(kMark);
    if (start == std::string::npos)
        return {};
    const std::size_t from = start + kMark.size();
    return name.substr(from, name.find('_', from) - from);
}

class Import {
  public:
    Import(Store& store, const std::vector<std::filesystem::path>& lists, const OpenSource& open,
           const ReportProgress& report)
        : store_(store), lists_(lists), open_(open), report_(report) {
        if (!lists.empty())
            ownArchitecture_ = architectureOf(lists.front());
    }

    Counts run() {
        readLists("Reading", [this](std::size_t list, LineReader& lines, const Record& record) {
            noteName(list, lines, record);
        });
        total_ = std::exchange(done_, 0);
        model_ = makeModel(store_, seen_);
        addPackages();
        readLists("Importing", [this](std::size_t list, LineReader& lines, const Record& record) {
            importRecord(list, lines, record);
        });
        return counts_;
    }

  private:
    template <class Visit>
    void readLists(std::string_view stage, Visit visit) {
        for (std::size_t list = 0; list < lists_.size(); ++list) {
            LineReader lines(open_(lists_[list]), shown(lists_[list]));
            RecordReader records(lines);
            Record record;
            while (records.next(record)) {
                visit(list, lines, record);
                report_({stage, done_ + lines.bytesRead(), total_});
            }
            done_ += lines.bytesRead();
        }
        report_({stage, done_, total_ == 0 ? done_ : total_});
    }

    [[nodiscard]] std::string keyOf(const Record& record) const {
        std::string key(record.value("Package"));
        const std::string_view architecture = record.value("Architecture");
        if (!architecture.empty() && architecture != "all" && architecture != ownArchitecture_ &&
            !ownArchitecture_.empty())
            key.append(":").append(architecture);
        return key;
    }

    void noteName(std::size_t list, const LineReader& lines, const Record& record) {
        for (const char* needed : {"Package", "Version"})
            if (record.value(needed).empty())
                throw lines.error(record.line(), std::string("the record has no ") + needed + " field");
        const auto note = [&record](const char* field, std::set<std::string>& values) {
            if (const std::string_view value = record.value(field); !value.empty())
                values.emplace(value);
        };
        note("Architecture", seen_.architectures);
        note("Priority", seen_.priorities);
        note("Multi-Arch", seen_.multiArch);
        const auto [place, isNew] = packages_.try_emplace(keyOf(record));
        if (isNew)
            order_.push_back(&*place);
        PackageEntry& entry = place->second;
        if (isNew || compareVersions(entry.version, record.value("Version")) < 0)
            entry = {{}, list, record.line(), std::string(record.value("Version"))};
    }

    void addPackages() {
        for (auto* entry : order_)
            entry->second.node = addNode(model_.package, entry->first, "Package:" + entry->first);
    }

    ElementId addNode(MetaId type, std::string_view name, std::string_view identifier) {
        ++counts_.nodes;
        return store_.addNode(type, fromUtf8(name), fromUtf8(identifier));
    }

    /// The node of that type and key, made when it is first named.
    ElementId named(std::unordered_map<std::string, ElementId>& nodes, MetaId type, std::string_view typeName,
                    const std::string& key) {
        const auto [place, isNew] = nodes.try_emplace(key);
        if (isNew)
            place->second = addNode(type, key, std::string(typeName) + ":" + key);
        return place->second;
    }

    ElementId addLink(MetaId type, std::string_view relation, const std::string& package,
                      std::string_view target, ElementId from, ElementId to) {
        ++counts_.links;
        link_.assign(package).append("->").append(target);
        identifier_.assign(relation).append(":").append(link_);
        return store_.addLink(type, fromUtf8(link_), fromUtf8(identifier_), from, to);
    }

    void set(ElementId node, PropertyId property, std::string_view text) {
        if (!text.empty())
            store_.setValue(Kind::Node, node, property, fromUtf8(text));
    }

    void setNumber(ElementId node, PropertyId property, const LineReader& lines, const Field* field) {
        if (field == nullptr)
            return;
        std::uint64_t number = 0;
        const char* const end = field->value.data() + field->value.size();
        const auto [stopped, failed] = std::from_chars(field->value.data(), end, number);
        if (failed != std::errc() || stopped != end)
            throw lines.error(field->line, "the field " + field->name + " holds no number");
        store_.setValue(Kind::Node, node, property, static_cast<double>(number));
    }

    void importRecord(std::size_t list, const LineReader& lines, const Record& record) {
        const std::string key = keyOf(record);
        const PackageEntry& entry = packages_.at(key);
        if (entry.list != list || entry.line != record.line())
            return;
        importProperties(entry.node, lines, record);
        importSurroundings(key, entry.node, record);
        for (std::size_t i = 0; i < kRelationFields.size(); ++i)
            if (const Field* field = record.find(kRelationFields.at(i).field))
                importRelations(i, key, entry.node, lines, *field);
    }

    void importProperties(ElementId node, const LineReader& lines, const Record& record) {
        const auto setSome = [&](const std::optional<PropertyId>& property, std::string_view field) {
            if (property)
                set(node, *property, record.value(field));
        };
        set(node, model_.version, record.value("Version"));
        setSome(model_.architecture, "Architecture");
        setSome(model_.priority, "Priority");
        setNumber(node, model_.installedSize, lines, record.find("Installed-Size"));
        setNumber(node, model_.size, lines, record.find("Size"));
        set(node, model_.description, record.value("Description"));
        set(node, model_.homepage, record.value("Homepage"));
        if (record.value("Essential") == "yes")
            store_.setValue(Kind::Node, node, model_.essential, true);
        setSome(model_.multiArch, "Multi-Arch");
    }

    /// Source, maintainer, section and tags.
    void importSurroundings(const std::string& key, ElementId node, const Record& record) {
        importSource(key, node, record);
        if (const std::string maintainer(record.value("Maintainer")); !maintainer.empty())
            addLink(model_.maintainedBy, "MaintainedBy", key, maintainer, node, maintainerNode(maintainer));
        if (const std::string section(record.value("Section")); !section.empty())
            addLink(model_.in, "In", key, section, node,
                    named(sections_, model_.section, "Section", section));
        const std::string_view tags = record.value("Tag");
        std::vector<std::string> seen;
        for (std::size_t start = 0; start < tags.size();) {
            const std::size_t end = std::min(tags.find_first_of(", ", start), tags.size());
            std::string tag(tags.substr(start, end - start));
            start = end + 1;
            if (tag.empty() || std::find(seen.begin(), seen.end(), tag) != seen.end())
                continue;
            addLink(model_.tagged, "Tagged", key, tag, node, named(tags_, model_.tag, "Tag", tag));
            seen.push_back(std::move(tag));
        }
    }

    /// "Source: name" or "Source: name (version)"; without the field the source bears the package's name.
    void importSource(const std::string& key, ElementId node, const Record& record) {
        std::string_view text = record.value("Source");
        if (text.empty())
            text = record.value("Package");
        const std::size_t blank = text.find(' ');
        const std::string source(text.substr(0, blank));
        const ElementId link = addLink(model_.builtFrom, "BuiltFrom", key, source, node,
                                       named(sources_, model_.sourcePackage, "SourcePackage", source));
        const std::size_t open = text.find('(');
        const std::size_t close = text.find(')', open);
        if (open != std::string_view::npos && close != std::string_view::npos)
            store_.setValue(Kind::Link, link, model_.sourceVersion,
                            fromUtf8(text.substr(open + 1, close - open - 1)));
    }

    /// "Name <address>" is a node with the name and the address apart; the whole text identifies it.
    ElementId maintainerNode(const std::string& text) {
        const auto [place, isNew] = maintainers_.try_emplace(text);
        if (!isNew)
            return place->second;
        const std::size_t open = text.rfind(" <");
        const std::string name = text.substr(0, open);
        place->second = addNode(model_.maintainer, name, "Maintainer:" + text);
        if (open != std::string::npos)
            set(place->second, model_.address,
                std::string_view(text).substr(open + 2, text.size() - open - 3));
        return place->second;
    }

    void importRelations(std::size_t kind, const std::string& key, ElementId node, const LineReader& lines,
                         const Field& field) {
        std::optional<std::vector<Relation>> relations = parseRelations(field.value);
        if (!relations)
            throw lines.error(field.line, "the field " + field.name + " is no list of packages");
        for (const Relation& relation : merged(*std::move(relations)))
            addRelation(kind, key, node, relation);
    }

    /// One relation for each package: a package that a field names several times has all its constraints.
    static std::vector<Relation> merged(std::vector<Relation> relations) {
        std::vector<Relation> result;
        for (Relation& relation : relations) {
            const auto same = std::find_if(result.begin(), result.end(), [&](const Relation& each) {
                return each.package == relation.package;
            });
            if (same == result.end())
                result.push_back(std::move(relation));
            else if (!relation.constraint.empty() && same->constraint != relation.constraint)
                same->constraint.append(same->constraint.empty() ? "" : ", ").append(relation.constraint);
        }
        return result;
    }

    void addRelation(std::size_t kind, const std::string& key, ElementId node, const Relation& relation) {
        // A package of a foreign architecture means its own kin first.
        auto target = packages_.end();
        if (const std::size_t colon = key.find(':'); colon != std::string::npos)
            target = packages_.find(relation.package + key.substr(colon));
        if (target == packages_.end())
            target = packages_.find(relation.package);
        const bool isReal = target != packages_.end();
        const RelationType& type = isReal ? model_.toPackage.at(kind) : model_.toVirtual.at(kind);
        const ElementId to = isReal
                                 ? target->second.node
                                 : named(virtual_, model_.virtualPackage, "VirtualPackage", relation.package);
        const ElementId link = addLink(type.link, kRelationFields.at(kind).link, key,
                                       isReal ? target->first : relation.package, node, to);
        if (!relation.constraint.empty())
            store_.setValue(Kind::Link, link, type.constraint, fromUtf8(relation.constraint));
        if (relation.alternative != 0)
            store_.setValue(Kind::Link, link, type.alternative, relation.alternative);
    }

    Store& store_;
    const std::vector<std::filesystem::path>& lists_;
    const OpenSource& open_;
    const ReportProgress& report_;
    std::string ownArchitecture_;
    std::uint64_t done_ = 0;
    std::uint64_t total_ = 0;
    SeenValues seen_;
    Model model_;
    Counts counts_;
    std::unordered_map<std::string, PackageEntry> packages_;
    std::vector<std::pair<const std::string, PackageEntry>*> order_;
    std::unordered_map<std::string, ElementId> sources_, maintainers_, sections_, tags_, virtual_;
    std::string link_, identifier_;  // kept for their memory
};

}  // namespace

std::vector<std::filesystem::path> packageLists(const std::filesystem::path& folder) {
    std::vector<std::filesystem::path> lists;
    std::error_code failed;
    for (const auto& entry : std::filesystem::directory_iterator(folder, failed)) {
        const std::string name = shown(entry.path().filename());
        const std::size_t mark = name.rfind("_Packages");
        const bool isList = mark != std::string::npos && (mark + 9 == name.size() || name[mark + 9] == '.');
        if (isList && entry.is_regular_file(failed))
            lists.push_back(entry.path());
    }
    std::sort(lists.begin(), lists.end());
    if (lists.empty())
        throw failure(automation::error_number::kFileNotFound,
                      u"There are no package lists in " + inQuotes(fromUtf8(shown(folder))) +
                          u"; run  apt-get update  as root to fetch them");
    return lists;
}

Counts importPackages(Store& store, const std::vector<std::filesystem::path>& lists, const OpenSource& open,
                      const ReportProgress& report) {
    return Import(store, lists, open, report).run();
}

}  // namespace quorel::repository::debian
