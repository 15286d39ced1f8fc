#include "diagram/export_svg.h"

#include "diagram/diagram_drawing.h"
#include "diagram/svg_canvas.h"

namespace quorel::diagram {

std::string exportSvg(const std::shared_ptr<const DiagramModel>& model, const Measure& measure) {
    const DiagramDrawing drawing(model, measure);
    const ui::Rect extent = drawing.extent();
    SvgCanvas canvas(extent.size(), measure);
    canvas.setView({{{}, {}, extent.width, extent.height}, {extent.left, extent.top}, 1});
    drawing.drawAll(canvas);
    return canvas.finish();
}

}  // namespace quorel::diagram
