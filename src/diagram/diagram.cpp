#include "diagram/diagram.h"

#include <cmath>
#include <utility>

#include "diagram/arrange_for_user.h"
#include "diagram/diagram_arrange.h"
#include "diagram/diagram_files.h"
#include "platform/automation/error.h"
#include "platform/automation/text.h"

namespace quorel::diagram {

using automation::Error;
using automation::Object;
using Kind = DiagramElement::Kind;
namespace error_number = automation::error_number;

namespace {

constexpr std::u16string_view kHierarchy = u"%HIERARCHY%";
constexpr std::u16string_view kInRows = u"The layout was cancelled: the boxes stand in rows";
constexpr std::int32_t kMostPoints = 400;
constexpr double kMostTwips = 100'000'000;
/// A header shows a picture smaller than that, and twice as large on fine screens.
constexpr std::int32_t kPictureHeight = 64;

[[nodiscard]] std::u16string inQuotes(std::u16string_view text) {
    std::u16string quoted(1, u'"');
    for (const char16_t unit : shownLine(text))
        quoted += unit;
    return quoted + u'"';
}

[[nodiscard]] ui::Twips lengthOf(double value) {
    if (std::isnan(value) || std::fabs(value) > kMostTwips)
        throw Error(error_number::kOverflow);
    return {static_cast<std::int32_t>(std::lround(value))};
}

[[nodiscard]] ui::Twips sizeOf(double value) {
    if (value < 0)
        throw Error(error_number::kInvalidCall, u"A box cannot be smaller than nothing");
    return lengthOf(value);
}

[[nodiscard]] ui::Font fontNamed(const std::u16string& name, std::int32_t points) {
    if (points < 1 || points > kMostPoints)
        throw Error(error_number::kInvalidCall, u"A font has 1 to 400 points");
    return {name, points};
}

/// The smallest one that is large enough, else the largest.
[[nodiscard]] std::shared_ptr<const ui::Picture> bestOf(std::vector<ui::Picture> frames) {
    ui::Picture* best = nullptr;
    for (ui::Picture& frame : frames) {
        if (!ui::isWhole(frame))
            continue;
        const bool isBetter =
            best == nullptr ||
            (best->height < kPictureHeight ? frame.height > best->height
                                           : frame.height >= kPictureHeight && frame.height < best->height);
        if (isBetter)
            best = &frame;
    }
    return best == nullptr ? nullptr : std::make_shared<const ui::Picture>(std::move(*best));
}

}  // namespace

const automation::ClassTable& Diagram::classTable() const {
    using automation::param;
    static const automation::ClassTable table =
        automation::ClassTable::of<Diagram>(u"Diagram")
            .method(u"Create", &Diagram::Create)
            .writeOnly(u"nodePicture", &Diagram::setNodePicture)
            .method(u"LabelFont", &Diagram::LabelFont, {param(u"name"), param(u"size")})
            .method(u"SectionFont", &Diagram::SectionFont, {param(u"name"), param(u"size")})
            .method(u"AddStandardButtons", &Diagram::AddStandardButtons)
            .method(u"createNode", &Diagram::createNode,
                    {param(u"key"), param(u"text"), param(u"left"), param(u"top"), param(u"width"),
                     param(u"height")})
            .method(u"getNode", &Diagram::getNode, {param(u"key")})
            .method(u"CreateLink", &Diagram::CreateLink,
                    {param(u"key"), param(u"text"), param(u"source"), param(u"target")})
            .method(u"getLink", &Diagram::getLink, {param(u"key")})
            .method(u"Layout", &Diagram::Layout, {param(u"name")})
            .method(u"PopUp", &Diagram::PopUp)
            .method(u"Destroy", &Diagram::Destroy);
    return table;
}

DiagramContent& Diagram::content() const {
    if (!content_)
        throw Error(error_number::kObjectNotSet);
    return *content_;
}

void Diagram::Create() {
    Destroy();
    content_ = std::make_shared<DiagramContent>();
    holder_.create(std::make_shared<frmDiagram>(environment_,
                                                std::shared_ptr<DiagramModel>(content_, &content_->model)));
}

void Diagram::Destroy() {
    content_.reset();
    holder_.destroy();
}

void Diagram::setNodePicture(const std::u16string& path) {
    DiagramModel& model = content().model;
    model.headerPicture = path.empty() ? nullptr : bestOf(environment_.desktop.loadPicture(path));
    content().isArranged = false;
}

void Diagram::LabelFont(const std::u16string& name, std::int32_t points) {
    content().model.labelFont = fontNamed(name, points);
    content().isArranged = false;
}

void Diagram::SectionFont(const std::u16string& name, std::int32_t points) {
    content().model.sectionFont = fontNamed(name, points);
    content().isArranged = false;
}

void Diagram::AddStandardButtons() {
    holder_.form()->AddStandardButtons();
}

void Diagram::createNode(const std::u16string& key, const std::u16string& text, double left, double top,
                         double width, double height) {
    DiagramContent& all = content();
    const ui::Rect place{lengthOf(left), lengthOf(top), sizeOf(width), sizeOf(height)};
    all.model.addBox({.key = key, .text = text, .place = place, .properties = {}});
    all.isArranged = false;
    if (place.left.value != 0 || place.top.value != 0)
        all.isPlaced = true;
}

Object Diagram::getNode(const std::u16string& key) const {
    const std::ptrdiff_t box = content().model.findBox(key);
    if (box < 0)
        throw Error(error_number::kSubscriptOutOfRange, u"The diagram has no box " + inQuotes(key));
    return automation::make<DiagramElement>(content_, Kind::Box, static_cast<std::size_t>(box));
}

std::size_t Diagram::boxOf(const std::u16string& key, const std::u16string& connection) const {
    const std::ptrdiff_t box = content().model.findBox(key);
    if (box < 0)
        throw Error(error_number::kSubscriptOutOfRange, u"The connection " + inQuotes(connection) +
                                                            u" begins or ends at " + inQuotes(key) +
                                                            u", and the diagram has no such box");
    return static_cast<std::size_t>(box);
}

void Diagram::CreateLink(const std::u16string& key, const std::u16string& text, const std::u16string& source,
                         const std::u16string& target) {
    DiagramContent& all = content();
    Connection connection;
    connection.from = boxOf(source, key);
    connection.to = boxOf(target, key);
    connection.key = key;
    connection.text = text;
    all.model.addConnection(std::move(connection));
    all.isArranged = false;
}

Object Diagram::getLink(const std::u16string& key) const {
    const std::ptrdiff_t connection = content().model.findConnection(key);
    if (connection < 0)
        throw Error(error_number::kSubscriptOutOfRange, u"The diagram has no connection " + inQuotes(key));
    return automation::make<DiagramElement>(content_, Kind::Connection, static_cast<std::size_t>(connection));
}

Measure Diagram::measure() const {
    return [&desktop = environment_.desktop](std::u16string_view line, const ui::Font& font) {
        return desktop.textSize(line, font);
    };
}

void Diagram::arrange() {
    const ui::WaitPointer wait(environment_.desktop);
    static_cast<void>(content());
    const std::shared_ptr<DiagramContent> all = content_;
    all->isInRows = false;
    if (all->isPlaced)
        connectStraight(all->model, measure());
    else
        all->isInRows = !arrangeForUser(environment_, all->model, measure());
    all->isArranged = true;
}

void Diagram::Layout(const std::u16string& name) {
    DiagramContent& all = content();
    if (!automation::equalsIgnoringCase(name, kHierarchy))
        throw Error(error_number::kInvalidCall,
                    u"There is no layout " + inQuotes(name) + u"; there is " + inQuotes(kHierarchy));
    all.isPlaced = false;
    arrange();
}

void Diagram::PopUp() {
    const automation::Ref<Diagram> alive(this);
    if (!content().isArranged)
        arrange();
    holder_.form()->PopUp(content().isInRows ? kInRows : u"");
}

std::u16string Diagram::save(const std::u16string& path) {
    DiagramContent& all = content();
    if (!all.isArranged && all.isPlaced)
        connectStraight(all.model, measure());
    else if (!all.isArranged)
        static_cast<void>(arrangeDiagram(all.model, measure()));
    all.isArranged = true;
    return saveDiagram(path, std::shared_ptr<const DiagramModel>(content_, &all.model), measure(),
                       environment_.drawingExport);
}

}  // namespace quorel::diagram
