// How many frames a second a diagram of 3,000 boxes and 9,000 connections is painted in a real window while
// it is panned: as a whole, in part, and at its own size.

#include <windows.h>

#include <cstdint>
#include <cstdio>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "bench/ratio.h"
#include "diagram/diagram_drawing.h"
#include "platform/automation/text.h"
#include "platform/ui/drawing_area.h"
#include "platform/ui/form.h"
#include "platform/ui/glyphs.h"
#include "platform/win32/ui/control_peer.h"
#include "platform/win32/ui/windows_desktop.h"

namespace {

using namespace quorel;

constexpr std::size_t kBoxes = 3000, kConnections = 9000, kAcross = 60;
constexpr ui::Size kWindow{{19'200}, {12'000}};  // 1,280 by 800 pixels at 96 dots per inch
constexpr int kFrames = 60;
constexpr double kFramesASecond = 30;

void pump() {
    MSG message{};
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
}

/// What this process has used of its processors, in seconds.
[[nodiscard]] double processorSeconds() {
    FILETIME made{}, ended{}, kernel{}, user{};
    ::GetProcessTimes(::GetCurrentProcess(), &made, &ended, &kernel, &user);
    const auto ticks = [](const FILETIME& time) {
        return static_cast<double>(static_cast<std::uint64_t>(time.dwHighDateTime) << 32 |
                                   time.dwLowDateTime);
    };
    return (ticks(kernel) + ticks(user)) / 1e7;
}

[[nodiscard]] ui::Twips twips(std::size_t value) {
    return {static_cast<std::int32_t>(value)};
}

[[nodiscard]] std::shared_ptr<diagram::DiagramModel> makeModel(const diagram::Measure& measure) {
    auto model = std::make_shared<diagram::DiagramModel>();
    model->labelFont.points = 9;
    model->sectionFont.points = 8;
    model->headerPicture =
        std::make_shared<const ui::Picture>(ui::Picture{16, 16, std::vector<std::uint8_t>(16 * 16 * 4, 200)});
    std::mt19937 random(1);
    for (std::size_t i = 0; i < kBoxes; ++i) {
        diagram::Box box;
        box.key = automation::decimal(static_cast<std::int64_t>(i));
        box.text = u"<<Entity>>\r\nBusinessObject" + box.key;
        box.alignedToText = true;
        for (std::size_t line = random() % 7; line > 0; --line)
            box.properties.push_back(
                {u"property" + automation::decimal(static_cast<std::int64_t>(line)), u"String"});
        model->addBox(std::move(box));
    }
    for (std::size_t i = 0; i < kConnections; ++i) {
        const std::size_t from = random() % kBoxes;
        const std::size_t to = std::min(kBoxes - 1, from + random() % (3 * kAcross));
        diagram::Connection connection;
        connection.key = automation::decimal(static_cast<std::int64_t>(i));
        connection.text = i % 3 == 0 ? u"owns" : u"";
        connection.from = from;
        connection.to = to;
        model->addConnection(std::move(connection));
    }
    diagram::fitSizes(*model, measure);
    for (std::size_t i = 0; i < kBoxes; ++i) {
        ui::Rect& place = model->boxes[i].place;
        place.left = twips(480 + i % kAcross * 4200);
        place.top = twips(480 + i / kAcross * 3000);
    }
    for (diagram::Connection& connection : model->connections) {
        const ui::Rect& from = model->boxes[connection.from].place;
        const ui::Rect& to = model->boxes[connection.to].place;
        const ui::Point begin{from.left + from.width / 2, from.bottom()};
        const ui::Point end{to.left + to.width / 2, to.top};
        connection.line = {begin, {begin.x, begin.y + ui::Twips{240}}, {end.x, end.y - ui::Twips{240}}, end};
        connection.label.left = (begin.x + end.x) / 2;
        connection.label.top = (begin.y + end.y) / 2;
    }
    return model;
}

struct Speed {
    double framesASecond, processorMilliseconds;
};

struct Window {
    Window(ui::Desktop& desktop, const diagram::DiagramDrawing& drawing)
        : form(std::make_shared<ui::Form>(desktop, u"frmBench")), area(form->add<ui::DrawingArea>(u"Area")) {
        form->setClientSize(kWindow);
        area.setBounds({{0}, {0}, kWindow.width, kWindow.height});
        area.setPainter([this, &drawing](ui::Canvas& canvas, const ui::Rect& dirty) {
            canvas.setView({dirty, origin, scale});
            const auto part = [this](ui::Twips length) {
                return ui::Twips{static_cast<std::int32_t>(length.value / scale)};
            };
            drawing.draw(canvas, {origin.x, origin.y, part(dirty.width), part(dirty.height)}, scale);
        });
        form->show(ui::Modality::Modeless);
        pump();
    }
    void frame() const {
        area.invalidate();
        ::UpdateWindow(win32::handleOf(area));
        pump();
    }
    /// Along a diagonal, by ten pixels a frame.
    [[nodiscard]] Speed pan(double newScale) {
        scale = newScale;
        origin = {};
        frame();
        const double before = processorSeconds();
        const double seconds = bench::seconds([this] {
            for (int i = 0; i < kFrames; ++i) {
                const auto step = static_cast<std::int32_t>(150 / scale * (i % 20));
                origin = {{step}, {step / 2}};
                frame();
            }
        });
        return {kFrames / seconds, (processorSeconds() - before) / kFrames * 1000};
    }

    ui::Point origin;
    double scale = 1;
    std::shared_ptr<ui::Form> form;
    ui::DrawingArea& area;
};

}  // namespace

int main() {
    win32::WindowsDesktop desktop(::GetModuleHandleW(nullptr));
    const diagram::Measure measure = [&desktop](std::u16string_view line, const ui::Font& font) {
        return desktop.textSize(line, font);
    };
    const diagram::DiagramDrawing drawing(makeModel(measure), measure);
    Window window(desktop, drawing);
    const double whole = static_cast<double>(kWindow.width.value) / drawing.extent().width.value;
    struct Case {
        const char* name;
        double scale;
    };
    for (const Case& one : {Case{"all 3,000 boxes", whole}, Case{"at 15 %", 0.15}, Case{"at 40 %", 0.4},
                            Case{"at 60 %", 0.6}, Case{"at its own size", 1.0}, Case{"at 300 %", 3.0}}) {
        const Speed speed = window.pan(one.scale);
        std::printf(
            "panning 3,000 boxes, %s: %.1f frames a second (aim: %.0f), %.1f ms of processor time a frame\n",
            one.name, speed.framesASecond, kFramesASecond, speed.processorMilliseconds);
    }
}
