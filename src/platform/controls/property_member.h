#pragma once

#include <string>

#include "platform/automation/class_table.h"
#include "platform/automation/native_object.h"

namespace quorel::controls {

/// The definition of a row that shows a member of the edited object, such as its `name`, instead of one of
/// the properties that its type declares.
class PropertyMember final : public automation::NativeObject {
  public:
    struct Texts {
        std::u16string name;  ///< of the member
        std::u16string datatype;
        std::u16string description;
        bool readOnly = false;
    };
    explicit PropertyMember(Texts texts) : texts_(std::move(texts)) {}
    [[nodiscard]] const automation::ClassTable& classTable() const override {
        static const automation::ClassTable table =
            automation::ClassTable::of<PropertyMember>(u"MetaMember")
                .readOnly(u"name", &PropertyMember::name)
                .readOnly(u"datatype", &PropertyMember::datatype)
                .readOnly(u"Description", &PropertyMember::description)
                .readOnly(u"ReadOnly", &PropertyMember::readOnly);
        return table;
    }

  private:
    [[nodiscard]] std::u16string name() const { return texts_.name; }
    [[nodiscard]] std::u16string datatype() const { return texts_.datatype; }
    [[nodiscard]] std::u16string description() const { return texts_.description; }
    [[nodiscard]] bool readOnly() const { return texts_.readOnly; }

    Texts texts_;
};

}  // namespace quorel::controls
