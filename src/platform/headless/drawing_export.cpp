#include "platform/headless/drawing_export.h"

#include "platform/automation/error.h"

namespace quorel::headless {

void DrawingExport::run(Kind kind, std::u16string_view target, ui::Size drawing, double dpi,
                        const Painter& painter) {
    if (fails_ && kind != Kind::Print) {
        std::u16string text = u"Cannot write the file ";
        text += target;
        throw automation::Error(automation::error_number::kPathFileAccess, text, u"DrawingExport");
    }
    Job job{kind, std::u16string(target), drawing, dpi, RecordingCanvas(wholeView(drawing))};
    painter(job.canvas);
    jobs_.push_back(std::move(job));
}

double DrawingExport::writePng(std::u16string_view path, ui::Size drawing, std::int32_t dpi,
                               const Painter& painter) {
    const double used = ui::exportResolution(drawing, dpi);
    run(Kind::Png, path, drawing, used, painter);
    return used;
}

void DrawingExport::writeEmf(std::u16string_view path, ui::Size drawing, const Painter& painter) {
    run(Kind::Emf, path, drawing, 0, painter);
}

bool DrawingExport::print(std::u16string_view title, ui::Size drawing, const Painter& painter, ui::Form*) {
    if (!cancels_)
        run(Kind::Print, title, drawing, 0, painter);
    return !cancels_;
}

}  // namespace quorel::headless
