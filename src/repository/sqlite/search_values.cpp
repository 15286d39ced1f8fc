#include "repository/sqlite/search_values.h"

#include <algorithm>

#include "repository/sqlite/search_tables.h"
#include "repository/sqlite/utf8.h"

namespace quorel::repository::sqlite {

using automation::Bytes;
using automation::Date;
using automation::Value;

Value valueIn(const Run& run, int column, DataType type) {
    switch (type) {
        case DataType::String:
        case DataType::Enumeration:
        case DataType::MultiLine:
        case DataType::File:
        case DataType::Directory:
            return run.text(column);
        case DataType::Integer:
        case DataType::Colour:
            return static_cast<std::int32_t>(run.integer(column));
        case DataType::Double:
            return run.real(column);
        case DataType::Boolean:
            return run.integer(column) != 0;
        case DataType::Date:
            return Date{run.real(column)};
        case DataType::Binary:
            return Bytes{run.bytes(column), 0};
    }
    return {};
}

ShownValues::ShownValues(Database& database)
    : values_{Statement(database, "SELECT property, value FROM node_property WHERE node = ?1"),
              Statement(database, "SELECT property, value FROM link_property WHERE link = ?1")},
      properties_(database, "SELECT id, name, datatype FROM meta_property WHERE id >= ?1") {}

const ShownValues::Property& ShownValues::definition(PropertyId id) {
    if (const auto found = known_.find(id); found != known_.end())
        return found->second;
    for (Run run(properties_, id); run.row();) {
        const auto type = static_cast<DataType>(std::clamp<std::int64_t>(run.integer(2), 0, kLastDataType));
        known_.try_emplace(run.id<PropertyId>(0), Property{run.text(1), type});
    }
    return known_.try_emplace(id, Property{u"", DataType::Binary}).first->second;
}

std::string_view ShownValues::shown(const Run& run, DataType type) {
    if (isText(type))
        return run.utf8(1).substr(0, kSearchedLength);
    try {
        buffer_ = stored(valueIn(run, 1, type).toString());
    } catch (const automation::Error&) {
        buffer_.clear();  // a number that is no date has no text
    }
    return buffer_;
}

}  // namespace quorel::repository::sqlite
