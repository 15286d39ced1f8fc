#pragma once

#include <cstdint>
#include <string>

#include "platform/automation/class_table.h"
#include "platform/automation/native_object.h"
#include "platform/automation/object.h"
#include "platform/ui/picture_objects.h"

namespace quorel::frame {

/// The public class "QuorelUtility.Blob": moves binary properties of one repository object between the
/// repository, texts, files and pictures. What the repository or a file fails with goes to the host; see
/// blob_text.h and blob_files.h for what goes wrong there.
class Blob final : public automation::NativeObject {
  public:
    /// Without `pictures` there is none in any bytes.
    explicit Blob(ui::PictureObjects* pictures) noexcept : pictures_(pictures) {}

    [[nodiscard]] const automation::ClassTable& classTable() const override;

    [[nodiscard]] const automation::Object& repObject() const noexcept { return repObject_; }
    void setRepObject(const automation::Object& object) { repObject_ = object; }

    /// The bytes come after the first blank, or are all of `v`. Always returns "".
    std::u16string setPropertyFromString(const std::u16string& name, const std::u16string& v);
    /// The type's description from its eighth unit on, a blank, the bytes; "" for a property that has no
    /// definition.
    [[nodiscard]] std::u16string getPropertyAsString(const std::u16string& name);
    void setPropertyFromByteArray(const std::u16string& name, const automation::Value& v);
    [[nodiscard]] automation::Value getPropertyAsByteArray(const std::u16string& name);
    void loadPropertyFromFile(const std::u16string& name, const std::u16string& filename);
    /// Asks for the bytes by `SetProperty` with the name alone, as it always has: a repository that answers
    /// that answers with the value.
    void storePropertyToFile(const std::u16string& name, const std::u16string& filename);
    /// Has never done anything.
    void setPropertyFromPicture(const std::u16string& name, const automation::Value& v);
    [[nodiscard]] automation::Object getPropertyAsPicture(const std::u16string& name);

    [[nodiscard]] std::u16string getAsString(const automation::Value& v);
    void setAsString(automation::Value& v, const std::u16string& s);
    [[nodiscard]] std::int32_t Dec(std::u16string& aHex);
    /// Nothing when the bytes are no picture, announce too many pixels or are damaged.
    [[nodiscard]] automation::Object PictureFromBits(const automation::Value& v) noexcept;
    /// Without the last byte, which `LoadFromFile` has put there. Nothing happens to what is no array; an
    /// array without elements is error 9.
    void StoreToFile(const automation::Value& v, const std::u16string& filename);
    [[nodiscard]] automation::Value LoadFromFile(const std::u16string& filename);

  private:
    ui::PictureObjects* pictures_;
    automation::Object repObject_;
};

}  // namespace quorel::frame
