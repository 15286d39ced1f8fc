#include "diagram/arrange_for_user.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "diagram/layout/component.h"
#include "dialogs/frm_progress.h"
#include "platform/automation/text.h"

namespace quorel::diagram {

namespace {

constexpr double kMoment = 0.4;  // seconds
constexpr std::int32_t kWhole = 1000;
constexpr layout::Length kBetweenRows = 900;

/// Appears when a moment has passed and goes when it is over.
class ProgressWindow {
  public:
    ProgressWindow(const frame::Environment& environment, const DiagramModel& model)
        : desktop_(environment.desktop),
          clock_(environment.clock),
          cancelKey_(environment.cancelKey),
          boxes_(model.boxes.size()),
          started_(clock_.secondsSinceMidnight()) {}
    ~ProgressWindow() {
        if (window_)
            window_->unload();
    }
    ProgressWindow(const ProgressWindow&) = delete;
    ProgressWindow& operator=(const ProgressWindow&) = delete;

    /// False if the user cancels.
    bool tell(std::int32_t permille) {
        const double now = clock_.secondsSinceMidnight();
        // Midnight may pass.
        if (!window_ && now >= started_ && now < started_ + kMoment)
            return true;
        if (!window_)
            open();
        if (permille > told_) {
            static_cast<void>(window_->incValue(permille - told_));
            told_ = permille;
        }
        return cancelKey_ == nullptr || !cancelKey_->takeCancelKey();
    }

  private:
    void open() {
        window_ = std::make_shared<dialogs::frmProgress>(desktop_, clock_);
        window_->setCaption(u"Diagram");
        window_->setTitle(u"Arranging " + automation::decimal(static_cast<std::int64_t>(boxes_)) + u" boxes");
        if (cancelKey_ != nullptr)
            window_->setProgressText(u"Esc puts them in rows instead");
        window_->Init({.value = 0, .minimum = 0, .maximum = kWhole});
        window_->PopUp();
    }

    ui::Desktop& desktop_;
    shell::Clock& clock_;
    ui::CancelKey* cancelKey_;
    std::size_t boxes_;
    double started_;
    std::shared_ptr<dialogs::frmProgress> window_;
    std::int32_t told_ = 0;
};

/// Asks for each line once.
[[nodiscard]] Measure remembering(const Measure& measure) {
    struct Known {
        ui::Font font;
        std::unordered_map<std::u16string, ui::Size> sizes;
    };
    return [measure, fonts = std::make_shared<std::vector<Known>>()](std::u16string_view line,
                                                                     const ui::Font& font) {
        const auto at = std::find_if(fonts->begin(), fonts->end(),
                                     [&font](const Known& known) { return known.font == font; });
        Known& known = at != fonts->end() ? *at : fonts->emplace_back(Known{font, {}});
        const auto [entry, isNew] = known.sizes.try_emplace(std::u16string(line));
        if (isNew)
            entry->second = measure(line, font);
        return entry->second;
    };
}

}  // namespace

bool arrangeForUser(const frame::Environment& environment, DiagramModel& model, const Measure& measure) {
    const ui::WaitPointer wait(environment.desktop);
    ProgressWindow window(environment, model);
    const Measure once = remembering(measure);
    if (arrangeDiagram(model, once, [&window](int permille) { return window.tell(permille); }))
        return true;
    arrangeInRows(model, once);
    return false;
}

void arrangeInRows(DiagramModel& model, const Measure& measure) {
    fitSizes(model, measure);
    std::vector<layout::Extent> sizes;
    sizes.reserve(model.boxes.size());
    for (const Box& box : model.boxes)
        sizes.push_back({box.place.width.value, box.place.height.value});
    std::vector<layout::Place> places;
    layout::pack(sizes, kBetweenRows, places);
    for (std::size_t i = 0; i < places.size(); ++i) {
        ui::Rect& place = model.boxes[i].place;
        place.left = kDrawingMargin + ui::Twips{static_cast<std::int32_t>(places[i].x)};
        place.top = kDrawingMargin + ui::Twips{static_cast<std::int32_t>(places[i].y)};
    }
    connectStraight(model, measure);
}

}  // namespace quorel::diagram
