#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/automation/class_table.h"
#include "platform/automation/native_object.h"
#include "platform/automation/text.h"

namespace quorel::controls {

/// What is known of one type of files.
class FileType final : public automation::NativeObject {
  public:
    FileType(std::u16string key, std::u16string extension, std::u16string filter)
        : key_(std::move(key)), extension_(std::move(extension)), filter_(std::move(filter)) {}
    [[nodiscard]] const automation::ClassTable& classTable() const override;

    [[nodiscard]] std::u16string Key() const { return key_; }
    /// With its dot.
    [[nodiscard]] std::u16string Extension() const { return extension_; }
    /// Description and pattern, a bar between them, as file dialogs take it.
    [[nodiscard]] std::u16string Filter() const { return filter_; }

  private:
    std::u16string key_, extension_, filter_;
};

/// The file-type table, "VardekFileAccess.c_FileType": types of files by key. Keys ignore case. It is
/// enumerated in the order in which the types were added.
class FileTypes final : public automation::NativeObject {
  public:
    [[nodiscard]] const automation::ClassTable& classTable() const override;
    [[nodiscard]] std::unique_ptr<automation::Enumerator> enumerate() override;

    /// Error 457 when the key is taken.
    void Add(const std::u16string& key, const std::u16string& extension, const std::u16string& filter);
    /// By key, or by position from 1; error 9 when there is none. The default member.
    [[nodiscard]] automation::Object Item(const automation::Value& key) const;
    [[nodiscard]] std::int32_t Count() const noexcept { return static_cast<std::int32_t>(types_.size()); }

  private:
    class Reader;
    std::vector<automation::Ref<FileType>> types_;
    std::unordered_map<std::u16string, std::size_t, automation::FoldedHash, automation::FoldedEqual> byKey_;
};

}  // namespace quorel::controls
