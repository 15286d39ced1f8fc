#pragma once

#include <string>

#include "platform/ui/form.h"

namespace quorel::headless {

/// The form as stable lines of UTF-8, one a control or menu entry, children indented: kind, name, text in
/// quotes, bounds in twips, and what is not as usual (hidden, disabled, focus, selected row …). Rows are not
/// read; the items that a tree shows follow it.
[[nodiscard]] std::string dump(ui::Form& form);

}  // namespace quorel::headless
