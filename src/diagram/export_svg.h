#pragma once

#include <memory>
#include <string>

#include "diagram/diagram_model.h"
#include "diagram/diagram_sizes.h"

namespace quorel::diagram {

/// The whole diagram, as it is arranged now, as an SVG document in UTF-8. `measure` is the one that it was
/// arranged with; the same diagram and measure give the same document to the byte.
[[nodiscard]] std::string exportSvg(const std::shared_ptr<const DiagramModel>& model, const Measure& measure);

}  // namespace quorel::diagram
