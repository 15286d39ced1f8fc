#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/automation/calls.h"
#include "platform/automation/object.h"
#include "platform/automation/value.h"
#include "platform/ui/units.h"

namespace quorel::controls {

/// What the rows of a list are.
enum class RowKind : std::uint8_t { MetaNodes, MetaLinks, Nodes, Links };

/// Whose property a column of a list of links shows; the values are the side codes that such a column is
/// given.
enum class LinkEnd : std::uint8_t { Source = 0, Target = 2 };

/// The columns of a list of repository objects and how their cells are read.
class ListColumns {
  public:
    /// The columns that every list of the kind has: the name; of links also source and target.
    void reset(RowKind kind);
    void addProperty(std::u16string name, ui::Twips width = {});
    /// The rows are of that kind from now on; the columns stay.
    void setKind(RowKind kind) noexcept { kind_ = kind; }
    /// A column with a key of its own. The keys "SourceName", "LinkName" and "TargetName" stand for the names
    /// of the source, of the row itself and of the target; any other for the property of that name. A key
    /// that is there already gets the new caption and width and no second column.
    void add(std::u16string_view caption, std::u16string_view key, ui::Twips width);
    /// A column with the property `key` of one end of each link, under the same terms. It is empty for an end
    /// whose type has no such property (error 438).
    void addEndProperty(std::u16string_view caption, std::u16string_view key, LinkEnd end, ui::Twips width);
    /// Puts the name of that end in front, titled "Name"; one that is there already becomes that end's.
    void beginWithEndName(LinkEnd end);
    void clear() noexcept;

    [[nodiscard]] std::size_t size() const noexcept { return columns_.size(); }
    [[nodiscard]] const std::u16string& title(std::size_t column) const { return columns_[column].title; }
    /// What the column was given; 0 leaves it to the list.
    [[nodiscard]] ui::Twips width(std::size_t column) const { return columns_[column].width; }

    /// Asks the row object for one cell: one call, and for the name of an end one more to that end. Throws
    /// what the object throws. The columns may have been replaced when it returns.
    [[nodiscard]] automation::Value read(const automation::Typed& row, std::size_t column) const;
    /// What tells two rows of this kind apart: `Identifier`, of meta objects `name`.
    [[nodiscard]] std::u16string keyOf(const automation::Object& row) const;

  private:
    enum class Source : std::uint8_t { Name, SourceEnd, TargetEnd, Property, SourceProperty, TargetProperty };
    struct Column {
        Source source;
        std::u16string title;
        std::u16string key{};
        ui::Twips width{};
        bool isEndName = false;  ///< put in front by `beginWithEndName`
    };

    /// How rows give their properties: by `Prop_`, or by `GetProperty` when the first row asked knows no
    /// `Prop_`.
    enum class Access : std::uint8_t { Unknown, Prop, GetProperty };

    void put(Column column);
    [[nodiscard]] automation::Value endName(const automation::Object& end) const;
    [[nodiscard]] automation::Value endProperty(const automation::Object& end, automation::Value name) const;
    [[nodiscard]] static bool knows(const automation::Typed& object, const automation::Member& member);

    std::vector<Column> columns_;
    RowKind kind_ = RowKind::Nodes;
    automation::Member name_{u"name"};
    automation::Member endName_{u"name"};
    automation::Member source_{u"source"};
    automation::Member target_{u"target"};
    automation::Member identifier_{u"Identifier"};
    automation::Member prop_{u"Prop_"};
    automation::Member getProperty_{u"GetProperty"};
    automation::Member endProp_{u"Prop_"};
    automation::Member endGetProperty_{u"GetProperty"};
    mutable Access access_ = Access::Unknown;
    mutable Access endAccess_ = Access::Unknown;
};

}  // namespace quorel::controls
