#pragma once

#include <memory>
#include <string_view>

#include "frame/environment.h"
#include "platform/automation/object.h"
#include "platform/controls/property.h"
#include "platform/ui/form.h"

namespace quorel::dialogs {

/// The modal window in which one node's (or link's) properties are edited, for other windows of the library:
///
///     const auto dialog = std::make_shared<NodeEdit>(environment);
///     dialog->load();
///     dialog->Property1().initialise();
///     dialog->Property1().setPath(path);
///     dialog->Property1().setMetaObject(node.get(u"Parent").toObject());
///     dialog->Property1().build();
///     dialog->SetNode(node);
///     dialog->show(ui::Modality::Modal);
///     if (dialog->IsOk()) …
///
/// The operations of `Property1` and `SetNode` throw what the repository throws. What fails while the user
/// acts is shown in the error box.
class NodeEdit final : public ui::Form {
  public:
    explicit NodeEdit(const frame::Environment& environment);

    [[nodiscard]] controls::Property& Property1() noexcept { return property_; }
    /// The object whose values are shown.
    void SetNode(const automation::Object& node) { property_.setRepObject(node); }
    /// True after OK; false at load, after Cancel and when the window was closed otherwise.
    [[nodiscard]] bool IsOk() const noexcept { return ok_; }
    /// True as soon as a property was changed, set or unset, whether or not the window was left by OK; false
    /// at load.
    [[nodiscard]] bool propChanged() const noexcept { return changed_; }

  private:
    void OK_Click();
    void Cancel_Click();
    void place();

    controls::Property& property_;
    ui::Panel& buttons_;
    ui::Button& okButton_;
    ui::Button& cancelButton_;
    bool ok_ = false;
    bool changed_ = false;
};

/// The window for a node or link, loaded, with its name and all of its properties, titled by the name. Throws
/// what the repository throws.
[[nodiscard]] std::shared_ptr<NodeEdit> makeNodeEdit(const frame::Environment& environment,
                                                     std::u16string_view path,
                                                     const automation::Object& object);

}  // namespace quorel::dialogs
