#include "diagram/diagram_view.h"

#include <string>
#include <utility>

#include "diagram/counted.h"
#include "diagram/palette.h"

namespace quorel::diagram {

using ui::Point;
using ui::Rect;
using ui::Twips;
using namespace ui::literals;

namespace {

/// Of a diagram that cannot be seen as a whole.
constexpr double kFirstScale = 0.5;
constexpr std::u16string_view kNothing = u"There is nothing to draw.";

[[nodiscard]] std::ptrdiff_t emphasised(std::optional<std::size_t> box) noexcept {
    return box ? static_cast<std::ptrdiff_t>(*box) : -1;
}

}  // namespace

DiagramView::DiagramView(std::u16string_view name, ui::Desktop& desktop)
    : Panel(name),
      desktop_(desktop),
      area_(add<ui::DrawingArea>(name)),
      overview_(add<Overview>(std::u16string(name) += u".Overview")) {
    area_.setBackground(palette::kPaper);
    area_.setPainter([this](ui::Canvas& canvas, const Rect& dirty) { paint(canvas, dirty); });
    overview_.setVisible(false);
    overview_.setPainterOfBoxes([this](ui::Canvas& canvas, Twips pixel) {
        if (drawing_)
            drawing_->drawOverview(canvas, pixel);
    });
    overview_.onWanted.connect([this](Point point) {
        shown_ = Shown::Part;
        view_.centreOn(point);
        viewChanged();
    });
    overview_.onWheel.connect([this](const ui::MouseEvent& event) {
        ui::MouseEvent here = event;
        here.at = view_.toWindow(overview_.toDrawing(event.at));
        wheelTurned(here);
    });
    connectMouse();
    describe();
}

void DiagramView::connectMouse() {
    area_.onMouseDown.connect([this](const ui::MouseEvent& event) { mouseDown(event); });
    area_.onMouseMove.connect([this](const ui::MouseEvent& event) { mouseMoved(event); });
    area_.onMouseUp.connect([this](const ui::MouseEvent& event) { mouseUp(event); });
    area_.onMouseLost.connect([this] { mouseLost(); });
    area_.onMouseLeave.connect([this] { hover(std::nullopt); });
    area_.onDoubleClick.connect([this](const ui::MouseEvent& event) { doubleClicked(event); });
    area_.onWheel.connect([this](const ui::MouseEvent& event) { wheelTurned(event); });
    area_.onKeyDown.connect([this](ui::KeyEvent& event) {
        if (!event.handled)
            event.handled = runKey(event.chord);
    });
    area_.onGotFocus.connect([this] { area_.invalidate(); });
    area_.onLostFocus.connect([this] { area_.invalidate(); });
}

void DiagramView::setModel(std::shared_ptr<DiagramModel> model) {
    gesture_.reset();
    selected_.reset();
    hovered_.reset();
    drawing_.reset();
    model_ = std::move(model);
    if (model_)
        drawing_ = std::make_unique<DiagramDrawing>(
            model_, [&desktop = desktop_](std::u16string_view line, const ui::Font& font) {
                return desktop.textSize(line, font);
            });
    view_.setExtent(drawing_ ? drawing_->extent() : Rect{});
    describe();
    shown_ = Shown::First;
    lookFirst();
    viewChanged();
}

/// All of it; where no name could be read then, the box with the most connections.
void DiagramView::lookFirst() {
    view_.fit();
    if (!drawing_ || model_->boxes.empty() || detailAt(*model_, view_.scale()) >= Detail::Names)
        return;
    std::size_t most = 0;
    for (std::size_t box = 1; box < model_->boxes.size(); ++box)
        if (drawing_->connectionsOf(box).size() > drawing_->connectionsOf(most).size())
            most = box;
    view_.setScale(kFirstScale);
    view_.centreOn(model_->boxes[most].place);
}

// What is seen.
// ------------------------------------------------------------------------

void DiagramView::boundsChanged() {
    area_.setBounds({0_tw, 0_tw, bounds().width, bounds().height});
    view_.setWindow(bounds().size());
    if (shown_ == Shown::First)
        lookFirst();
    else if (shown_ == Shown::Whole)
        view_.fit();
    viewChanged();
}

void DiagramView::viewChanged() {
    place();
    area_.invalidate();
    onViewChanged.raise();
}

void DiagramView::place() {
    const Rect where = placeOverview(bounds().size(), view_.extent().size());
    constexpr double kLarger = 1.01;
    const bool isWanted = where.width > 0_tw && drawing_ && !model_->boxes.empty() &&
                          view_.scale() > view_.fittingScale() * kLarger;
    if (isWanted) {
        overview_.setBounds(where);
        overview_.show(view_.extent(), view_.seen());
    }
    overview_.setVisible(isWanted);
}

void DiagramView::paint(ui::Canvas& canvas, const Rect& dirty) const {
    if (!drawing_ || model_->boxes.empty()) {
        paintNothing(canvas);
    } else {
        canvas.setView(view_.canvasView(dirty));
        const Point corner = view_.toDrawing(Point{dirty.left, dirty.top});
        const Point other = view_.toDrawing(Point{dirty.right(), dirty.bottom()});
        // A twip more all round, since corners are rounded.
        const Rect visible{corner.x - 1_tw, corner.y - 1_tw, other.x - corner.x + 2_tw,
                           other.y - corner.y + 2_tw};
        drawing_->draw(canvas, visible, view_.scale(), {emphasised(selected_), emphasised(hovered_)});
        canvas.setView({dirty, {dirty.left, dirty.top}, 1});
    }
    if (area_.hasFocus())
        canvas.drawRectangle(
            {0_tw, 0_tw, bounds().width - palette::kPixel, bounds().height - palette::kPixel},
            {palette::kAccent, palette::kPixel});
}

void DiagramView::paintNothing(ui::Canvas& canvas) const {
    const ui::Size size = desktop_.textSize(kNothing, {});
    canvas.fillRectangle({0_tw, 0_tw, bounds().width, bounds().height}, palette::kPaper);
    canvas.drawText({(bounds().width - size.width) / 2, (bounds().height - size.height) / 2}, kNothing, {},
                    palette::kStereotype);
}

void DiagramView::zoomIn() {
    shown_ = Shown::Part;
    view_.zoom(ViewState::kStep);
    viewChanged();
}

void DiagramView::zoomOut() {
    shown_ = Shown::Part;
    view_.zoom(1 / ViewState::kStep);
    viewChanged();
}

void DiagramView::fit() {
    shown_ = Shown::Whole;
    view_.fit();
    viewChanged();
}

void DiagramView::actualSize() {
    shown_ = Shown::Part;
    view_.setScale(1);
    viewChanged();
}

// Choosing.
// ------------------------------------------------------------------------

void DiagramView::select(std::optional<std::size_t> box) {
    selected_ = box;
    describe();
    area_.invalidate();
}

/// Whoever is told may end all this, so that comes last.
void DiagramView::choose(std::optional<std::size_t> box, bool hasMoved) {
    const bool isOther = selected_ != box;
    if (isOther)
        select(box);
    if (hasMoved)
        viewChanged();
    if (isOther)
        onSelect.raise();
}

/// What a screen reader says of it.
void DiagramView::describe() {
    if (!model_ || !selected_)
        return area_.setText(model_ && !model_->boxes.empty() ? u"Diagram" : kNothing);
    const Box& box = model_->boxes[*selected_];
    area_.setText(std::u16string(nameOf(box)) + u", " +
                  counted(box.properties.size(), u" property", u" properties") + u", " +
                  counted(drawing_->connectionsOf(*selected_).size(), u" connection", u" connections"));
}

void DiagramView::show(std::size_t box) {
    if (!drawing_ || box >= model_->boxes.size())
        return;
    shown_ = Shown::Part;
    hovered_.reset();
    if (detailAt(*model_, view_.scale()) != Detail::Full)
        view_.setScale(1);
    view_.centreOn(model_->boxes[box].place);
    choose(box, true);
}

std::optional<std::size_t> DiagramView::boxUnder(Point at) const {
    const std::ptrdiff_t box = drawing_ ? drawing_->boxAt(view_.toDrawing(at)) : -1;
    return box < 0 ? std::nullopt : std::optional(static_cast<std::size_t>(box));
}

}  // namespace quorel::diagram
