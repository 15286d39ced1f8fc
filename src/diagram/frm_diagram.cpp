#include "diagram/frm_diagram.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "diagram/counted.h"
#include "diagram/diagram_files.h"
#include "frame/window_placement.h"
#include "platform/automation/text.h"
#include "platform/ui/glyphs.h"

namespace quorel::diagram {

using namespace ui::literals;
using ui::Key;
using ui::KeyChord;
using ui::Modifiers;

namespace {

constexpr ui::Size kFirstSize{15000_tw, 10500_tw};
constexpr std::u16string_view kCaption = u"Diagram";

struct ButtonTraits {
    std::u16string_view name, text, toolTip;
    ui::glyphs::Shared (*glyph)();
};

constexpr std::array<ButtonTraits, kStandardButtons> kButtons{{
    {u"cmdZoomIn", u"Zoom &in", u"Zoom in (+)", &ui::glyphs::zoomIn},
    {u"cmdZoomOut", u"Zoom &out", u"Zoom out (-)", &ui::glyphs::zoomOut},
    {u"cmdFit", u"Show &all", u"Show all (F or Ctrl+9)", &ui::glyphs::fitAll},
    {u"cmdActualSize", u"&100 %", u"100 % (Ctrl+0)", &ui::glyphs::actualSize},
    {u"cmdFind", u"&Find", u"Find (Ctrl+F)", &ui::glyphs::search},
    {u"cmdPrint", u"&Print", u"Print (Ctrl+P)", &ui::glyphs::print},
    {u"cmdSave", u"&Save", u"Save (Ctrl+S)", &ui::glyphs::save},
}};

/// With one digit more of what is small.
[[nodiscard]] std::u16string percentage(double share) {
    constexpr double kSmall = 0.1;
    if (share >= kSmall)
        return automation::decimal(std::lround(share * 100)) + u" %";
    const std::int64_t thousandths = std::lround(share * 1000);
    return automation::decimal(thousandths / 10) + u"." + automation::decimal(thousandths % 10) + u" %";
}

/// Of a diagram, larger than any that is drawn: how wide the panels are.
constexpr std::u16string_view kWidestCount = u"000000 connections     ";
constexpr std::u16string_view kWidestScale = u"Scale 400 %     ";

}  // namespace

frmDiagram::frmDiagram(const frame::Environment& environment, std::shared_ptr<DiagramModel> model)
    : Form(environment.desktop, u"frmDiagram"),
      environment_(environment),
      model_(std::move(model)),
      view_((addButtons(), addFindBox(), add<DiagramView>(u"Diagram", environment.desktop))),
      status_(add<ui::StatusBar>(u"StatusBar1")) {
    setText(kCaption);
    const ui::Twips count = desktop().textSize(kWidestCount).width;
    status_.setPanels(
        {{u"", count}, {u"", count}, {u"", desktop().textSize(kWidestScale).width}, {u"", 0_tw}});
    view_.onViewChanged.connect([this] { tellStatus(); });
    view_.onSelect.connect([this] {
        tell(view_.selected() ? nameOf(model_->boxes[*view_.selected()]) : std::u16string_view());
    });
    onKeyDown.connect([this](ui::KeyEvent& event) { Form_KeyDown(event); });
    onLoad.connect([this] { procedure(u"Form_Load", [this] { Form_Load(); }); });
    onUnload.connect([this] { procedure(u"Form_Unload", [this] { Form_Unload(); }); });
    onResize.connect([this] { place(); });
    setMinimumClientSize(leastWindowSize(parts()));
    setClientSize(kFirstSize);
    place();
    showModel();
}

void frmDiagram::showModel() {
    view_.setModel(model_);
    enableButtons();
    view_.area().focus();
}

void frmDiagram::addButtons() {
    for (std::size_t i = 0; i < kStandardButtons; ++i) {
        ui::Button& made = add<ui::Button>(kButtons[i].name);
        made.setText(kButtons[i].text);
        made.setToolTip(kButtons[i].toolTip);
        made.setGlyph(kButtons[i].glyph());
        made.setVisible(false);
        made.onClick.connect([this, i] { Button_Click(static_cast<StandardButton>(i)); });
        buttons_[i] = &made;
    }
}

void frmDiagram::addFindBox() {
    findLabel_ = &add<ui::Label>(u"FindLabel");
    findLabel_->setText(u"Fi&nd:");
    find_ = &add<ui::TextBox>(u"Find");
    find_->setCueText(u"Name of a box or property");
    previous_ = &add<ui::Button>(u"cmdPrevious");
    previous_->setText(u"P&revious");
    previous_->setToolTip(u"Previous (Shift+F3)");
    previous_->setGlyph(ui::glyphs::back());
    next_ = &add<ui::Button>(u"cmdNext");
    next_->setText(u"Ne&xt");
    next_->setToolTip(u"Next (F3)");
    next_->setGlyph(ui::glyphs::forward());
    found_ = &add<ui::Label>(u"Found");
    findControls_ = {findLabel_, find_, previous_, next_, found_};
    for (ui::Control* const each : findControls_)
        each->setVisible(false);
    find_->onChange.connect([this] { procedure(u"Find_Change", [this] { Find_Change(); }); });
    find_->onKeyDown.connect([this](ui::KeyEvent& event) { Find_KeyDown(event); });
    previous_->onClick.connect([this] { findNext(true); });
    next_->onClick.connect([this] { findNext(false); });
}

void frmDiagram::AddStandardButtons() {
    withButtons_ = true;
    for (ui::Button* const each : buttons_)
        each->setVisible(true);
    place();
}

void frmDiagram::PopUp(std::u16string_view note) {
    procedure(u"PopUp", [this, note] {
        showModel();
        tell(note);
        show(ui::Modality::Modal);
    });
}

void frmDiagram::Conceal() {
    procedure(u"Conceal", [this] { hide(); });
}

void frmDiagram::Destroy() noexcept {
    search_.clear();
    view_.setModel(nullptr);
    model_.reset();
}

void frmDiagram::Form_Load() {
    if (const auto placement = frame::readWindowPlacement(environment_.settings, name(), {}))
        frame::place(*this, *placement);
}

void frmDiagram::Form_Unload() {
    const frame::WindowPlacement former = frame::readWindowPlacement(environment_.settings, name(), {})
                                              .value_or(frame::WindowPlacement{.size = kFirstSize});
    frame::writeWindowPlacement(environment_.settings, name(), frame::placementOf(*this, former), {});
}

// What the user does.
// ------------------------------------------------------------------------

void frmDiagram::Form_KeyDown(ui::KeyEvent& event) {
    if (!event.handled)
        event.handled = runKey(event.chord);
}

bool frmDiagram::runKey(KeyChord chord) {
    if (chord == KeyChord{Key::Escape}) {
        if (!view_.runKey(chord))
            hide();
        return true;
    }
    if (chord.key == Key::F3 && (chord.modifiers == Modifiers::None || chord.modifiers == Modifiers::Shift))
        return findNext(chord.modifiers == Modifiers::Shift), true;
    if (chord.modifiers != Modifiers::Control)
        return false;
    if (chord.key == ui::key('F'))
        return Find(), true;
    if (chord.key == ui::key('P'))
        return Print(), true;
    if (chord.key == ui::key('S'))
        return Save(), true;
    static constexpr std::array kOfView{ui::key('0'),  ui::key('9'), Key::Add,
                                        Key::Subtract, Key::Plus,    Key::Minus};
    return std::find(kOfView.begin(), kOfView.end(), chord.key) != kOfView.end() && view_.runKey(chord);
}

void frmDiagram::Button_Click(StandardButton which) {
    switch (which) {
        case StandardButton::ZoomIn:
            return view_.zoomIn();
        case StandardButton::ZoomOut:
            return view_.zoomOut();
        case StandardButton::Fit:
            return view_.fit();
        case StandardButton::ActualSize:
            return view_.actualSize();
        case StandardButton::Find:
            return Find();
        case StandardButton::Print:
            return Print();
        case StandardButton::Save:
            return Save();
    }
}

// Finding.
// ------------------------------------------------------------------------

void frmDiagram::Find() {
    if (!hasBoxes())
        return;
    setFindVisible(true);
    find_->focus();
    find_->selectAll();
}

void frmDiagram::leaveFind() {
    view_.area().focus();
    setFindVisible(false);
}

void frmDiagram::setFindVisible(bool visible) {
    for (ui::Control* const each : findControls_)
        each->setVisible(visible);
    place();
}

void frmDiagram::Find_Change() {
    if (!model_)
        return;
    search_.look(*model_, find_->text());
    showFound();
}

void frmDiagram::Find_KeyDown(ui::KeyEvent& event) {
    const Modifiers modifiers = event.chord.modifiers;
    if (event.chord == KeyChord{Key::Escape})
        leaveFind();
    else if (event.chord.key == Key::Enter && (modifiers == Modifiers::None || modifiers == Modifiers::Shift))
        findNext(modifiers == Modifiers::Shift);
    else
        return;
    event.handled = true;
}

void frmDiagram::findNext(bool backwards) {
    procedure(u"FindNext", [&] {
        if (!search_.present() && !find_->isVisible())
            return Find();
        if (backwards)
            search_.goBack();
        else
            search_.goOn();
        showFound();
    });
}

void frmDiagram::showFound() {
    found_->setText(search_.told());
    if (const auto box = search_.present())
        view_.show(*box);
}

// Files and paper.
// ------------------------------------------------------------------------

void frmDiagram::Save() {
    procedure(u"Save", [this] {
        if (environment_.fileDialogs == nullptr || !hasBoxes())
            return;
        shell::FileDialogs::Request request;
        request.title = u"Save the diagram";
        request.fileName = text() + std::u16string(kDiagramExtension);
        request.filter = diagramFileTypes();
        request.defaultExtension = kDiagramExtension;
        const std::shared_ptr<const DiagramModel> model = model_;
        const auto path = environment_.fileDialogs->saveFile(request);
        if (!path || !isLoaded())
            return;
        const ui::WaitPointer wait(desktop());
        tell(saveDiagram(*path, model, measure(), environment_.drawingExport));
    });
}

void frmDiagram::Print() {
    procedure(u"Print", [this] {
        if (environment_.drawingExport == nullptr || !hasBoxes())
            return;
        if (printDiagram(text(), model_, measure(), *environment_.drawingExport, this))
            tell(u"Printed");
    });
}

// The window.
// ------------------------------------------------------------------------

void frmDiagram::tellStatus() {
    status_.setPanelText(0, counted(model_ ? model_->boxes.size() : 0, u" box", u" boxes"));
    status_.setPanelText(1,
                         counted(model_ ? model_->connections.size() : 0, u" connection", u" connections"));
    status_.setPanelText(2, u"Scale " + percentage(view_.view().scale()));
}

void frmDiagram::tell(std::u16string_view text) {
    status_.setPanelText(3, text);
}

Measure frmDiagram::measure() const {
    return [&desktop = desktop()](std::u16string_view line, const ui::Font& font) {
        return desktop.textSize(line, font);
    };
}

WindowParts frmDiagram::parts() const {
    ui::Desktop& screen = desktop();
    return {withButtons_, find_->isVisible(), screen.textSize(u"Xg").height,
            screen.labelSize(findLabel_->text(), {}).width, screen.textSize(u"99999 of 99999").width};
}

void frmDiagram::enableButtons() {
    for (ui::Button* const each : buttons_)
        each->setEnabled(hasBoxes());
    button(StandardButton::Print).setEnabled(hasBoxes() && environment_.drawingExport != nullptr);
    button(StandardButton::Save).setEnabled(hasBoxes() && environment_.fileDialogs != nullptr);
}

void frmDiagram::place() {
    const WindowLayout layout = layoutWindow(clientSize(), parts());
    for (std::size_t i = 0; i < kStandardButtons; ++i)
        buttons_[i]->setBounds(layout.buttons[i]);
    findLabel_->setBounds(layout.findLabel);
    find_->setBounds(layout.find);
    previous_->setBounds(layout.previous);
    next_->setBounds(layout.next);
    found_->setBounds(layout.found);
    view_.setBounds(layout.view);
    status_.setBounds(layout.status);
}

}  // namespace quorel::diagram
