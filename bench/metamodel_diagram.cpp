#include "metamodel_diagram.h"

#include <unordered_map>

#include "diagram/diagram_model.h"
#include "diagram/diagram_sizes.h"
#include "repository/sqlite/sqlite_store.h"

namespace quorel::bench {

namespace {

using repository::Kind;
using repository::MetaId;
using repository::PropertyId;
using repository::Store;

std::vector<diagram::PropertyLine> propertiesOf(Store& store, MetaId owner) {
    std::vector<diagram::PropertyLine> lines;
    for (const auto& property : store.metaProperties(owner, PropertyId{}))
        lines.push_back({property.name, std::u16string(repository::dataTypeName(property.type))});
    return lines;
}

diagram::DiagramModel modelOf(Store& store) {
    diagram::DiagramModel model;
    model.labelFont = {u"Courier New", 15};
    model.sectionFont = {u"Courier New", 10};
    std::unordered_map<MetaId, std::size_t> boxes;
    for (const MetaId id : store.metas({Kind::Node, std::nullopt, MetaId{}})) {
        diagram::Box box;
        box.key = u"<<MetaClass>> \r\n" + store.meta(id)->name;
        box.text = box.key;
        box.properties = propertiesOf(store, id);
        box.alignedToText = true;
        boxes[id] = model.addBox(std::move(box));
    }
    for (const MetaId id : store.metas({Kind::Link, std::nullopt, MetaId{}})) {
        const auto record = store.meta(id);
        diagram::Connection connection;
        connection.key = u"<<MetaAssoc>> " + record->name;
        connection.text = connection.key;
        connection.from = boxes.at(record->source);
        connection.to = boxes.at(record->target);
        connection.properties = propertiesOf(store, id);
        connection.alignedToText = !connection.properties.empty();
        model.addConnection(std::move(connection));
    }
    return model;
}

ui::Size measured(std::u16string_view line, const ui::Font& font) {
    constexpr std::int32_t kTwipsPerPoint = 20;
    const std::int32_t em = font.points * kTwipsPerPoint;
    return {{static_cast<std::int32_t>(line.size()) * em * 6 / 10}, {em * 12 / 10}};
}

}  // namespace

diagram::layout::Diagram metamodelDiagram(const std::u16string& file) {
    const auto store = repository::sqlite::openStore(file);
    diagram::DiagramModel model = modelOf(*store);
    diagram::fitSizes(model, measured);
    diagram::layout::Diagram result;
    for (const diagram::Box& box : model.boxes)
        result.boxes.push_back({box.place.width.value, box.place.height.value});
    for (const diagram::Connection& connection : model.connections)
        result.connections.push_back(
            {connection.from, connection.to, {connection.label.width.value, connection.label.height.value}});
    return result;
}

}  // namespace quorel::bench
