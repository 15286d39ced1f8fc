#include <ostream>
#include <string>
#include <unordered_map>

#include "repository/import/json_lines.h"
#include "repository/import/json_text.h"
#include "repository/import/json_values.h"

namespace quorel::repository {

namespace {

constexpr std::size_t kPage = 1024;

/// One line: an object whose members come in the order in which they are added.
class Line {
  public:
    Line& text(std::string_view name, std::u16string_view value) { return raw(name, jsonQuoted(value)); }
    Line& textUnlessEmpty(std::string_view name, std::u16string_view value) {
        return value.empty() ? *this : text(name, value);
    }
    Line& raw(std::string_view name, std::string_view json) {
        line_.append(line_.empty() ? "{\"" : ",\"").append(name).append("\":").append(json);
        return *this;
    }
    [[nodiscard]] std::string object() const { return line_.empty() ? "{}" : line_ + "}"; }

  private:
    std::string line_;
};

class Export {
  public:
    Export(Store& store, std::ostream& out, const ReportProgress& report)
        : store_(store), out_(out), report_(report) {}

    JsonCounts run() {
        writeHeader();
        for (const Kind kind : {Kind::Node, Kind::Link})
            for (const MetaId id : store_.metas({kind, std::nullopt, MetaId{}}))
                if (const auto record = store_.meta(id); record && record->persistent)
                    writeType(*record);
        total_ = static_cast<std::uint64_t>(elementCount(Kind::Node) + elementCount(Kind::Link));
        // All elements of a kind, in the order in which they were made, whatever their type.
        writeElements(Kind::Node);
        writeElements(Kind::Link);
        return counts_;
    }

  private:
    struct Type {
        MetaRecord record;
        std::vector<PropertyRecord> properties;
    };

    void writeLine(const Line& line) { out_ << line.object() << '\n'; }

    void writeHeader() {
        std::string properties;
        for (const RepositoryProperty& property : store_.repositoryProperties())
            properties.append(properties.empty() ? "{" : ",")
                .append(jsonQuoted(property.name))
                .append(":")
                .append(jsonQuoted(property.value));
        Line line;
        line.raw("quorel", "1").raw("properties", properties.empty() ? "{}" : properties + "}");
        writeLine(line);
    }

    static std::string definition(const PropertyRecord& property) {
        Line line;
        line.text("name", property.name).text("datatype", dataTypeName(property.type));
        line.textUnlessEmpty("description", property.description);
        line.textUnlessEmpty("category", property.category);
        if (property.type == DataType::Enumeration) {
            std::string values;
            for (const std::u16string& value : property.values)
                values.append(values.empty() ? "[" : ",").append(jsonQuoted(value));
            line.raw("values", values + "]");
        }
        return line.object();
    }

    void writeType(const MetaRecord& record) {
        Type& type = types_[record.id];
        type = {record, store_.metaProperties(record.id, PropertyId{})};
        Line line;
        line.text(record.kind == Kind::Node ? "metaNode" : "metaLink", record.name);
        if (record.kind == Kind::Link)
            line.text("source", types_.at(record.source).record.name)
                .text("target", types_.at(record.target).record.name);
        line.textUnlessEmpty("description", record.description);
        if (record.dynamic)
            line.raw("dynamic", "true");
        std::string properties;
        for (const PropertyRecord& property : type.properties)
            properties.append(properties.empty() ? "[" : ",").append(definition(property));
        if (!properties.empty())
            line.raw("properties", properties + "]");
        writeLine(line);
    }

    [[nodiscard]] std::int64_t elementCount(Kind kind) const {
        std::int64_t count = 0;
        for (const auto& [id, type] : types_)
            if (type.record.kind == kind)
                count += store_.count({kind, id, std::nullopt, ElementId{}});
        return count;
    }

    void writeElements(Kind kind) {
        // One cursor for each type, merged by row number.
        struct Cursor {
            const Type* type;
            std::vector<ElementId> page;
            std::size_t position;
        };
        std::vector<Cursor> cursors;
        for (const auto& [id, type] : types_)
            if (type.record.kind == kind)
                cursors.push_back({&type, page(type, ElementId{}), 0});
        for (;;) {
            Cursor* first = nullptr;
            for (Cursor& cursor : cursors)
                if (!cursor.page.empty() &&
                    (first == nullptr || cursor.page[cursor.position] < first->page[first->position]))
                    first = &cursor;
            if (first == nullptr)
                return;
            const ElementId id = first->page[first->position];
            writeElement(id, *first->type);
            if (++first->position == first->page.size()) {
                first->page = page(*first->type, id);
                first->position = 0;
            }
        }
    }

    [[nodiscard]] std::vector<ElementId> page(const Type& type, ElementId after) {
        return store_.page({type.record.kind, type.record.id, std::nullopt, ElementId{}}, after,
                           store_.last(type.record.kind), kPage);
    }

    void writeElement(ElementId id, const Type& type) {
        const Kind kind = type.record.kind;
        Line line;
        line.text(kind == Kind::Node ? "node" : "link", store_.identifier(kind, id).value_or(u""));
        line.text("type", type.record.name);
        line.textUnlessEmpty("name", store_.name(kind, id).value_or(u""));
        if (kind == Kind::Link)
            addEnds(line, id);
        std::string properties;
        for (const PropertyRecord& property : type.properties) {
            const automation::Value value = store_.value(kind, id, property.id, property.type);
            if (!value.isEmpty())
                properties.append(properties.empty() ? "{" : ",")
                    .append(jsonQuoted(property.name))
                    .append(":")
                    .append(jsonOf(value));
        }
        if (!properties.empty())
            line.raw("properties", properties + "}");
        writeLine(line);
        ++(kind == Kind::Node ? counts_.nodes : counts_.links);
        report_({"Exporting", static_cast<std::uint64_t>(counts_.nodes + counts_.links), total_});
    }

    void addEnds(Line& line, ElementId id) {
        const auto identifierOfEnd = [&](Direction direction) {
            const std::optional<ElementId> node = store_.end(id, direction);
            return node ? store_.identifier(Kind::Node, *node).value_or(u"") : std::u16string();
        };
        line.text("source", identifierOfEnd(Direction::Outgoing));
        line.text("target", identifierOfEnd(Direction::Incoming));
        std::string detached;
        if (!store_.isListed(id, Direction::Outgoing))
            detached = "\"source\"";
        if (!store_.isListed(id, Direction::Incoming))
            detached.append(detached.empty() ? "" : ",").append("\"target\"");
        if (!detached.empty())
            line.raw("detached", "[" + detached + "]");
    }

    Store& store_;
    std::ostream& out_;
    const ReportProgress& report_;
    std::unordered_map<MetaId, Type> types_;
    JsonCounts counts_;
    std::uint64_t total_ = 0;
};

}  // namespace

JsonCounts exportJsonLines(Store& store, std::ostream& out, const ReportProgress& report) {
    const Snapshot snapshot(store);
    return Export(store, out, report).run();
}

}  // namespace quorel::repository
