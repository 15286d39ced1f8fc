#pragma once

#include "platform/ui/control.h"
#include "platform/ui/form.h"

namespace quorel::ui {

/// The tab order of a form is the order in which its controls were added, containers entered where they
/// stand. These answer the usable tab stop after (before) `from`, going round at the end; null when the form
/// has none. `from` itself is the answer when it is the only one; it need not be a tab stop. Null starts at
/// the form's first (last) stop.
[[nodiscard]] Control* nextTabStop(Form& form, const Control* from);
[[nodiscard]] Control* previousTabStop(Form& form, const Control* from);

}  // namespace quorel::ui
