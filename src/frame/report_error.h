#pragma once

#include <string>
#include <string_view>

#include "platform/automation/error.h"
#include "platform/automation/value.h"
#include "platform/ui/desktop.h"

namespace quorel::frame {

/// What the error box says: number, description and source, and the place unless both labels are empty.
[[nodiscard]] std::u16string errorText(const automation::Error& error, std::u16string_view module,
                                       std::u16string_view procedure);

/// Shows the shared error box: critical, OK only, titled "QuorelUtility", owned by `owner` if that is on the
/// screen. Returns an empty variant.
automation::Value ReportError(ui::Desktop& desktop, const automation::Error& error,
                              std::u16string_view module, std::u16string_view procedure,
                              ui::Form* owner = nullptr);

}  // namespace quorel::frame
