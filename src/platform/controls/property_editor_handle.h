#pragma once

#include <functional>
#include <string>

#include "platform/automation/class_table.h"
#include "platform/automation/native_object.h"
#include "platform/ui/control.h"

namespace quorel::controls {

/// The editor of a property as "PropertyControlCreated" hands it to hosts: `Text` (default), `Enabled` and
/// `ToolTipText`, read and written, `name` read. A text that the host sets counts as typed. Error 91 once the
/// editor is closed.
class PropertyEditorHandle final : public automation::NativeObject {
  public:
    PropertyEditorHandle(ui::Control& box, std::function<void(const std::u16string&)> typed)
        : box_(&box), typed_(std::move(typed)) {}
    [[nodiscard]] const automation::ClassTable& classTable() const override;
    /// The editor goes; whoever holds the handle cannot reach it any more.
    void close() noexcept;

  private:
    [[nodiscard]] ui::Control& box() const;
    [[nodiscard]] std::u16string name() const { return box().name(); }
    [[nodiscard]] std::u16string text() const { return box().text(); }
    void setText(const std::u16string& text);
    [[nodiscard]] bool isEnabled() const { return box().isEnabled(); }
    void setEnabled(bool enabled) { box().setEnabled(enabled); }
    [[nodiscard]] std::u16string toolTip() const { return box().toolTip(); }
    void setToolTip(const std::u16string& text) { box().setToolTip(text); }

    ui::Control* box_;
    std::function<void(const std::u16string&)> typed_;
};

}  // namespace quorel::controls
