#pragma once

#include <string>

#include "explorer/pane_layout.h"
#include "platform/ui/control.h"

namespace quorel::explorer {

/// What a host has said of one control of a sub pane. Fields that do not apply to its kind are empty.
struct ExplorerControl {
    ui::Control* Control = nullptr;
    std::u16string typ;         ///< the name of its kind
    std::u16string view;        ///< how it shows what it shows
    std::u16string metatype;    ///< the meta node or meta link that it shows
    std::u16string icon;        ///< of a list: the key of the picture before its rows
    std::u16string tabCaption;  ///< the sub pane that it lies on
    std::u16string extra;       ///< of a combo: the meta link whose target it shows
    ControlKind kind = ControlKind::Label;

    /// The control as what its kind makes of it.
    template <class T>
    [[nodiscard]] T& as() const noexcept {
        return static_cast<T&>(*Control);
    }
};

}  // namespace quorel::explorer
