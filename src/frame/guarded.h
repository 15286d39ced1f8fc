#pragma once

#include <string_view>
#include <type_traits>
#include <utility>

#include "frame/report_error.h"
#include "platform/automation/error.h"
#include "platform/ui/form.h"

namespace quorel::frame {

/// The error that is being handled, as the error box shows it: one that names no source comes from this
/// library.
[[nodiscard]] automation::Error caughtError();

/// Runs a window procedure. Whatever it throws is shown in the error box with the procedure's two labels, and
/// the result is the default of its type. The form stays alive until the procedure and the box are done,
/// whatever the host does meanwhile. Nothing else in a window procedure catches.
template <class Body>
std::invoke_result_t<Body> guarded(ui::Form& form, std::u16string_view module, std::u16string_view procedure,
                                   Body&& body) {
    using Result = std::invoke_result_t<Body>;
    const auto alive = form.weak_from_this().lock();
    try {
        return std::forward<Body>(body)();
    } catch (...) {
        ReportError(form.desktop(), caughtError(), module, procedure, &form);
    }
    if constexpr (!std::is_void_v<Result>)
        return Result{};
}

}  // namespace quorel::frame
