#include "platform/controls/property_editor_handle.h"

#include "platform/automation/error.h"

namespace quorel::controls {

const automation::ClassTable& PropertyEditorHandle::classTable() const {
    static const automation::ClassTable table =
        automation::ClassTable::of<PropertyEditorHandle>(u"PropertyEditorControl")
            .property(u"Text", &PropertyEditorHandle::text, &PropertyEditorHandle::setText)
            .withId(automation::MemberId::Default)
            .readOnly(u"name", &PropertyEditorHandle::name)
            .property(u"Enabled", &PropertyEditorHandle::isEnabled, &PropertyEditorHandle::setEnabled)
            .property(u"ToolTipText", &PropertyEditorHandle::toolTip, &PropertyEditorHandle::setToolTip);
    return table;
}

void PropertyEditorHandle::close() noexcept {
    box_ = nullptr;
    typed_ = nullptr;
}

ui::Control& PropertyEditorHandle::box() const {
    if (box_ == nullptr)
        throw automation::Error(automation::error_number::kObjectNotSet,
                                u"The editor of this property is closed");
    return *box_;
}

void PropertyEditorHandle::setText(const std::u16string& text) {
    static_cast<void>(box());
    const auto typed = typed_;
    typed(text);
}

}  // namespace quorel::controls
