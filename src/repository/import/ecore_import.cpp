#include "repository/import/ecore_import.h"

#include <algorithm>
#include <charconv>
#include <deque>
#include <initializer_list>
#include <utility>

#include "platform/automation/text.h"
#include "repository/errors.h"
#include "repository/import/ecore_index.h"
#include "repository/import/ecore_names.h"
#include "repository/import/metamodel_files.h"
#include "repository/import/xml_tree.h"

namespace quorel::repository::metamodel {

namespace {

using automation::fromUtf8;
using namespace ecore;

/// "EClass" of an attribute that says "ecore:EClass".
std::string_view kindOf(const XmlElement& element) {
    for (const auto& [name, value] : element.attributes)
        if (name == kXsiType || (isXmi(name) && localName(name) == "type"))
            return localName(value);
    return {};
}

std::string_view identifierOf(const XmlElement& element) {
    for (const auto& [name, value] : element.attributes)
        if (isXmi(name) && localName(name) == "id")
            return value;
    return {};
}

class EcoreReader {
  public:
    EcoreReader(const std::vector<std::filesystem::path>& paths, const OpenSource& open,
                const ReportProgress& report)
        : files_(paths, open, report), index_(files_) {}

    Metamodel run() {
        for (std::size_t file = 0; file < files_.count(); ++file) {
            const std::unique_ptr<ByteSource> source = files_.open(file);
            trees_.push_back(
                readXml(*source, files_.name(file), [this](std::size_t bytes) { files_.tellRead(bytes); }));
            declareFile(trees_.back(), file);
        }
        for (const Body& body : bodies_)
            describe(body.classifier, *body.element, body.file);
        return std::move(result_);
    }

  private:
    /// A class or an enumeration that is declared and waits for all the others.
    struct Body {
        ClassifierIndex classifier;
        const XmlElement* element;
        std::size_t file;
    };

    // First every classifier by its place.

    void declareFile(const XmlElement& root, std::size_t file) {
        const std::string package = std::string(kEcore) + " EPackage";
        if (root.name == package)
            return declareRoot(root, file);
        if (!isXmi(root.name) || localName(root.name) != "XMI")
            files_.refuse({file, root.line}, u"this is no Ecore model: its outermost element is " +
                                                 inQuotes(fromUtf8(localName(root.name))));
        for (const XmlElement& child : root.children) {
            if (child.name == package)
                declareRoot(child, file);
            else
                countElement(child);
        }
    }

    void declareRoot(const XmlElement& element, std::size_t file) {
        declarePackage(element, file, index_.addRoot(file, {file, element.line}), false);
    }

    void declarePackage(const XmlElement& element, std::size_t file, PackageNode& node, bool isNested) {
        const std::size_t package = result_.packages.size();
        result_.packages.push_back(
            {nameOf(element, file), fromUtf8(element.attribute("nsURI")), isNested, false});
        index_.addAddress(element.attribute("nsURI"), node);
        countAttributes(element, "package attribute ", {"name", "nsURI", "nsPrefix"});
        for (const XmlElement& child : element.children) {
            if (child.name == "eClassifiers")
                declareClassifier(child, file, package, node);
            else if (child.name == "eSubpackages")
                declareSubpackage(child, file, node);
            else if (child.name == "eAnnotations")
                ++result_.notTaken["annotation of a package"];
            else
                countElement(child);
        }
    }

    void declareSubpackage(const XmlElement& element, std::size_t file, PackageNode& node) {
        const Spot spot{file, element.line};
        auto& inner = node.packages[element.attribute("name")];
        if (inner)
            files_.refuse(spot, u"the package " + inQuotes(nameOf(element, file)) + u" stands already at " +
                                    files_.shown(inner->spot));
        inner = std::make_unique<PackageNode>();
        inner->spot = spot;
        declarePackage(element, file, *inner, true);
    }

    void declareClassifier(const XmlElement& element, std::size_t file, std::size_t package,
                           PackageNode& node) {
        Target target{{file, element.line}, &element, std::nullopt};
        const std::u16string name = nameOf(element, file);
        const std::string_view kind = kindOf(element);
        if (kind == "EDataType") {
            const std::string_view javaName = element.attribute("instanceClassName");
            target.dataType = javaType(javaName).value_or(DataType::String);
            ++result_.notTaken["data type (attributes have the nearest one of a repository)"];
        } else if (kind == "EClass" || kind == "EEnum") {
            target.classifier = result_.classifiers.size();
            Classifier classifier;
            classifier.name = name;
            classifier.package = package;
            classifier.isEnumeration = kind == "EEnum";
            result_.classifiers.push_back(std::move(classifier));
            bodies_.push_back({*target.classifier, &element, file});
        } else {
            files_.refuse(target.spot,
                          inQuotes(name) + u" is neither a class nor an enumeration nor a data type");
        }
        const auto [place, isNew] = node.classifiers.emplace(element.attribute("name"), target);
        if (!isNew)
            files_.refuse(target.spot, u"the classifier " + inQuotes(name) + u" stands already at " +
                                           files_.shown(place->second.spot));
        index_.addIdentifier(file, identifierOf(element), target);
    }

    // What is met everywhere.

    [[nodiscard]] std::u16string nameOf(const XmlElement& element, std::size_t file) const {
        const std::string_view name = element.attribute("name");
        if (name.empty())
            files_.refuse({file, element.line},
                          u"the element " + inQuotes(fromUtf8(localName(element.name))) + u" has no name");
        return fromUtf8(name);
    }

    [[nodiscard]] bool flag(const XmlElement& element, std::string_view key, std::size_t file) const {
        const std::string_view value = element.attribute(key);
        const bool isTrue = value == "true" || value == "1";
        if (!isTrue && !value.empty() && value != "false" && value != "0")
            files_.refuse({file, element.line}, inQuotes(fromUtf8(key)) + u" is neither true nor false");
        return isTrue;
    }

    [[nodiscard]] std::int64_t number(const XmlElement& element, std::string_view key, std::size_t file,
                                      std::int64_t otherwise) const {
        const std::string_view value = element.attribute(key);
        if (value.empty())
            return otherwise;
        std::int32_t result = 0;
        const char* const end = value.data() + value.size();
        const auto [stopped, failed] = std::from_chars(value.data(), end, result);
        if (failed != std::errc() || stopped != end)
            files_.refuse({file, element.line}, inQuotes(fromUtf8(key)) + u" is no number");
        return result;
    }

    void countElement(const XmlElement& element) {
        ++result_.notTaken["element " + automation::toUtf8(inQuotes(fromUtf8(localName(element.name))))];
    }

    /// Counts the attributes but those; what is of a namespace says how the file is written, not what it
    /// holds.
    void countAttributes(const XmlElement& element, const char* what,
                         std::initializer_list<std::string_view> taken) {
        for (const auto& [name, value] : element.attributes)
            if (name.find(' ') == std::string::npos &&
                std::find(taken.begin(), taken.end(), name) == taken.end())
                ++result_.notTaken[what + automation::toUtf8(inQuotes(fromUtf8(name)))];
    }

    /// What the makers wrote of it; other annotations are counted.
    std::u16string documentation(const XmlElement& element) {
        std::u16string text;
        for (const XmlElement& annotation : element.children) {
            if (annotation.name != "eAnnotations")
                continue;
            bool hasOthers = annotation.attribute("source") != kGenModel;
            for (const XmlElement& detail : annotation.children) {
                if (!hasOthers && detail.name == "details" && detail.attribute("key") == "documentation")
                    text.append(text.empty() ? u"" : u"\n").append(fromUtf8(detail.attribute("value")));
                else
                    hasOthers = true;
            }
            if (hasOthers)
                ++result_.notTaken["annotation"];
        }
        return text;
    }

    // Then what they hold.

    void describe(ClassifierIndex index, const XmlElement& element, std::size_t file) {
        Classifier classifier = std::move(result_.classifiers[index]);
        std::vector<std::u16string> facts;
        if (classifier.isEnumeration)
            facts.emplace_back(u"enumeration");
        for (const char* key : {"abstract", "interface"})
            if (flag(element, key, file))
                facts.push_back(fromUtf8(key));
        facts.push_back(packageFact(result_.packages[classifier.package]));
        classifier.description = described(facts, documentation(element));
        countAttributes(element, "classifier attribute ", {"name", "abstract", "interface", "eSuperTypes"});
        addSupertypes(classifier, element.attribute("eSuperTypes"), {file, element.line});
        for (const XmlElement& child : element.children)
            describePart(classifier, child, file);
        result_.classifiers[index] = std::move(classifier);
    }

    void describePart(Classifier& classifier, const XmlElement& element, std::size_t file) {
        if (element.name == "eStructuralFeatures") {
            if (std::optional<Feature> feature = featureOf(element, file))
                classifier.features.push_back(*std::move(feature));
        } else if (element.name == "eLiterals" && classifier.isEnumeration) {
            classifier.literals.push_back(literalOf(element, file));
        } else if (element.name == "eSuperTypes") {
            addSupertypes(classifier, element.attribute("href"), {file, element.line});
        } else if (element.name == "eGenericSuperTypes") {
            addSupertypes(classifier, genericReference(element), {file, element.line});
        } else if (element.name == "eOperations") {
            ++result_.notTaken["operation"];
        } else if (element.name == "eTypeParameters") {
            ++result_.notTaken["type parameter"];
        } else if (element.name != "eAnnotations") {
            countElement(element);
        }
    }

    void addSupertypes(Classifier& classifier, std::string_view references, const Spot& spot) {
        for (const Reference& reference : referencesIn(references)) {
            const Type type = resolve(reference, spot, true);
            auto& known = classifier.supertypes;
            if (!type.classifier || type.isEnumeration)
                files_.refuse(spot, u"the supertype " + shown(reference) + u" is no class");
            if (std::find(known.begin(), known.end(), *type.classifier) == known.end())
                known.push_back(*type.classifier);
        }
    }

    Literal literalOf(const XmlElement& element, std::size_t file) {
        const std::u16string name = nameOf(element, file);
        const std::u16string shown = fromUtf8(element.attribute("literal"));
        std::vector<std::u16string> facts{u"value " + automation::decimal(number(element, "value", file, 0))};
        if (!shown.empty() && shown != name)
            facts.push_back(u"named " + name);
        countAttributes(element, "literal attribute ", {"name", "value", "literal"});
        return {shown.empty() ? name : shown, described(facts, documentation(element))};
    }

    /// The references of a generic type, without its arguments, which are counted.
    std::string_view genericReference(const XmlElement& element) {
        for (const XmlElement& child : element.children) {
            if (child.name == "eTypeArguments")
                ++result_.notTaken["type argument"];
            else
                countElement(child);
        }
        const std::string_view classifier = element.attribute("eClassifier");
        return classifier.empty() ? element.attribute("eTypeParameter") : classifier;
    }

    /// The reference to the type of a feature; empty when it has none.
    std::string_view typeReference(const XmlElement& element) {
        std::string_view reference = element.attribute("eType");
        for (const XmlElement& child : element.children) {
            if (child.name == "eType")
                reference = child.attribute("href");
            else if (child.name == "eGenericType")
                reference = genericReference(child);
            else if (child.name == "eKeys")
                ++result_.notTaken["key of a reference"];
            else if (child.name != "eAnnotations" && child.name != "eOpposite")
                countElement(child);
        }
        return reference;
    }

    std::optional<Feature> featureOf(const XmlElement& element, std::size_t file) {
        const Spot spot{file, element.line};
        Feature feature;
        feature.name = nameOf(element, file);
        const std::string_view kind = kindOf(element);
        if (kind != "EAttribute" && kind != "EReference")
            files_.refuse(spot, inQuotes(feature.name) + u" is neither an attribute nor a reference");
        const std::int64_t upper = number(element, "upperBound", file, 1);
        feature.isMany = upper < 0 || upper > 1;
        const std::vector<Reference> references = referencesIn(typeReference(element));
        if (references.size() > 1)
            files_.refuse(spot, inQuotes(feature.name) + u" has more than one type");
        Type type;
        if (!references.empty())
            type = resolve(references.front(), spot, kind == "EReference");
        feature.classifier = type.classifier;
        feature.isReference = type.classifier && !type.isEnumeration;
        feature.dataType = type.dataType;
        if (kind == "EReference" && !type.classifier && !type.isDataType) {
            ++result_.notTaken["reference without a class"];
            return std::nullopt;
        }
        feature.description = described(factsOf(element, feature, file), documentation(element));
        countAttributes(element, "feature attribute ",
                        {"name", "eType", "lowerBound", "upperBound", "containment", "eOpposite", "iD",
                         "derived", "defaultValueLiteral"});
        return feature;
    }

    [[nodiscard]] std::vector<std::u16string> factsOf(const XmlElement& element, const Feature& feature,
                                                      std::size_t file) const {
        std::vector<std::u16string> facts{
            multiplicity(number(element, "lowerBound", file, 0), number(element, "upperBound", file, 1))};
        if (flag(element, "containment", file))
            facts.emplace_back(u"contained");
        std::string_view opposite = element.attribute("eOpposite");
        for (const XmlElement& child : element.children)
            if (child.name == "eOpposite")
                opposite = child.attribute("href");
        if (!opposite.empty())
            facts.push_back(u"opposite " + fromUtf8(lastPart(opposite)));
        if (flag(element, "iD", file))
            facts.emplace_back(u"identifies");
        if (flag(element, "derived", file))
            facts.emplace_back(u"derived");
        if (feature.classifier && !feature.isReference)
            facts.push_back(u"one of " + result_.classifiers[*feature.classifier].name);
        if (const std::string_view value = element.attribute("defaultValueLiteral"); !value.empty())
            facts.push_back(u"default " + fromUtf8(value));
        return facts;
    }

    // References.

    struct Type {
        std::optional<ClassifierIndex> classifier;
        bool isEnumeration = false;
        bool isDataType = false;
        DataType dataType = DataType::String;
    };

    static std::u16string shown(const Reference& reference) {
        return inQuotes(fromUtf8(reference.document + "#" + reference.fragment));
    }

    /// A class is wanted, or an enumeration or data type.
    Type resolve(const Reference& reference, const Spot& spot, bool wantsClass) {
        constexpr int kMostParameters = 16;
        Reference each = reference;
        std::size_t file = spot.file;
        for (int i = 0; i < kMostParameters; ++i) {
            const Index::Found found = index_.find(each, file);
            if (found.isElsewhere)
                return elsewhere(each, wantsClass);
            if (found.target == nullptr)
                files_.refuse(spot, u"there is no classifier " + shown(reference));
            if (found.typeParameter == nullptr)
                return typeOf(*found.target);
            const std::vector<Reference> bounds = boundsOf(*found.typeParameter);
            if (bounds.empty())
                break;
            each = bounds.front();
            file = found.target->spot.file;
        }
        return {};
    }

    [[nodiscard]] Type typeOf(const Target& target) const {
        if (!target.classifier)
            return {std::nullopt, false, true, target.dataType};
        return {target.classifier, result_.classifiers[*target.classifier].isEnumeration, false};
    }

    /// What stands for a type parameter: the first of its bounds.
    static std::vector<Reference> boundsOf(const XmlElement& parameter) {
        for (const XmlElement& bound : parameter.children) {
            if (bound.name != "eBounds")
                continue;
            const std::string_view classifier = bound.attribute("eClassifier");
            return referencesIn(classifier.empty() ? bound.attribute("eTypeParameter") : classifier);
        }
        return {};
    }

    Type elsewhere(const Reference& reference, bool wantsClass) {
        const std::string_view name = lastPart(reference.fragment);
        if (!wantsClass) {
            const bool isStandard = reference.document == kEcore || lastPart(reference.document) == "XMLType";
            const std::optional<DataType> known = isStandard ? standardType(name) : std::nullopt;
            if (!isStandard)
                ++result_.notTaken["data type or enumeration of a file that is not read"];
            return {std::nullopt, false, true, known.value_or(DataType::String)};
        }
        const auto [place, isNew] =
            elsewhere_.try_emplace(reference.document + "#" + reference.fragment, result_.classifiers.size());
        if (isNew) {
            Classifier classifier;
            classifier.name = fromUtf8(name.empty() ? std::string_view("unnamed") : name);
            classifier.package = packageElsewhere(reference.document);
            classifier.description = u"named here, described in " + fromUtf8(reference.document);
            result_.classifiers.push_back(std::move(classifier));
        }
        return {place->second, false, false};
    }

    std::size_t packageElsewhere(const std::string& document) {
        const auto [place, isNew] = packagesElsewhere_.try_emplace(document, result_.packages.size());
        if (isNew)
            result_.packages.push_back({fromUtf8(lastPart(document)), fromUtf8(document), false, true});
        return place->second;
    }

    Files files_;
    Index index_;
    std::deque<XmlElement> trees_;
    std::vector<Body> bodies_;
    std::map<std::string, ClassifierIndex> elsewhere_;
    std::map<std::string, std::size_t> packagesElsewhere_;
    Metamodel result_;
};

}  // namespace

Metamodel readEcore(const std::vector<std::filesystem::path>& files, const OpenSource& open,
                    const ReportProgress& report) {
    return EcoreReader(files, open, report).run();
}

}  // namespace quorel::repository::metamodel
