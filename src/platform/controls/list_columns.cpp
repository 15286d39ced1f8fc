#include "platform/controls/list_columns.h"

#include "platform/automation/error.h"

namespace quorel::controls {

using automation::Object;
using automation::Value;

void ListColumns::reset(RowKind kind) {
    clear();
    kind_ = kind;
    columns_.push_back({Source::Name, u"Name"});
    if (kind != RowKind::Links)
        return;
    columns_.push_back({Source::SourceEnd, u"Source"});
    columns_.push_back({Source::TargetEnd, u"Target"});
}

void ListColumns::addProperty(std::u16string name) {
    columns_.push_back({Source::Property, std::move(name)});
}

void ListColumns::clear() noexcept {
    columns_.clear();
    access_ = Access::Unknown;
}

Value ListColumns::endName(const Object& end) const {
    return end ? end.get(endName_) : Value(std::u16string());
}

Value ListColumns::read(const Object& row, std::size_t column) const {
    switch (columns_[column].source) {
        case Source::Name:
            return row.get(name_);
        case Source::SourceEnd:
            return endName(row.get(source_).toObject());
        case Source::TargetEnd:
            return endName(row.get(target_).toObject());
        case Source::Property:
            break;
    }
    // The columns may be replaced while the row is asked: the name is passed as a copy.
    Value name(columns_[column].title);
    if (access_ == Access::Unknown)
        access_ = knows(row, prop_) ? Access::Prop : Access::GetProperty;
    return row.get(access_ == Access::Prop ? prop_ : getProperty_, std::move(name));
}

bool ListColumns::knows(const Object& row, const automation::Member& member) {
    try {
        static_cast<void>(member.idFor(row));
        return true;
    } catch (const automation::Error& error) {
        if (error.number() != automation::error_number::kMemberNotSupported)
            throw;
        return false;
    }
}

std::u16string ListColumns::keyOf(const Object& row) const {
    const bool isMeta = kind_ == RowKind::MetaNodes || kind_ == RowKind::MetaLinks;
    return row.get(isMeta ? name_ : identifier_).toString();
}

}  // namespace quorel::controls
