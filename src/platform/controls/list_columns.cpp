#include "platform/controls/list_columns.h"

#include <algorithm>
#include <utility>

#include "platform/automation/error.h"

namespace quorel::controls {

using automation::Object;
using automation::Typed;
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

void ListColumns::addProperty(std::u16string name, ui::Twips width) {
    columns_.push_back({Source::Property, name, name, width});
}

void ListColumns::add(std::u16string_view caption, std::u16string_view key, ui::Twips width) {
    Source source = Source::Property;
    if (key == u"SourceName")
        source = Source::SourceEnd;
    else if (key == u"LinkName")
        source = Source::Name;
    else if (key == u"TargetName")
        source = Source::TargetEnd;
    put({source, std::u16string(caption), std::u16string(key), width});
}

void ListColumns::addEndProperty(std::u16string_view caption, std::u16string_view key, LinkEnd end,
                                 ui::Twips width) {
    const Source source = end == LinkEnd::Source ? Source::SourceProperty : Source::TargetProperty;
    put({source, std::u16string(caption), std::u16string(key), width});
}

void ListColumns::put(Column column) {
    const auto known = std::find_if(columns_.begin(), columns_.end(), [&column](const Column& each) {
        return !each.key.empty() && each.key == column.key;
    });
    if (known == columns_.end())
        columns_.push_back(std::move(column));
    else
        *known = std::move(column);
}

void ListColumns::beginWithEndName(LinkEnd end) {
    const Source source = end == LinkEnd::Source ? Source::SourceEnd : Source::TargetEnd;
    const bool isThere = !columns_.empty() && columns_.front().isEndName;
    if (!isThere)
        columns_.insert(columns_.begin(), {source, u"Name", {}, {}, true});
    columns_.front().source = source;
}

void ListColumns::clear() noexcept {
    columns_.clear();
    access_ = endAccess_ = Access::Unknown;
}

Value ListColumns::endName(const Object& end) const {
    return end ? end.get(endName_) : Value(std::u16string());
}

Value ListColumns::endProperty(const Object& end, Value name) const {
    if (!end)
        return std::u16string();
    const Typed itsType(end);
    try {
        if (endAccess_ == Access::Unknown)
            endAccess_ = knows(itsType, endProp_) ? Access::Prop : Access::GetProperty;
        return itsType.get(endAccess_ == Access::Prop ? endProp_ : endGetProperty_, std::move(name));
    } catch (const automation::Error& error) {
        // The columns may be those of the other end's type.
        if (error.number() != automation::error_number::kMemberNotSupported)
            throw;
        return std::u16string();
    }
}

Value ListColumns::read(const Typed& row, std::size_t column) const {
    switch (columns_[column].source) {
        case Source::Name:
            return row.get(name_);
        case Source::SourceEnd:
            return endName(row.get(source_).toObject());
        case Source::TargetEnd:
            return endName(row.get(target_).toObject());
        case Source::SourceProperty:
        case Source::TargetProperty: {
            Value name(columns_[column].key);
            const bool ofSource = columns_[column].source == Source::SourceProperty;
            return endProperty(row.get(ofSource ? source_ : target_).toObject(), std::move(name));
        }
        case Source::Property:
            break;
    }
    // The columns may be replaced while the row is asked: the name is passed as a copy.
    Value name(columns_[column].key);
    if (access_ == Access::Unknown)
        access_ = knows(row, prop_) ? Access::Prop : Access::GetProperty;
    return row.get(access_ == Access::Prop ? prop_ : getProperty_, std::move(name));
}

bool ListColumns::knows(const Typed& object, const automation::Member& member) {
    try {
        static_cast<void>(object.idOf(member));
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
