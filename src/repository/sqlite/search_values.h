#pragma once

#include <array>
#include <string>
#include <string_view>
#include <unordered_map>

#include "repository/model.h"
#include "repository/sqlite/statement.h"

namespace quorel::repository::sqlite {

/// The value in a column of a row, as a property of that type holds it.
[[nodiscard]] automation::Value valueIn(const Run& run, int column, DataType type);

/// The values of elements as they are shown, which is what a search finds.
class ShownValues {
  public:
    explicit ShownValues(Database& database);

    /// Calls `value(const std::u16string& property, std::string_view utf8)` for each value of the element
    /// but bytes, cut to what is searched, as long as it returns true.
    template <class Call>
    void each(Kind kind, ElementId element, Call&& call) {
        for (Run run(values_.at(static_cast<std::size_t>(kind)), element); run.row();) {
            const Property& property = definition(run.id<PropertyId>(0));
            if (property.type != DataType::Binary && !call(property.name, shown(run, property.type)))
                return;
        }
    }

  private:
    struct Property {
        std::u16string name;
        DataType type;
    };
    /// A value without a definition, which only damage can bring about, passes for bytes.
    [[nodiscard]] const Property& definition(PropertyId id);
    [[nodiscard]] std::string_view shown(const Run& run, DataType type);

    std::array<Statement, 2> values_;
    Statement properties_;
    /// Definitions are never changed, and their numbers never given twice.
    std::unordered_map<PropertyId, Property> known_;
    std::string buffer_;
};

}  // namespace quorel::repository::sqlite
