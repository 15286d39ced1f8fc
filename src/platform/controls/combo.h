#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/automation/error.h"
#include "platform/automation/object.h"
#include "platform/ui/combo_box.h"
#include "platform/ui/control.h"
#include "platform/ui/desktop.h"

namespace quorel::controls {

/// A box that shows one node and offers all nodes of a type instead. It asks the type for them when it gets
/// the focus, not before.
///
/// Made of a plain box, which bears the name given; this container is "<name>.View".
class Combo : public ui::Panel {
  public:
    Combo(std::u16string_view name, ui::Desktop& desktop);

    /// Begins anew: no type, no selection, nothing to choose.
    void reset();
    /// The type whose nodes can be chosen, in the order of their texts. `view` is the property that is shown
    /// of them; for "" and "Extension" it is the name.
    void setMetaNode(std::u16string_view view, automation::Object metaNode);
    [[nodiscard]] const automation::Object& selection() const noexcept { return selection_; }
    /// Shows the object, or nothing. What can be chosen is read anew with the next focus. Throws what the
    /// object throws; it is the selection then all the same.
    void setSelection(automation::Object object);

    /// The user has chosen another node. The selection is still the old one and stays so unless a handler
    /// sets it.
    ui::Event<const automation::Object&> onChoose;
    /// What there is to choose could not be read, or a handler of `onChoose` failed.
    ui::Event<const automation::Error&> onFailure;

    [[nodiscard]] ui::ComboBox& box() noexcept { return *box_; }
    /// What a closed box takes.
    [[nodiscard]] ui::Twips neededHeight() const;

  private:
    struct Choice {
        std::u16string text;
        automation::Object object;
    };

    void boundsChanged() override;
    void open();
    [[nodiscard]] std::vector<Choice> readChoices() const;
    void chosen();
    void showSelection(std::u16string text);
    void show(std::vector<Choice> choices, std::size_t index);
    [[nodiscard]] std::u16string textOf(const automation::Object& object) const;

    ui::Desktop& desktop_;
    ui::ComboBox* box_;
    std::u16string view_;
    automation::Object metaNode_;
    automation::Object selection_;
    std::vector<Choice> choices_;
    bool isRead_ = false;
    std::uint64_t generation_ = 0;  ///< counts what the owner sets
};

}  // namespace quorel::controls
