#include "repository/import/ecore_index.h"

#include <algorithm>
#include <charconv>

#include "platform/automation/text.h"
#include "repository/errors.h"

namespace quorel::repository::metamodel::ecore {

namespace {

/// The element's type parameter of that name.
const XmlElement* typeParameterOf(const XmlElement& element, std::string_view name) {
    const auto found =
        std::find_if(element.children.begin(), element.children.end(), [name](const XmlElement& child) {
            return child.name == "eTypeParameters" && child.attribute("name") == name;
        });
    return found == element.children.end() ? nullptr : &*found;
}

}  // namespace

Index::Index(const Files& files) : documents_(files.count()), files_(files) {
    for (std::size_t file = 0; file < files.count(); ++file)
        byFileName_.emplace(files.bareName(file), file);
}

PackageNode& Index::addRoot(std::size_t file, const Spot& spot) {
    auto& root = documents_.at(file).roots.emplace_back(std::make_unique<PackageNode>());
    root->spot = spot;
    return *root;
}

void Index::addAddress(std::string_view address, PackageNode& package) {
    if (address.empty())
        return;
    const auto [place, isNew] = byAddress_.emplace(address, &package);
    if (!isNew)
        files_.refuse(package.spot, u"the package " + inQuotes(automation::fromUtf8(address)) +
                                        u" stands already at " + files_.shown(place->second->spot));
}

void Index::addIdentifier(std::size_t file, std::string_view identifier, const Target& target) {
    if (!identifier.empty() && !documents_.at(file).byIdentifier.emplace(identifier, target).second)
        files_.refuse(target.spot,
                      u"the identifier " + inQuotes(automation::fromUtf8(identifier)) + u" stands twice");
}

Index::Found Index::find(const Reference& reference, std::size_t file) const {
    if (reference.document.empty())
        return findIn(documents_.at(file), reference.fragment);
    if (const auto package = byAddress_.find(reference.document); package != byAddress_.end())
        return reference.fragment.starts_with("//")
                   ? findPath(*package->second, std::string_view(reference.fragment).substr(2))
                   : Found();
    if (const auto named = byFileName_.find(lastPart(reference.document)); named != byFileName_.end())
        return findIn(documents_.at(named->second), reference.fragment);
    return {nullptr, nullptr, true};
}

Index::Found Index::findIn(const Document& document, std::string_view fragment) const {
    if (!fragment.starts_with('/')) {
        const auto found = document.byIdentifier.find(fragment);
        return {found == document.byIdentifier.end() ? nullptr : &found->second};
    }
    // "//A" is in the first package, "/1/A" in the second.
    fragment.remove_prefix(1);
    std::size_t root = 0;
    const std::size_t slash = std::min(fragment.find('/'), fragment.size());
    const auto [stopped, failed] = std::from_chars(fragment.data(), fragment.data() + slash, root);
    const bool isRoot = slash == 0 || (failed == std::errc() && stopped == fragment.data() + slash);
    if (!isRoot || root >= document.roots.size() || slash == fragment.size())
        return {};
    return findPath(*document.roots[root], fragment.substr(slash + 1));
}

Index::Found Index::findPath(const PackageNode& root, std::string_view path) const {
    const PackageNode* package = &root;
    for (;;) {
        const std::size_t slash = std::min(path.find('/'), path.size());
        const std::string_view name = path.substr(0, slash);
        const bool isLast = slash == path.size();
        const std::string_view rest = isLast ? std::string_view() : path.substr(slash + 1);
        if (const auto inner = package->packages.find(name); !isLast && inner != package->packages.end()) {
            package = inner->second.get();
            path = rest;
            continue;
        }
        const auto found = package->classifiers.find(name);
        if (found == package->classifiers.end())
            return {};
        if (isLast)
            return {&found->second};
        const XmlElement* const parameter = typeParameterOf(*found->second.element, rest);
        return parameter == nullptr ? Found() : Found{&found->second, parameter};
    }
}

}  // namespace quorel::repository::metamodel::ecore
