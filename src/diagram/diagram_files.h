#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "diagram/diagram_drawing.h"
#include "platform/ui/drawing_export.h"

namespace quorel::diagram {

/// What the file dialog offers: "description|pattern" with bars between.
[[nodiscard]] std::u16string_view diagramFileTypes() noexcept;
inline constexpr std::u16string_view kDiagramExtension = u".svg";

/// Writes the whole drawing, as it is arranged now, into a file of the kind that the path's extension names:
/// .svg, .png or .emf. `service` may be null; without one only .svg can be written. Throws automation::Error
/// with the path in its description when that fails; the file is then as it was. Returns what is to be told
/// the user.
[[nodiscard]] std::u16string saveDiagram(std::u16string_view path,
                                         const std::shared_ptr<const DiagramModel>& model,
                                         const Measure& measure, ui::DrawingExport* service);

/// Prints the whole drawing on one page; false when the user cancels.
[[nodiscard]] bool printDiagram(std::u16string_view title, const std::shared_ptr<const DiagramModel>& model,
                                const Measure& measure, ui::DrawingExport& service, ui::Form* owner);

}  // namespace quorel::diagram
