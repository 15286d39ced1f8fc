#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/automation/calls.h"
#include "platform/automation/object.h"
#include "platform/automation/value.h"

namespace quorel::controls {

/// What the rows of a list are.
enum class RowKind : std::uint8_t { MetaNodes, MetaLinks, Nodes, Links };

/// The columns of a list of repository objects and how their cells are read.
class ListColumns {
  public:
    /// The columns that every list of the kind has: the name; of links also source and target.
    void reset(RowKind kind);
    void addProperty(std::u16string name);
    void clear() noexcept;

    [[nodiscard]] std::size_t size() const noexcept { return columns_.size(); }
    [[nodiscard]] const std::u16string& title(std::size_t column) const { return columns_[column].title; }
    [[nodiscard]] bool isProperty(std::size_t column) const {
        return columns_[column].source == Source::Property;
    }

    /// Asks the row object for one cell: one call, and for the name of an end one more to that end. Throws
    /// what the object throws. The columns may have been replaced when it returns.
    [[nodiscard]] automation::Value read(const automation::Object& row, std::size_t column) const;
    /// What tells two rows of this kind apart: `Identifier`, of meta objects `name`.
    [[nodiscard]] std::u16string keyOf(const automation::Object& row) const;

  private:
    enum class Source : std::uint8_t { Name, SourceEnd, TargetEnd, Property };
    struct Column {
        Source source;
        std::u16string title;
    };

    /// How rows give their properties: by `Prop_`, or by `GetProperty` when the first row asked knows no
    /// `Prop_`.
    enum class Access : std::uint8_t { Unknown, Prop, GetProperty };

    [[nodiscard]] automation::Value endName(const automation::Object& end) const;
    [[nodiscard]] static bool knows(const automation::Object& row, const automation::Member& member);

    std::vector<Column> columns_;
    RowKind kind_ = RowKind::Nodes;
    automation::Member name_{u"name"};
    automation::Member endName_{u"name"};
    automation::Member source_{u"source"};
    automation::Member target_{u"target"};
    automation::Member identifier_{u"Identifier"};
    automation::Member prop_{u"Prop_"};
    automation::Member getProperty_{u"GetProperty"};
    mutable Access access_ = Access::Unknown;
};

}  // namespace quorel::controls
