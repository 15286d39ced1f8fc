#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "navigator/navigator_layout.h"
#include "navigator/type_row.h"
#include "platform/controls/list_view.h"
#include "platform/ui/desktop.h"
#include "platform/ui/plain_controls.h"

namespace quorel::navigator {

/// What is shown of the open repository: its types, and the instances of the selected one with their
/// properties. Members that read the repository throw what it throws; what was read until then is shown.
class ModelPage final : public ui::Panel {
  public:
    ModelPage(std::u16string_view name, ui::Desktop& desktop);

    /// The types; the first one is selected.
    void fill(const automation::Object& repository);
    /// Reads everything anew and keeps what is selected, if it is still there.
    void refresh(const automation::Object& repository);
    /// The instances of the selected type.
    void showInstances();
    /// Lets go of every object.
    void empty();

    [[nodiscard]] automation::Object selectedType() const;
    [[nodiscard]] automation::Object selectedInstance() const { return instances_->selectedObject(); }
    /// Whether the selected type has a property of bytes.
    [[nodiscard]] bool hasBinaryProperty() const noexcept { return hasBinaryProperty_; }
    /// The instance's row is read anew when it is next seen.
    void refreshInstance(const automation::Object& instance) { instances_->refreshObject(instance); }

    [[nodiscard]] std::u16string typesText() const;
    [[nodiscard]] std::u16string instancesText() const;

    [[nodiscard]] std::int32_t share() const noexcept { return share_; }
    void setShare(std::int32_t share);

    [[nodiscard]] controls::ListView& types() noexcept { return *types_; }
    [[nodiscard]] controls::ListView& instances() noexcept { return *instances_; }

  private:
    void boundsChanged() override;
    void addTypes(const automation::Object& collection, TypeKind kind);
    [[nodiscard]] automation::Ref<TypeRow> selectedRow() const;
    void readBinaryProperty(const automation::Object& type);

    ui::Desktop& desktop_;
    std::int32_t share_ = kFirstShare;
    bool hasBinaryProperty_ = false;
    ui::Label* typesCaption_;
    controls::ListView* types_;
    ui::Splitter* splitter_;
    ui::Label* instancesCaption_;
    controls::ListView* instances_;
};

/// The text of a list's count: "Types: 3", or "Types: 1 of 3" while a filter hides some.
[[nodiscard]] std::u16string countedText(std::u16string_view what, const controls::ListView& list);

}  // namespace quorel::navigator
