#include "repository/import/moddle_import.h"

#include <algorithm>
#include <array>
#include <deque>
#include <initializer_list>
#include <optional>
#include <unordered_map>
#include <utility>

#include "platform/automation/text.h"
#include "repository/errors.h"
#include "repository/import/json_tree.h"
#include "repository/import/metamodel_files.h"

namespace quorel::repository::metamodel {

namespace {

constexpr std::u16string_view kAnyElement = u"Element";

/// The data types that every descriptor knows without a prefix.
std::optional<DataType> builtIn(std::u16string_view name) {
    constexpr std::array<std::pair<std::u16string_view, DataType>, 4> kTypes{{{u"String", DataType::String},
                                                                              {u"Boolean", DataType::Boolean},
                                                                              {u"Integer", DataType::Integer},
                                                                              {u"Real", DataType::Double}}};
    for (const auto& [each, type] : kTypes)
        if (each == name)
            return type;
    return std::nullopt;
}

/// A type of the files: a classifier, or a data type that a package declares again under its own prefix.
struct Type {
    Spot spot;
    std::optional<ClassifierIndex> classifier;
    DataType dataType = DataType::String;
};

class ModdleReader {
  public:
    ModdleReader(const std::vector<std::filesystem::path>& paths, const OpenSource& open,
                 const ReportProgress& report)
        : files_(paths, open, report) {}

    Metamodel run() {
        for (std::size_t file = 0; file < files_.count(); ++file) {
            roots_.push_back(readFile(file));
            declare(file);
        }
        for (const auto& [index, described] : bodies_)
            describe(index, *described.first, described.second);
        return std::move(result_);
    }

  private:
    JsonNode readFile(std::size_t file) {
        const std::unique_ptr<ByteSource> source = files_.open(file);
        std::string text;
        std::vector<char> piece(64 * 1024);
        while (const std::size_t count = source->read(piece.data(), piece.size())) {
            text.append(piece.data(), count);
            files_.tellRead(count);
        }
        return readJson(text, files_.name(file));
    }

    // Members of objects.

    [[nodiscard]] const std::u16string& text(const JsonNode& node, std::size_t file) const {
        if (node.kind != JsonNode::Kind::Text || node.text.empty())
            files_.refuse({file, node.line}, inQuotes(node.name) + u" is no text, or an empty one");
        return node.text;
    }

    [[nodiscard]] const std::u16string& textMember(const JsonNode& object, std::u16string_view key,
                                                   std::size_t file) const {
        if (object.kind != JsonNode::Kind::Object)
            files_.refuse({file, object.line}, u"an object is needed here");
        const JsonNode* const found = object.member(key);
        if (found == nullptr)
            files_.refuse({file, object.line}, u"the member " + inQuotes(key) + u" is missing");
        return text(*found, file);
    }

    /// The elements of a list; none when there is no such member.
    [[nodiscard]] const std::vector<JsonNode>& list(const JsonNode& object, std::u16string_view key,
                                                    std::size_t file) const {
        static const std::vector<JsonNode> kNone;
        const JsonNode* const found = object.member(key);
        if (found == nullptr)
            return kNone;
        if (found->kind != JsonNode::Kind::List)
            files_.refuse({file, found->line}, inQuotes(key) + u" is no list");
        return found->children;
    }

    [[nodiscard]] bool flag(const JsonNode& object, std::u16string_view key, std::size_t file) const {
        const JsonNode* const found = object.member(key);
        if (found != nullptr && found->kind != JsonNode::Kind::Boolean)
            files_.refuse({file, found->line}, inQuotes(key) + u" is neither true nor false");
        return found != nullptr && found->isTrue();
    }

    void countOthers(const JsonNode& object, const char* what,
                     std::initializer_list<std::u16string_view> taken) {
        for (const JsonNode& member : object.children) {
            const bool isNothing =
                member.kind == JsonNode::Kind::Null ||
                (member.kind == JsonNode::Kind::Boolean && !member.isTrue()) ||
                ((member.kind == JsonNode::Kind::List || member.kind == JsonNode::Kind::Object) &&
                 member.children.empty());
            if (!isNothing && std::find(taken.begin(), taken.end(), member.name) == taken.end())
                ++result_.notTaken[std::string(what) + automation::toUtf8(inQuotes(member.name))];
        }
    }

    // First every type by its name.

    void declare(std::size_t file) {
        const JsonNode& root = roots_.back();
        const std::u16string& prefix = textMember(root, u"prefix", file);
        if (!packages_.emplace(prefix, result_.packages.size()).second)
            files_.refuse({file, root.member(u"prefix")->line},
                          u"another file has the prefix " + inQuotes(prefix) + u" already");
        const bool hasAddress = root.member(u"uri") != nullptr;
        result_.packages.push_back({prefix, hasAddress ? textMember(root, u"uri", file) : std::u16string()});
        countOthers(root, "package member ", {u"name", u"prefix", u"uri", u"types", u"enumerations"});
        for (const JsonNode& type : list(root, u"types", file))
            declareType(type, prefix, file);
        for (const JsonNode& enumeration : list(root, u"enumerations", file))
            declareEnumeration(enumeration, prefix, file);
    }

    ClassifierIndex addClassifier(const JsonNode& node, const std::u16string& prefix, std::size_t file) {
        const std::u16string& name = textMember(node, u"name", file);
        Classifier classifier;
        classifier.name = name.starts_with(prefix + u":") ? name.substr(prefix.size() + 1) : name;
        classifier.package = packages_.at(prefix);
        result_.classifiers.push_back(std::move(classifier));
        return result_.classifiers.size() - 1;
    }

    void addType(const std::u16string& key, const Type& type) {
        const auto [place, isNew] = types_.emplace(key, type);
        if (!isNew)
            files_.refuse(type.spot, u"the type " + inQuotes(key) + u" stands already at " +
                                         files_.shown(place->second.spot));
    }

    void declareType(const JsonNode& node, const std::u16string& prefix, std::size_t file) {
        const std::u16string& name = textMember(node, u"name", file);
        const Spot spot{file, node.line};
        const bool hasBody =
            !list(node, u"properties", file).empty() || node.member(u"superClass") != nullptr;
        if (const std::optional<DataType> dataType = builtIn(name); dataType && !hasBody) {
            ++result_.notTaken["data type declared again"];
            return addType(prefix + u":" + name, {spot, std::nullopt, *dataType});
        }
        const ClassifierIndex index = addClassifier(node, prefix, file);
        addType(prefix + u":" + result_.classifiers[index].name, {spot, index});
        bodies_.emplace_back(index, std::pair(&node, file));
    }

    void declareEnumeration(const JsonNode& node, const std::u16string& prefix, std::size_t file) {
        const ClassifierIndex index = addClassifier(node, prefix, file);
        Classifier& enumeration = result_.classifiers[index];
        addType(prefix + u":" + enumeration.name, {{file, node.line}, index});
        countOthers(node, "enumeration member ", {u"name", u"literalValues", u"description"});
        enumeration.isEnumeration = true;
        enumeration.description = described(
            {u"enumeration", packageFact(result_.packages[enumeration.package])}, description(node, file));
        for (const JsonNode& literal : list(node, u"literalValues", file)) {
            enumeration.literals.push_back({textMember(literal, u"name", file), description(literal, file)});
            countOthers(literal, "literal member ", {u"name", u"description"});
        }
    }

    [[nodiscard]] std::u16string description(const JsonNode& node, std::size_t file) const {
        const JsonNode* const found = node.member(u"description");
        if (found != nullptr && found->kind != JsonNode::Kind::Text)
            files_.refuse({file, found->line}, u"a description is no text");
        return found == nullptr ? std::u16string() : found->text;
    }

    // Then what they hold.

    void describe(ClassifierIndex index, const JsonNode& node, std::size_t file) {
        countOthers(node, "type member ",
                    {u"name", u"superClass", u"isAbstract", u"properties", u"description"});
        Classifier classifier = std::move(result_.classifiers[index]);
        std::vector<std::u16string> facts;
        if (flag(node, u"isAbstract", file))
            facts.emplace_back(u"abstract");
        const Package package = result_.packages[classifier.package];
        facts.push_back(packageFact(package));
        classifier.description = described(facts, description(node, file));
        for (const JsonNode& supertype : list(node, u"superClass", file)) {
            const Type type = resolve(text(supertype, file), {file, supertype.line}, package.name);
            if (type.classifier)
                classifier.supertypes.push_back(*type.classifier);
            else
                ++result_.notTaken["supertype that is a data type"];
        }
        for (const JsonNode& property : list(node, u"properties", file))
            classifier.features.push_back(featureOf(property, package.name, file));
        result_.classifiers[index] = std::move(classifier);
    }

    Feature featureOf(const JsonNode& node, const std::u16string& prefix, std::size_t file) {
        Feature feature;
        feature.name = textMember(node, u"name", file);
        if (feature.name.starts_with(prefix + u":"))
            feature.name.erase(0, prefix.size() + 1);
        const std::u16string& typeName = textMember(node, u"type", file);
        const Type type = resolve(typeName, {file, node.member(u"type")->line}, prefix);
        feature.classifier = type.classifier;
        feature.dataType = type.dataType;
        feature.isReference = type.classifier && !result_.classifiers[*type.classifier].isEnumeration;
        feature.isMany = flag(node, u"isMany", file);
        const bool isContained =
            feature.isReference && !flag(node, u"isReference", file) && !flag(node, u"isAttr", file);
        feature.description = described(factsOf(node, feature, isContained, file), description(node, file));
        countOthers(node, "property member ",
                    {u"name", u"type", u"isMany", u"isReference", u"isAttr", u"isId", u"isBody", u"default",
                     u"description"});
        return feature;
    }

    [[nodiscard]] std::vector<std::u16string> factsOf(const JsonNode& node, const Feature& feature,
                                                      bool isContained, std::size_t file) const {
        std::vector<std::u16string> facts{multiplicity(0, feature.isMany ? -1 : 1)};
        if (isContained)
            facts.emplace_back(u"contained");
        if (flag(node, u"isId", file))
            facts.emplace_back(u"identifies");
        if (flag(node, u"isBody", file))
            facts.emplace_back(u"the text of the element");
        if (!feature.isReference && feature.classifier)
            facts.push_back(u"one of " + result_.classifiers[*feature.classifier].name);
        if (const JsonNode* const value = node.member(u"default"); value != nullptr) {
            if (value->kind == JsonNode::Kind::List || value->kind == JsonNode::Kind::Object)
                files_.refuse({file, value->line}, u"a default is no list and no object");
            facts.push_back(u"default " + (value->kind == JsonNode::Kind::Null ? u"null" : value->text));
        }
        return facts;
    }

    /// The type of that name, seen from the package with that prefix.
    Type resolve(const std::u16string& name, const Spot& spot, const std::u16string& prefix) {
        if (const std::optional<DataType> dataType = builtIn(name))
            return {spot, std::nullopt, *dataType};
        const std::size_t colon = name.find(u':');
        const std::u16string owner = colon == std::u16string::npos ? prefix : name.substr(0, colon);
        const std::u16string bare = colon == std::u16string::npos ? name : name.substr(colon + 1);
        const std::u16string key = owner + u":" + bare;
        if (const auto found = types_.find(key); found != types_.end())
            return found->second;
        // The key of what needs no prefix is its name alone, which no other one's is.
        if (const auto found = types_.find(name); colon == std::u16string::npos && found != types_.end())
            return found->second;
        if (colon == std::u16string::npos && name == kAnyElement)
            return named(name, {}, name, u"any element", spot);
        const auto package = packages_.find(owner);
        if (package != packages_.end() && !result_.packages[package->second].isNamedOnly)
            files_.refuse(spot, u"there is no type " + inQuotes(key));
        return named(bare, owner, key, u"named here, described in another package: " + owner, spot);
    }

    /// A class that is only named.
    Type named(const std::u16string& name, const std::u16string& owner, const std::u16string& key,
               const std::u16string& description, const Spot& spot) {
        const auto [package, isNew] = packages_.emplace(owner, result_.packages.size());
        if (isNew)
            result_.packages.push_back({owner, {}, false, true});
        const Type type{spot, result_.classifiers.size()};
        Classifier classifier;
        classifier.name = name;
        classifier.package = package->second;
        classifier.description = description;
        result_.classifiers.push_back(std::move(classifier));
        types_.emplace(key, type);
        return type;
    }

    Files files_;
    std::deque<JsonNode> roots_;
    std::unordered_map<std::u16string, std::size_t> packages_;  ///< by prefix
    std::unordered_map<std::u16string, Type> types_;
    std::vector<std::pair<ClassifierIndex, std::pair<const JsonNode*, std::size_t>>> bodies_;
    Metamodel result_;
};

}  // namespace

Metamodel readModdle(const std::vector<std::filesystem::path>& files, const OpenSource& open,
                     const ReportProgress& report) {
    return ModdleReader(files, open, report).run();
}

}  // namespace quorel::repository::metamodel
