#include "repository/import/debian_model.h"

#include "platform/automation/text.h"

namespace quorel::repository::debian {

namespace {

using automation::fromUtf8;

MetaId addNodeType(Store& store, std::u16string_view name, std::u16string_view description) {
    MetaRecord record;
    record.name = name;
    record.description = description;
    return store.addMeta(record);
}

MetaId addLinkType(Store& store, std::string_view name, std::u16string_view description, MetaId source,
                   MetaId target) {
    MetaRecord record;
    record.kind = Kind::Link;
    record.name = fromUtf8(name);
    record.description = description;
    record.source = source;
    record.target = target;
    return store.addMeta(record);
}

PropertyId addProperty(Store& store, MetaId owner, std::u16string_view name, DataType type,
                       std::u16string_view description) {
    return store.addMetaProperty(owner, {{}, std::u16string(name), type, std::u16string(description), {}});
}

std::optional<PropertyId> addEnumeration(Store& store, MetaId owner, std::u16string_view name,
                                         std::u16string_view description,
                                         const std::set<std::string>& values) {
    if (values.empty())
        return std::nullopt;
    PropertyRecord record{{}, std::u16string(name), DataType::Enumeration, std::u16string(description), {}};
    for (const std::string& value : values)
        record.values.push_back(fromUtf8(value));
    return store.addMetaProperty(owner, record);
}

void addNodeTypes(Store& store, Model& model, const SeenValues& seen) {
    model.package = addNodeType(store, u"Package", u"A binary package that can be installed");
    model.version =
        addProperty(store, model.package, u"Version", DataType::String, u"The newest version in the lists");
    model.architecture = addEnumeration(store, model.package, u"Architecture",
                                        u"The machines the package is built for", seen.architectures);
    model.priority = addEnumeration(store, model.package, u"Priority", u"How much a system needs the package",
                                    seen.priorities);
    model.installedSize = addProperty(store, model.package, u"InstalledSize", DataType::Double,
                                      u"Kilobytes used when installed");
    model.size = addProperty(store, model.package, u"Size", DataType::Double, u"Bytes to download");
    model.description =
        addProperty(store, model.package, u"Description", DataType::String, u"What it is, in a line");
    model.homepage =
        addProperty(store, model.package, u"Homepage", DataType::String, u"The address of its makers");
    model.essential = addProperty(store, model.package, u"Essential", DataType::Boolean,
                                  u"A system does not work without it");
    model.multiArch =
        addEnumeration(store, model.package, u"MultiArch",
                       u"How it lives beside the same package of another machine", seen.multiArch);
    model.sourcePackage = addNodeType(store, u"SourcePackage", u"What packages are built from");
    model.maintainer = addNodeType(store, u"Maintainer", u"A person or team that looks after packages");
    model.address = addProperty(store, model.maintainer, u"Address", DataType::String, u"The e-mail address");
    model.section = addNodeType(store, u"Section", u"A department of the archive");
    model.tag = addNodeType(store, u"Tag", u"A facet that describes packages");
    model.virtualPackage =
        addNodeType(store, u"VirtualPackage",
                    u"A name that packages provide or relate to, without a package of its own here");
}

RelationType addRelation(Store& store, const Model& model, std::string_view middle, MetaId target,
                         std::string_view targetName) {
    const std::string name = "Package." + std::string(middle) + "." + std::string(targetName);
    RelationType type;
    type.link = addLinkType(store, name, {}, model.package, target);
    type.constraint =
        addProperty(store, type.link, u"Constraint", DataType::String, u"The versions that are meant");
    type.alternative = addProperty(store, type.link, u"Alternative", DataType::Integer,
                                   u"The place among alternatives, from 1; unset when there are none");
    return type;
}

void addLinkTypes(Store& store, Model& model) {
    for (std::size_t i = 0; i < kRelationFields.size(); ++i) {
        const std::string_view middle = kRelationFields.at(i).link;
        model.toPackage.at(i) = addRelation(store, model, middle, model.package, "Package");
        model.toVirtual.at(i) = addRelation(store, model, middle, model.virtualPackage, "VirtualPackage");
    }
    model.builtFrom = addLinkType(store, "Package.BuiltFrom.SourcePackage", u"The source of a package",
                                  model.package, model.sourcePackage);
    model.sourceVersion = addProperty(store, model.builtFrom, u"Version", DataType::String,
                                      u"The source's version where it is not the package's");
    model.maintainedBy = addLinkType(store, "Package.MaintainedBy.Maintainer", u"Who looks after a package",
                                     model.package, model.maintainer);
    model.in =
        addLinkType(store, "Package.In.Section", u"Where a package is filed", model.package, model.section);
    model.tagged =
        addLinkType(store, "Package.Tagged.Tag", u"What describes a package", model.package, model.tag);
}

}  // namespace

Model makeModel(Store& store, const SeenValues& seen) {
    Model model;
    addNodeTypes(store, model, seen);
    addLinkTypes(store, model);
    return model;
}

}  // namespace quorel::repository::debian
