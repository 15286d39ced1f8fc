#include <algorithm>
#include <initializer_list>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>

#include "platform/automation/text.h"
#include "repository/errors.h"
#include "repository/import/json_lines.h"
#include "repository/import/json_text.h"
#include "repository/import/json_values.h"
#include "repository/type_info.h"

namespace quorel::repository {

namespace {

using automation::fromUtf8;
using Json = nlohmann::ordered_json;

[[noreturn]] void refuse(std::u16string reason) {
    throw failure(error_number::kBadFileFormat, std::move(reason));
}

/// Refuses members that the line's kind does not have, so that a slip of the pen is not lost in silence.
void allow(const Json& object, std::initializer_list<std::string_view> names) {
    for (const auto& [name, value] : object.items())
        if (std::find(names.begin(), names.end(), name) == names.end())
            refuse(u"there is no member " + inQuotes(fromUtf8(name)) + u" here");
}

std::u16string textMember(const Json& object, const char* name) {
    const auto found = object.find(name);
    if (found == object.end())
        refuse(u"the member " + inQuotes(fromUtf8(name)) + u" is missing");
    if (!found->is_string())
        refuse(u"the member " + inQuotes(fromUtf8(name)) + u" is no text");
    return unsealed(found->get_ref<const std::string&>());
}

std::u16string textOrEmpty(const Json& object, const char* name) {
    return object.contains(name) ? textMember(object, name) : std::u16string();
}

const Json& listMember(const Json& object, const char* name) {
    static const Json kNone = Json::array();
    const auto found = object.find(name);
    if (found == object.end())
        return kNone;
    if (!found->is_array())
        refuse(u"the member " + inQuotes(fromUtf8(name)) + u" is no list");
    return *found;
}

class Import {
  public:
    Import(Store& store, LineReader& lines, std::uint64_t total, const ReportProgress& report)
        : store_(store), lines_(lines), total_(total), report_(report) {}

    JsonCounts run() {
        std::string_view line;
        while (lines_.next(line)) {
            if (lines_.lineNumber() == 1 && line.starts_with("\xEF\xBB\xBF"))
                line.remove_prefix(3);
            if (line.find_first_not_of(" \t") != std::string_view::npos)
                readLine(line);
            report_({"Importing", lines_.bytesRead(), total_});
        }
        if (!hasHeader_)
            throw lines_.error(lines_.lineNumber(), "the first line {\"quorel\":1} is missing");
        return counts_;
    }

  private:
    void readLine(std::string_view line) {
        try {
            const Json object = Json::parse(sealSurrogates(line));
            if (!object.is_object())
                refuse(u"the line is no JSON object");
            readObject(object);
        } catch (const Json::exception& error) {
            // The library's text begins with a code of its own in brackets.
            const std::string_view words = error.what();
            throw lines_.error(lines_.lineNumber(),
                               words.substr(std::min(words.find("] ") + 2, words.size())));
        } catch (const automation::Error& error) {
            throw lines_.error(lines_.lineNumber(), automation::toUtf8(error.description()));
        }
    }

    void readObject(const Json& object) {
        if (!hasHeader_)
            return readHeader(object);
        if (object.contains("node"))
            return readNode(object);
        if (object.contains("link"))
            return readLink(object);
        if (object.contains("metaNode"))
            return readMetaNode(object);
        if (object.contains("metaLink"))
            return readMetaLink(object);
        refuse(u"the line is none of metaNode, metaLink, node, link");
    }

    void readHeader(const Json& object) {
        const auto version = object.find("quorel");
        if (version == object.end())
            refuse(u"the first line {\"quorel\":1} is missing");
        if (*version != 1)
            refuse(u"the file is of another version of the format than 1");
        allow(object, {"quorel", "properties"});
        if (const auto properties = object.find("properties"); properties != object.end())
            for (const auto& [name, value] : properties->items()) {
                if (!value.is_string())
                    refuse(u"the property " + inQuotes(unsealed(name)) + u" is no text");
                store_.setRepositoryProperty(unsealed(name), unsealed(value.get_ref<const std::string&>()));
            }
        hasHeader_ = true;
    }

    void readMetaNode(const Json& object) {
        allow(object, {"metaNode", "description", "dynamic", "properties"});
        MetaRecord record;
        record.name = textMember(object, "metaNode");
        addType(std::move(record), object);
    }

    void readMetaLink(const Json& object) {
        allow(object, {"metaLink", "source", "target", "description", "dynamic", "properties"});
        MetaRecord record;
        record.kind = Kind::Link;
        record.name = textMember(object, "metaLink");
        record.source = typeNamed(Kind::Node, textMember(object, "source")).record().id;
        record.target = typeNamed(Kind::Node, textMember(object, "target")).record().id;
        addType(std::move(record), object);
    }

    void addType(MetaRecord record, const Json& object) {
        if (record.name.empty())
            refuse(u"the name is empty");
        record.description = textOrEmpty(object, "description");
        record.dynamic = object.value("dynamic", false);
        record.id = store_.addMeta(record);
        std::vector<std::u16string> names;
        for (const Json& definition : listMember(object, "properties")) {
            PropertyRecord property = propertyOf(definition);
            std::u16string folded = automation::foldCase(property.name);
            if (std::find(names.begin(), names.end(), folded) != names.end())
                refuse(u"the property " + inQuotes(property.name) + u" stands twice");
            names.push_back(std::move(folded));
            store_.addMetaProperty(record.id, property);
        }
        auto& types = record.kind == Kind::Node ? nodeTypes_ : linkTypes_;
        std::u16string name = record.name;
        types.emplace(std::move(name), std::move(record)).first->second.refresh(store_);
    }

    static PropertyRecord propertyOf(const Json& definition) {
        if (!definition.is_object())
            refuse(u"a property is no JSON object");
        allow(definition, {"name", "datatype", "description", "category", "values"});
        PropertyRecord property;
        property.name = textMember(definition, "name");
        const std::u16string typeName = textMember(definition, "datatype");
        const std::optional<DataType> type = dataTypeNamed(typeName);
        if (property.name.empty() || !type)
            refuse(property.name.empty()
                       ? u"a property needs a name"
                       : inQuotes(typeName) + u" is no data type; there are " + dataTypeNames());
        property.type = *type;
        property.description = textOrEmpty(definition, "description");
        property.category = textOrEmpty(definition, "category");
        for (const Json& value : listMember(definition, "values")) {
            if (!value.is_string())
                refuse(u"a value of the property " + inQuotes(property.name) + u" is no text");
            property.values.push_back(unsealed(value.get_ref<const std::string&>()));
        }
        if ((property.type == DataType::Enumeration) == property.values.empty())
            refuse(u"the property " + inQuotes(property.name) +
                   u" must have values exactly when it is an enumeration");
        return property;
    }

    TypeInfo& typeNamed(Kind kind, const std::u16string& name) {
        auto& types = kind == Kind::Node ? nodeTypes_ : linkTypes_;
        const auto found = types.find(name);
        if (found == types.end())
            refuse((kind == Kind::Node ? u"there is no meta node named " : u"there is no meta link named ") +
                   inQuotes(name));
        return found->second;
    }

    static std::u16string identifierOf(const Json& object, const char* member) {
        std::u16string identifier = textMember(object, member);
        if (identifier.empty())
            refuse(u"the identifier is empty");
        return identifier;
    }

    void readNode(const Json& object) {
        allow(object, {"node", "type", "name", "properties"});
        TypeInfo& type = typeNamed(Kind::Node, textMember(object, "type"));
        const ElementId node =
            store_.addNode(type.record().id, textOrEmpty(object, "name"), identifierOf(object, "node"));
        readValues(object, Kind::Node, node, type);
        ++counts_.nodes;
    }

    void readLink(const Json& object) {
        allow(object, {"link", "type", "name", "source", "target", "detached", "properties"});
        TypeInfo& type = typeNamed(Kind::Link, textMember(object, "type"));
        const ElementId source = nodeIdentified(textMember(object, "source"), type.record().source);
        const ElementId target = nodeIdentified(textMember(object, "target"), type.record().target);
        const ElementId link = store_.addLink(type.record().id, textOrEmpty(object, "name"),
                                              identifierOf(object, "link"), source, target);
        for (const Json& end : listMember(object, "detached")) {
            if (end != "source" && end != "target")
                refuse(u"a link is detached from its source or its target");
            store_.detach(link, end == "source" ? Direction::Outgoing : Direction::Incoming);
        }
        readValues(object, Kind::Link, link, type);
        ++counts_.links;
    }

    ElementId nodeIdentified(const std::u16string& identifier, MetaId type) {
        const std::optional<ElementId> found =
            store_.find({Kind::Node, type, std::nullopt, ElementId{}}, identifier);
        if (!found)
            refuse(u"there is no node with the identifier " + inQuotes(identifier) +
                   u" of the type that the link joins");
        return *found;
    }

    void readValues(const Json& object, Kind kind, ElementId element, TypeInfo& type) {
        const auto values = object.find("properties");
        if (values == object.end())
            return;
        if (!values->is_object())
            refuse(u"the properties are no JSON object");
        for (const auto& [name, value] : values->items()) {
            const PropertySlot* slot = type.find(unsealed(name));
            if (slot == nullptr || !slot->declared || slot->origin != PropertySlot::Origin::Stored)
                refuse(inQuotes(type.record().name) + u" has no property named " + inQuotes(unsealed(name)));
            store_.setValue(kind, element, slot->record.id, valueOf(value, slot->record));
        }
    }

    Store& store_;
    LineReader& lines_;
    std::uint64_t total_;
    const ReportProgress& report_;
    bool hasHeader_ = false;
    std::unordered_map<std::u16string, TypeInfo> nodeTypes_, linkTypes_;
    JsonCounts counts_;
};

}  // namespace

JsonCounts importJsonLines(Store& store, LineReader& lines, std::uint64_t total,
                           const ReportProgress& report) {
    return Import(store, lines, total, report).run();
}

}  // namespace quorel::repository
