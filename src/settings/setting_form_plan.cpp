#include "settings/setting_form_plan.h"

#include <algorithm>
#include <unordered_map>

#include "platform/automation/text.h"

namespace quorel::settings {

namespace {

using automation::equalsIgnoringCase;
using ui::Rect;
using ui::Size;
using ui::Twips;
using namespace ui::literals;

constexpr std::u16string_view kFile = u"file";
constexpr std::size_t kFilePrefix = 5;

/// What a text box and a button need around a line of text.
constexpr Twips kBoxPadding = 120_tw;
constexpr Twips kRowGap = 90_tw;
constexpr Twips kMarkWidth = 45_tw;
constexpr Twips kMarkGap = 75_tw;
constexpr Twips kBesideBox = 90_tw;
/// Before the text of a check box.
constexpr Twips kCheckMark = 330_tw;
constexpr std::int32_t kMostCaptionLines = 6;

struct PageState {
    std::int64_t count = 0;
    Twips nextTop;
    Twips captionWidth;
    bool inSecondColumn = false;
};

[[nodiscard]] Twips rowWidth(const FormMeasures& measures) noexcept {
    return measures.columnWidth - measures.columnLeft;
}

/// From the start of the row to the end of its control.
[[nodiscard]] Twips usableWidth(const FormMeasures& measures) noexcept {
    return kMarkWidth + kMarkGap + controlWidth(measures);
}

[[nodiscard]] bool hasCaptionBefore(EditKind kind) noexcept {
    return kind != EditKind::Boolean;
}

[[nodiscard]] Twips widestCaption(const FormMeasures& measures) noexcept {
    return controlWidth(measures) * 2 / 5;
}

[[nodiscard]] Twips captionWidthOf(const SettingRecord& record, const FormMeasures& measures) {
    return std::min(measures.captionSize(record.caption(), std::nullopt).width + kBesideBox,
                    widestCaption(measures));
}

[[nodiscard]] Twips rowHeight(const SettingRecord& record, EditKind kind, Twips captionWidth,
                              const FormMeasures& measures) {
    const Twips width =
        kind == EditKind::Boolean ? controlWidth(measures) - kCheckMark : captionWidth - kBesideBox;
    const Twips needed = measures.captionSize(record.caption(), width).height;
    const Twips most = measures.lineHeight * kMostCaptionLines;
    return std::max(measures.boxHeight(), std::min(needed, most) + kBoxPadding / 2);
}

}  // namespace

Twips FormMeasures::boxHeight() const noexcept {
    return lineHeight + kBoxPadding;
}

Twips controlWidth(const FormMeasures& measures) noexcept {
    return rowWidth(measures) - kMarkWidth - kMarkGap - measures.boxHeight() - kBesideBox;
}

EditKind editKindOf(std::u16string_view editType) noexcept {
    if (equalsIgnoringCase(editType.substr(0, kFile.size()), kFile))
        return EditKind::File;
    if (equalsIgnoringCase(editType, u"directory"))
        return EditKind::Directory;
    if (equalsIgnoringCase(editType, u"Boolean"))
        return EditKind::Boolean;
    return equalsIgnoringCase(editType, u"show") ? EditKind::Show : EditKind::Text;
}

std::u16string_view fileTypeKey(std::u16string_view editType) noexcept {
    return editType.substr(std::min(kFilePrefix, editType.size()));
}

bool isHiddenCategory(std::u16string_view category) noexcept {
    return equalsIgnoringCase(category, u"none");
}

std::vector<std::u16string> tabCategories(std::span<const SettingRecord> settings) {
    std::vector<std::u16string> categories;
    std::u16string known;
    for (const SettingRecord& setting : settings) {
        const std::u16string& category = setting.editCategory;
        // Nothing is found in nothing, not even the empty text.
        const bool isKnown = !known.empty() && known.find(category) != std::u16string::npos;
        if (isHiddenCategory(category) || isKnown)
            continue;
        known.append(u",").append(category);
        categories.push_back(category);
    }
    return categories;
}

SettingFormPlan planSettingForm(std::span<const SettingRecord> settings, std::int32_t maxEntrysOnTab,
                                const FormMeasures& measures) {
    SettingFormPlan plan;
    std::unordered_map<std::u16string, std::size_t> tabs;
    for (std::u16string& category : tabCategories(settings)) {
        tabs.emplace(category, plan.tabs.size());
        plan.tabs.push_back({std::move(category), {}});
    }
    if (plan.tabs.empty())
        plan.tabs.emplace_back();
    std::vector<PageState> pages(plan.tabs.size());
    for (std::size_t i = 0; i < settings.size(); ++i) {
        const auto tab = tabs.find(settings[i].editCategory);
        if (isHiddenCategory(settings[i].editCategory) || tab == tabs.end())
            continue;
        const EditKind kind = editKindOf(settings[i].editType);
        plan.entries.push_back({i, tab->second, kind, {}, {}});
        Twips& width = pages[tab->second].captionWidth;
        if (hasCaptionBefore(kind))
            width = std::max(width, captionWidthOf(settings[i], measures));
    }
    for (PlannedEntry& entry : plan.entries) {
        PageState& page = pages[entry.tab];
        if (!page.inSecondColumn && page.count * 2 >= maxEntrysOnTab) {
            page.inSecondColumn = true;
            page.nextTop = {};
        }
        const Twips left = page.inSecondColumn ? measures.columnLeft + measures.columnWidth : 0_tw;
        entry.captionWidth = page.captionWidth;
        entry.bounds = {left, page.nextTop, rowWidth(measures),
                        rowHeight(settings[entry.setting], entry.kind, page.captionWidth, measures)};
        ++page.count;
        page.nextTop = entry.bounds.bottom() + kRowGap;
        Size& size = plan.tabs[entry.tab].page;
        size = {std::max(size.width, entry.bounds.right()), std::max(size.height, entry.bounds.bottom())};
    }
    return plan;
}

EntryLayout layoutEntry(const PlannedEntry& entry, const FormMeasures& measures) noexcept {
    const Rect& row = entry.bounds;
    const Twips left = row.left + kMarkWidth + kMarkGap;
    const Twips right = row.left + usableWidth(measures);
    const Twips box = measures.boxHeight();
    EntryLayout layout;
    layout.mark = {row.left, row.top, kMarkWidth, row.height};
    layout.reset = {right + kBesideBox, row.top, box, box};
    layout.control = {left, row.top, right - left, row.height};
    if (entry.kind == EditKind::Text || entry.kind == EditKind::Show) {
        // The first line of the caption stands beside the text.
        layout.caption = {left, row.top + kBoxPadding / 2, entry.captionWidth - kBesideBox,
                          row.height - kBoxPadding / 2};
        layout.control = {left + entry.captionWidth, row.top, right - left - entry.captionWidth, box};
    }
    return layout;
}

}  // namespace quorel::settings
