#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "repository/data_type.h"
#include "repository/store.h"

/// Metamodels of others as far as a repository has a place for them, whatever file they came from: classes
/// with attributes, references and supertypes, and enumerations.
namespace quorel::repository::metamodel {

/// Index of a classifier in its metamodel.
using ClassifierIndex = std::size_t;

/// An attribute or a reference.
struct Feature {
    std::u16string name;
    std::u16string description;  ///< multiplicity, containment and the like, and what its makers wrote of it
    bool isMany = false;
    bool isReference = false;
    DataType dataType = DataType::String;       ///< of an attribute that has no enumeration
    std::optional<ClassifierIndex> classifier;  ///< what a reference leads to; an attribute's enumeration
};

struct Literal {
    std::u16string value;
    std::u16string description;
};

/// A class or an enumeration. A class that the files at hand name without describing it has nothing but its
/// names.
struct Classifier {
    std::u16string name;
    std::size_t package = 0;  ///< index of its package
    std::u16string description;
    bool isEnumeration = false;
    std::vector<ClassifierIndex> supertypes;
    std::vector<Feature> features;
    std::vector<Literal> literals;
};

/// How often each kind of thing was met for which there is no place.
using NotTaken = std::map<std::string, std::int64_t>;

struct Package {
    std::u16string name;       ///< tells classifiers of one name apart
    std::u16string address;    ///< what identifies it everywhere; may be empty
    bool isNested = false;     ///< stands within another one
    bool isNamedOnly = false;  ///< none of the files has it
};

struct Metamodel {
    std::vector<Package> packages;
    std::vector<Classifier> classifiers;
    NotTaken notTaken;
};

/// What came of an import.
struct Outcome {
    std::int64_t metaNodes = 0;
    std::int64_t metaLinks = 0;
    std::int64_t properties = 0;
    NotTaken notTaken;
    std::vector<std::u16string> renamed;  ///< "NAME is NEW NAME", for names that clashed
};

/// Writes the metamodel into an empty store: classifiers as meta nodes, attributes and literals as
/// properties, references, supertypes and the enumerations of attributes as meta links. What that means for
/// each is described in docs/metamodels.md.
Outcome write(Store& store, const Metamodel& metamodel);

/// Facts and a text of a description, the facts in one line with commas between.
[[nodiscard]] std::u16string described(const std::vector<std::u16string>& facts, std::u16string_view text);

/// "package NAME", cut to a length that can be shown.
[[nodiscard]] std::u16string packageFact(const Package& package);

/// "1", "0..1", "0..*" and the like; above is -1 for no bound.
[[nodiscard]] std::u16string multiplicity(std::int64_t lower, std::int64_t upper);

}  // namespace quorel::repository::metamodel
