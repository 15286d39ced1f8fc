#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "repository/import/ecore_names.h"
#include "repository/import/metamodel.h"
#include "repository/import/metamodel_files.h"
#include "repository/import/xml_tree.h"

namespace quorel::repository::metamodel::ecore {

/// A classifier of the files: a class or an enumeration, or a data type.
struct Target {
    Spot spot;
    const XmlElement* element = nullptr;
    std::optional<ClassifierIndex> classifier;  ///< none: a data type
    DataType dataType = DataType::String;
};

struct PackageNode {
    Spot spot;
    std::map<std::string_view, std::unique_ptr<PackageNode>> packages;
    std::map<std::string_view, Target> classifiers;
};

/// Finds classifiers by the references of Ecore models. Keeps views of the names in the trees it is told of.
class Index {
  public:
    explicit Index(const Files& files);

    /// An outermost package of the file.
    PackageNode& addRoot(std::size_t file, const Spot& spot);
    void addAddress(std::string_view address, PackageNode& package);
    void addIdentifier(std::size_t file, std::string_view identifier, const Target& target);

    /// What the reference means, seen from the file.
    struct Found {
        const Target* target = nullptr;             ///< null: none of the files has it
        const XmlElement* typeParameter = nullptr;  ///< of the target, when that is meant
        bool isElsewhere = false;                   ///< in a document that is none of the files
    };
    [[nodiscard]] Found find(const Reference& reference, std::size_t file) const;

  private:
    struct Document {
        std::vector<std::unique_ptr<PackageNode>> roots;
        std::map<std::string_view, Target> byIdentifier;
    };
    [[nodiscard]] Found findPath(const PackageNode& root, std::string_view path) const;
    [[nodiscard]] Found findIn(const Document& document, std::string_view fragment) const;

    std::vector<Document> documents_;
    std::map<std::string, std::size_t, std::less<>> byFileName_;
    std::map<std::string_view, PackageNode*> byAddress_;
    const Files& files_;
};

}  // namespace quorel::repository::metamodel::ecore
