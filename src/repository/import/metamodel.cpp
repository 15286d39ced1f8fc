#include "repository/import/metamodel.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

#include "platform/automation/text.h"

namespace quorel::repository::metamodel {

namespace {

using automation::decimal;

/// Names of one kind, each given once.
class Names {
  public:
    enum class Case { Matters, IsIgnored };
    explicit Names(Case letters) : letters_(letters) {}

    [[nodiscard]] bool take(const std::u16string& name) {
        return taken_.insert(letters_ == Case::Matters ? name : automation::foldCase(name)).second;
    }
    /// The number that makes the name a new one: 0 for none, or else from 2.
    [[nodiscard]] std::int64_t number(const std::u16string& before, const std::u16string& after = {}) {
        if (take(before + after))
            return 0;
        std::int64_t& last = last_[before];
        last = std::max<std::int64_t>(last, 1);
        while (!take(before + u"_" + decimal(++last) + after)) {
        }
        return last;
    }

  private:
    Case letters_;
    std::unordered_set<std::u16string> taken_;
    std::unordered_map<std::u16string, std::int64_t> last_;
};

std::u16string numbered(const std::u16string& name, std::int64_t number) {
    return number == 0 ? name : name + u"_" + decimal(number);
}

/// Types of these names are the metamodel's own, which diagrams leave out.
bool isReserved(const std::u16string& name) {
    return name == u"MetaNode" || name == u"MetaLink" || name == u"MetaProperty";
}

class Writer {
  public:
    Writer(Store& store, const Metamodel& metamodel) : store_(store), metamodel_(metamodel) {
        outcome_.notTaken = metamodel.notTaken;
    }

    Outcome run() {
        nameClassifiers();
        for (ClassifierIndex i = 0; i < metamodel_.classifiers.size(); ++i)
            addMetaNode(i);
        for (ClassifierIndex i = 0; i < metamodel_.classifiers.size(); ++i)
            addMetaLinks(i);
        return std::move(outcome_);
    }

  private:
    /// Classifiers whose name no other one has keep it, so they are named first.
    void nameClassifiers() {
        std::unordered_map<std::u16string, int> uses;
        for (const Classifier& classifier : metamodel_.classifiers)
            ++uses[classifier.name];
        const auto isAlone = [&](const Classifier& classifier) {
            return uses.at(classifier.name) == 1 && !isReserved(classifier.name);
        };
        names_.resize(metamodel_.classifiers.size());
        Names taken(Names::Case::Matters);
        for (const bool alone : {true, false})
            for (ClassifierIndex i = 0; i < names_.size(); ++i) {
                const Classifier& classifier = metamodel_.classifiers[i];
                if (isAlone(classifier) != alone)
                    continue;
                const std::u16string& package = metamodel_.packages.at(classifier.package).name;
                const std::u16string full = alone ? classifier.name : package + u":" + classifier.name;
                names_[i] = numbered(full, taken.number(full));
                noteRenamed(classifier.name, names_[i]);
            }
    }

    void noteRenamed(const std::u16string& name, const std::u16string& newName) {
        if (name != newName)
            outcome_.renamed.push_back(name + u" is " + newName);
    }

    void addMetaNode(ClassifierIndex index) {
        const Classifier& classifier = metamodel_.classifiers[index];
        MetaRecord record;
        record.name = names_[index];
        record.description = classifier.description;
        const MetaId id = ids_.emplace_back(store_.addMeta(record));
        ++outcome_.metaNodes;
        Names taken(Names::Case::IsIgnored);
        for (const Feature& feature : classifier.features)
            if (!feature.isReference)
                addProperty(index, id, taken, attributeOf(feature));
        for (const Literal& literal : classifier.literals)
            addProperty(index, id, taken,
                        {{}, literal.value, DataType::Enumeration, literal.description, {literal.value}});
    }

    void addProperty(ClassifierIndex owner, MetaId id, Names& taken, PropertyRecord record) {
        const std::u16string name = numbered(record.name, taken.number(record.name));
        noteRenamed(names_[owner] + u"." + record.name, names_[owner] + u"." + name);
        record.name = name;
        store_.addMetaProperty(id, record);
        ++outcome_.properties;
    }

    [[nodiscard]] PropertyRecord attributeOf(const Feature& feature) const {
        PropertyRecord record{{}, feature.name, feature.dataType, feature.description, {}};
        if (feature.isMany) {
            record.type = DataType::MultiLine;
        } else if (feature.classifier) {
            for (const Literal& literal : metamodel_.classifiers.at(*feature.classifier).literals)
                record.values.push_back(literal.value);
            if (!record.values.empty())
                record.type = DataType::Enumeration;
        }
        return record;
    }

    void addMetaLinks(ClassifierIndex index) {
        const Classifier& classifier = metamodel_.classifiers[index];
        for (const ClassifierIndex supertype : classifier.supertypes)
            addMetaLink(index, u"extends", supertype, u"supertype");
        for (const Feature& feature : classifier.features)
            if (feature.classifier)
                addMetaLink(index, feature.name, *feature.classifier,
                            feature.isReference ? feature.description : u"values of the attribute");
    }

    void addMetaLink(ClassifierIndex source, const std::u16string& name, ClassifierIndex target,
                     const std::u16string& description) {
        const std::u16string before = names_[source] + u"." + name;
        const std::u16string after = u"." + names_[target];
        MetaRecord record;
        record.kind = Kind::Link;
        record.name = numbered(before, linkNames_.number(before, after)) + after;
        record.description = description;
        record.source = ids_[source];
        record.target = ids_[target];
        store_.addMeta(record);
        noteRenamed(before + after, record.name);
        ++outcome_.metaLinks;
    }

    Store& store_;
    const Metamodel& metamodel_;
    std::vector<std::u16string> names_;
    std::vector<MetaId> ids_;
    Names linkNames_{Names::Case::Matters};
    Outcome outcome_;
};

}  // namespace

Outcome write(Store& store, const Metamodel& metamodel) {
    return Writer(store, metamodel).run();
}

std::u16string described(const std::vector<std::u16string>& facts, std::u16string_view text) {
    std::u16string description;
    for (const std::u16string& fact : facts)
        description.append(description.empty() ? u"" : u", ").append(fact);
    if (!description.empty() && !text.empty())
        description += u'\n';
    return description.append(text);
}

std::u16string packageFact(const Package& package) {
    constexpr std::size_t kMost = 100;
    const bool fits = package.name.size() <= kMost;
    return u"package " + package.name.substr(0, kMost) + (fits ? u"" : u"...");
}

std::u16string multiplicity(std::int64_t lower, std::int64_t upper) {
    if (lower == upper)
        return decimal(lower);
    return decimal(lower) + u".." + (upper < 0 ? u"*" : decimal(upper));
}

}  // namespace quorel::repository::metamodel
