#include "diagram/diagram_files.h"

#include <cmath>
#include <filesystem>
#include <ostream>

#include "diagram/export_svg.h"
#include "platform/automation/error.h"
#include "platform/automation/text.h"
#include "platform/shell/whole_file.h"

namespace quorel::diagram {

namespace {

constexpr std::int32_t kBadFileName = 52;
constexpr std::int32_t kPictureResolution = 192;

[[noreturn]] void fail(std::int32_t number, std::u16string_view path, std::u16string_view what) {
    throw automation::Error(number, (std::u16string(path) += u": ") += what, u"QuorelUtility");
}

/// Draws everything, from the drawing's left top corner on.
class WholeDrawing {
  public:
    WholeDrawing(const std::shared_ptr<const DiagramModel>& model, const Measure& measure)
        : drawing_(model, measure) {}

    [[nodiscard]] ui::Size size() const noexcept { return drawing_.extent().size(); }
    void operator()(ui::Canvas& canvas) const {
        const ui::Rect extent = drawing_.extent();
        canvas.setView({{{}, {}, extent.width, extent.height}, {extent.left, extent.top}, 1});
        drawing_.drawAll(canvas);
    }

  private:
    DiagramDrawing drawing_;
};

void saveSvg(std::u16string_view path, const std::shared_ptr<const DiagramModel>& model,
             const Measure& measure) {
    const std::string document = exportSvg(model, measure);
    const bool isWritten = shell::replaceFile(std::filesystem::path(path),
                                              [&document](std::ostream& file) { file << document; });
    if (!isWritten)
        fail(automation::error_number::kPathFileAccess, path, u"The file cannot be written");
}

}  // namespace

std::u16string_view diagramFileTypes() noexcept {
    return u"Scalable drawing (*.svg)|*.svg|Picture (*.png)|*.png|Windows metafile (*.emf)|*.emf";
}

std::u16string saveDiagram(std::u16string_view path, const std::shared_ptr<const DiagramModel>& model,
                           const Measure& measure, ui::DrawingExport* service) {
    const std::u16string saved = std::u16string(u"Saved in ") += path;
    const std::u16string extension =
        automation::foldCase(std::filesystem::path(path).extension().u16string());
    if (extension == automation::foldCase(kDiagramExtension)) {
        saveSvg(path, model, measure);
        return saved;
    }
    const bool isPng = extension == automation::foldCase(u".png");
    if (!isPng && extension != automation::foldCase(u".emf"))
        fail(kBadFileName, path, u"A diagram is saved as .svg, .png or .emf");
    if (service == nullptr)
        fail(automation::error_number::kPathFileAccess, path, u"Only .svg can be written here");
    const WholeDrawing drawing(model, measure);
    const auto painter = [&drawing](ui::Canvas& canvas) { drawing(canvas); };
    if (!isPng) {
        service->writeEmf(path, drawing.size(), painter);
        return saved;
    }
    const double dpi = service->writePng(path, drawing.size(), kPictureResolution, painter);
    if (dpi >= kPictureResolution)
        return saved;
    return saved + u", drawn with " + automation::decimal(std::lround(dpi)) +
           u" dots per inch since it is large";
}

bool printDiagram(std::u16string_view title, const std::shared_ptr<const DiagramModel>& model,
                  const Measure& measure, ui::DrawingExport& service, ui::Form* owner) {
    const WholeDrawing drawing(model, measure);
    return service.print(
        title, drawing.size(), [&drawing](ui::Canvas& canvas) { drawing(canvas); }, owner);
}

}  // namespace quorel::diagram
