#include "navigator/imports.h"

#include <algorithm>

#include "frame/attempt.h"
#include "platform/automation/calls.h"
#include "platform/automation/text.h"

namespace quorel::navigator {

namespace {

constexpr std::int32_t kSteps = 1000;
/// What a message box cannot show is counted instead.
constexpr std::size_t kMostRemarks = 20;

[[nodiscard]] std::int32_t stepsOf(const repository::Progress& progress) noexcept {
    if (progress.total == 0)
        return 0;
    const double share = static_cast<double>(progress.done) / static_cast<double>(progress.total);
    return static_cast<std::int32_t>(std::min(share, 1.0) * kSteps);
}

}  // namespace

RunProgress::RunProgress(const automation::ClassRegistry& classes, std::u16string_view caption,
                         const std::u16string& what)
    : window_(classes.createObject(u"QuorelUtility.Progress")) {
    window_.call(u"Create");
    window_.put(u"Caption", std::u16string(caption));
    window_.put(u"Title", what);
    window_.call(u"Init", 0, kSteps);
    window_.call(u"PopUp");
}

RunProgress::~RunProgress() {
    frame::attempt([this] { window_.call(u"Destroy"); });
}

void RunProgress::show(const repository::Progress& progress) {
    const std::int32_t steps = stepsOf(progress);
    if (steps == shown_)
        return;
    window_.call(u"incValue", steps - shown_);
    shown_ = steps;
}

std::u16string importSummary(const repository::ImportReport& report) {
    std::u16string text = u"Imported " + summaryOf(report) + u".";
    const std::vector<std::u16string> remarks = remarksOf(report);
    for (std::size_t i = 0; i < remarks.size() && i < kMostRemarks; ++i)
        text.append(i == 0 ? u"\r\n\r\n" : u"\r\n").append(remarks[i]);
    if (remarks.size() > kMostRemarks)
        text.append(u"\r\nand ")
            .append(automation::decimal(static_cast<std::int64_t>(remarks.size() - kMostRemarks)))
            .append(u" more");
    return text;
}

std::u16string exportSummary(const repository::ExportReport& report, const std::u16string& output) {
    return u"Exported " + summaryOf(report) + u" to '" + output + u"'.";
}

}  // namespace quorel::navigator
