#pragma once

#include "platform/ui/units.h"

namespace quorel::sixpane {

/// Where the controls of the dialog for dynamic meta objects are, in twips of its client area.
struct DynMetaObjectLayout {
    ui::Rect nameLabel, nameBox, descriptionLabel, descriptionBox, persistent, ok, cancel;
};

/// The labels left of their boxes; the description takes the height that is left, the buttons stay at the
/// bottom right. `labelWidth` is that of the wider label.
[[nodiscard]] DynMetaObjectLayout layoutDynMetaObject(ui::Size client, ui::Twips lineHeight,
                                                      ui::Twips labelWidth) noexcept;

/// The size below which something would overlap; the description has two lines then.
[[nodiscard]] ui::Size leastDynMetaObjectSize(ui::Twips lineHeight, ui::Twips labelWidth) noexcept;

}  // namespace quorel::sixpane
