#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "diagram/diagram_model.h"
#include "platform/automation/class_table.h"
#include "platform/automation/native_object.h"

namespace quorel::diagram {

/// What a diagram object and its boxes and connections share.
struct DiagramContent {
    DiagramModel model;
    bool isArranged = false;  ///< nothing that has a place came or changed since
    bool isInRows = false;    ///< the user has cancelled the layout
    bool isPlaced = false;    ///< the host gave boxes their places, and no layout has changed them
};

/// A box or a connection of a diagram, for the host.
class DiagramElement final : public automation::NativeObject {
  public:
    enum class Kind : std::uint8_t { Box, Connection };

    DiagramElement(std::shared_ptr<DiagramContent> content, Kind kind, std::size_t index)
        : content_(std::move(content)), kind_(kind), index_(index) {}
    [[nodiscard]] const automation::ClassTable& classTable() const override;

    /// Adds a line to the section: `name : type` if `showType`, else the name alone. What is shown of the
    /// type: see `propertyType`.
    void AddProperty(const std::u16string& name, const std::u16string& typeName,
                     const automation::Value& dataType, bool showType);
    /// Of a box: it is as large as what it holds; a box that is not keeps the size that it was made with, and
    /// what does not fit is cut. Of a connection: its properties are shown.
    void AlignToText(bool align);

  private:
    std::shared_ptr<DiagramContent> content_;
    Kind kind_;
    std::size_t index_;
};

}  // namespace quorel::diagram
