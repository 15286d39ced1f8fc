#include "diagram/diagram_element.h"

#include <utility>

#include "diagram/property_type.h"

namespace quorel::diagram {

const automation::ClassTable& DiagramElement::classTable() const {
    using automation::param;
    static const automation::ClassTable table =
        automation::ClassTable::of<DiagramElement>(u"DiagramElement")
            .method(u"AddProperty", &DiagramElement::AddProperty,
                    {param(u"name"), param(u"typeName"), param(u"dataType"), param(u"showType")})
            .method(u"AlignToText", &DiagramElement::AlignToText, {param(u"align")});
    return table;
}

void DiagramElement::AddProperty(const std::u16string& name, const std::u16string& typeName,
                                 const automation::Value& dataType, bool showType) {
    PropertyLine line{name, showType ? propertyType(typeName, dataType) : std::u16string()};
    DiagramModel& model = content_->model;
    (kind_ == Kind::Box ? model.boxes[index_].properties : model.connections[index_].properties)
        .push_back(std::move(line));
    content_->isArranged = false;
}

void DiagramElement::AlignToText(bool align) {
    DiagramModel& model = content_->model;
    (kind_ == Kind::Box ? model.boxes[index_].alignedToText : model.connections[index_].alignedToText) =
        align;
    content_->isArranged = false;
}

}  // namespace quorel::diagram
