#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ui/units.h"
#include "settings/setting_record.h"

namespace quorel::settings {

/// What a setting is edited with.
enum class EditKind : std::uint8_t {
    Text,       ///< a text box, after its caption
    Show,       ///< the same, disabled; never stored
    File,       ///< a file selector
    Directory,  ///< a file selector for folders
    Boolean     ///< a check box
};

/// Whatever begins with "file" is a file; "directory", "Boolean" and "show" are what they say; anything else,
/// "" too, is a text. The case of letters does not matter.
[[nodiscard]] EditKind editKindOf(std::u16string_view editType) noexcept;

/// The key of a file's type: what follows the five units of "File:".
[[nodiscard]] std::u16string_view fileTypeKey(std::u16string_view editType) noexcept;

/// True for the category of settings that are not edited.
[[nodiscard]] bool isHiddenCategory(std::u16string_view category) noexcept;

/// The categories that have a tab, in the order in which they come. A category whose name is contained in the
/// names before it, joined by commas, has NONE: "Path" after "Paths" has none, nor has "" after any other.
[[nodiscard]] std::vector<std::u16string> tabCategories(std::span<const SettingRecord> settings);

/// The room that a caption needs on one line, or broken into lines of that width.
using CaptionMeasure = std::function<ui::Size(std::u16string_view caption, std::optional<ui::Twips> width)>;

/// What the placement of edit controls is derived from.
struct FormMeasures {
    ui::Twips lineHeight;
    /// The offset of the second column, and the room of each.
    ui::Twips columnLeft, columnWidth;
    CaptionMeasure captionSize;

    [[nodiscard]] ui::Twips boxHeight() const noexcept;
};

/// One edit control. Coordinates are its page's.
struct PlannedEntry {
    std::size_t setting = 0;  ///< index of the record
    std::size_t tab = 0;
    EditKind kind = EditKind::Text;
    ui::Rect bounds;         ///< of all that belongs to it
    ui::Twips captionWidth;  ///< the part of it that captions of this page take
};

struct PlannedTab {
    std::optional<std::u16string> category;  ///< none: the tab that is there by design
    ui::Size page;                           ///< encloses what is on it
};

struct SettingFormPlan {
    std::vector<PlannedTab> tabs;  ///< at least one
    std::vector<PlannedEntry> entries;
};

/// One tab for each of `tabCategories`, or the one by design when there is none. A setting is on the tab of
/// exactly its category; one without such a tab has no control.
///
/// On a page every entry is below the one before. When as many as half of `maxEntrysOnTab` are on it, those
/// that follow make a second column, which begins at the top and takes all the rest. Captions stand before
/// their boxes and take what the widest on the page needs, at most two fifths; then they are broken into
/// lines.
[[nodiscard]] SettingFormPlan planSettingForm(std::span<const SettingRecord> settings,
                                              std::int32_t maxEntrysOnTab, const FormMeasures& measures);

/// Where the parts of an entry are, in the page's coordinates. Unused parts are empty.
struct EntryLayout {
    ui::Rect mark;     ///< the bar before it
    ui::Rect caption;  ///< before a text box; a selector has its own, a check box is one
    ui::Rect control;
    ui::Rect reset;  ///< the button behind it
};

[[nodiscard]] EntryLayout layoutEntry(const PlannedEntry& entry, const FormMeasures& measures) noexcept;

/// The room of an entry's control, before the button behind it.
[[nodiscard]] ui::Twips controlWidth(const FormMeasures& measures) noexcept;

}  // namespace quorel::settings
