#include "frame/report_error.h"

#include "frame/guarded.h"
#include "frame/standard.h"
#include "platform/automation/text.h"
#include "platform/ui/form.h"

namespace quorel::frame {

namespace {
constexpr std::int32_t kCriticalWithOk = 16;
}

std::u16string errorText(const automation::Error& error, std::u16string_view module,
                         std::u16string_view procedure) {
    std::u16string text = u"Error No: " + automation::decimal(error.number());
    text.append(u"  '").append(error.description()).append(u"'").append(NewLine());
    text.append(u"  '").append(error.source()).append(u"'").append(NewLine());
    if (!module.empty() || !procedure.empty())
        text.append(u"(Module '").append(module).append(u"' Function '").append(procedure).append(u"()')");
    return text;
}

automation::Value ReportError(ui::Desktop& desktop, const automation::Error& error,
                              std::u16string_view module, std::u16string_view procedure, ui::Form* owner) {
    if (owner != nullptr && !owner->isShown())
        owner = nullptr;
    desktop.showMessage({errorText(error, module, procedure), u"QuorelUtility", kCriticalWithOk}, owner);
    return {};
}

automation::Error caughtError() {
    automation::Error error = automation::currentError();
    if (!error.source().empty())
        return error;
    return {error.number(), error.description(), u"QuorelUtility"};
}

}  // namespace quorel::frame
