#include "platform/controls/file_types.h"

#include "platform/automation/error.h"

namespace quorel::controls {

namespace error_number = automation::error_number;
using automation::ClassTable;
using automation::Object;
using automation::param;
using automation::Ref;
using automation::Value;

class FileTypes::Reader final : public automation::Enumerator {
  public:
    explicit Reader(Ref<FileTypes> table) : table_(std::move(table)) {}
    std::size_t next(std::span<Value> values) override {
        std::size_t count = 0;
        while (count < values.size() && position_ < table_->types_.size())
            values[count++] = table_->types_[position_++];
        return count;
    }

  private:
    Ref<FileTypes> table_;
    std::size_t position_ = 0;
};

const ClassTable& FileType::classTable() const {
    static const ClassTable table = ClassTable::of<FileType>(u"FileType")
                                        .readOnly(u"Key", &FileType::Key)
                                        .readOnly(u"Extension", &FileType::Extension)
                                        .readOnly(u"Filter", &FileType::Filter);
    return table;
}

const ClassTable& FileTypes::classTable() const {
    static const ClassTable table =
        ClassTable::of<FileTypes>(u"c_FileType")
            .readOnly(u"Item", &FileTypes::Item, {param(u"key")})
            .withId(automation::MemberId::Default)
            .method(u"Add", &FileTypes::Add, {param(u"key"), param(u"extension"), param(u"filter")})
            .readOnly(u"Count", &FileTypes::Count);
    return table;
}

std::unique_ptr<automation::Enumerator> FileTypes::enumerate() {
    return std::make_unique<Reader>(Ref<FileTypes>(this));
}

void FileTypes::Add(const std::u16string& key, const std::u16string& extension,
                    const std::u16string& filter) {
    auto type = automation::make<FileType>(key, extension, filter);
    if (byKey_.contains(key))
        throw automation::Error(error_number::kKeyAlreadyUsed);
    types_.push_back(std::move(type));
    byKey_.emplace(key, types_.size() - 1);
}

Object FileTypes::Item(const Value& key) const {
    if (key.text()) {
        if (const auto found = byKey_.find(*key.text()); found != byKey_.end())
            return types_[found->second];
        throw automation::Error(error_number::kSubscriptOutOfRange);
    }
    const std::int32_t index = key.toInteger() - 1;
    if (index < 0 || index >= Count())
        throw automation::Error(error_number::kSubscriptOutOfRange);
    return types_[static_cast<std::size_t>(index)];
}

}  // namespace quorel::controls
