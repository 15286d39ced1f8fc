#pragma once

#include <initializer_list>
#include <memory>
#include <string>

#include "diagram/diagram_model.h"
#include "diagram/diagram_sizes.h"

namespace quorel::diagram::samples {

/// Every unit 12 twips wide for each point of the font, 24 high.
[[nodiscard]] inline ui::Size evenSize(std::u16string_view line, const ui::Font& font) {
    const std::int32_t points = font.points > 0 ? font.points : 9;
    return {{static_cast<std::int32_t>(line.size()) * points * 12}, {points * 24}};
}

[[nodiscard]] inline Box metaClass(const std::u16string& name,
                                   std::initializer_list<PropertyLine> properties = {}) {
    Box box;
    box.key = box.text = u"<<MetaClass>> \r\n" + name;
    box.place = {{}, {}, {3000}, {1500}};
    box.properties = properties;
    box.alignedToText = true;
    return box;
}

[[nodiscard]] inline Connection metaAssoc(const std::u16string& name, std::size_t from, std::size_t to,
                                          std::initializer_list<PropertyLine> properties = {}) {
    Connection connection;
    connection.key = connection.text = u"<<MetaAssoc>> " + name;
    connection.from = from;
    connection.to = to;
    connection.properties = properties;
    connection.alignedToText = properties.size() > 0;
    return connection;
}

[[nodiscard]] inline std::shared_ptr<DiagramModel> emptyModel() {
    auto model = std::make_shared<DiagramModel>();
    model->labelFont = {u"Courier New", 15};
    model->sectionFont = {u"Courier New", 10};
    return model;
}

/// Persons know each other, work for companies and live in cities.
[[nodiscard]] inline std::shared_ptr<DiagramModel> people() {
    auto model = emptyModel();
    model->addBox(metaClass(u"Person", {{u"Age", u"Integer"}, {u"Born", u"Date"}}));
    model->addBox(metaClass(u"Company", {{u"Founded", u"Date"}}));
    model->addBox(metaClass(u"City"));
    model->addConnection(metaAssoc(u"Knows", 0, 0));
    model->addConnection(metaAssoc(u"WorksFor", 0, 1, {{u"Since", u"Date"}}));
    model->addConnection(metaAssoc(u"LivesIn", 0, 2));
    return model;
}

/// True if they have some area in common.
[[nodiscard]] inline bool overlap(const ui::Rect& a, const ui::Rect& b) {
    return a.left < b.right() && b.left < a.right() && a.top < b.bottom() && b.top < a.bottom();
}

[[nodiscard]] inline bool holds(const ui::Rect& outer, const ui::Rect& inner) {
    return outer.left <= inner.left && outer.top <= inner.top && inner.right() <= outer.right() &&
           inner.bottom() <= outer.bottom();
}

}  // namespace quorel::diagram::samples
