// The generation of the options window's tabs and controls.

#include "frame/standard.h"
#include "platform/automation/calls.h"
#include "platform/automation/text.h"
#include "platform/controls/file_selector.h"
#include "platform/ui/glyphs.h"
#include "platform/ui/scroll_panel.h"
#include "platform/ui/tab_strip.h"
#include "settings/frm_options.h"

namespace quorel::settings {

using automation::Object;
using automation::Value;
using namespace ui::literals;

namespace {

constexpr std::u16string_view kTabByDesign = u"General";
constexpr ui::Twips kColumnLeft = 120_tw;
/// Between the edges of a page and what is on it.
constexpr ui::Twips kPageInset = 150_tw;

}  // namespace

OptionsMeasures frmOptions::optionsMeasures() const {
    const ui::Rect area = desktop().workArea();
    return {desktop().textSize(u"Xg").height, desktop().tabBorders(), desktop().scrollBarWidth(),
            area.size()};
}

FormMeasures frmOptions::formMeasures() const {
    const OptionsMeasures measures = optionsMeasures();
    return {measures.lineHeight, kColumnLeft, columnWidth(measures),
            [this](std::u16string_view caption, std::optional<ui::Twips> width) {
                return desktop().labelSize(caption, {}, width);
            }};
}

OptionsLayout frmOptions::layout() const {
    return layoutOptions(pageSizes_, optionsMeasures());
}

std::u16string frmOptions::nameIn(std::u16string_view array, std::size_t& count) {
    return std::u16string(array) + u"(" + automation::decimal(static_cast<std::int64_t>(++count)) + u")";
}

void frmOptions::GenerateSettingForm() {
    clearForm();
    std::int32_t most = kFirstMaxEntrys;
    std::vector<SettingRecord> records;
    const std::size_t generation = generation_;
    procedure(u"GenerateSettingForm", [&] {
        most = attributes_.GetEntry(u"MaxEntrysOnTab").toInteger();
        readSettingRecords(getSettings(), records);
    });
    if (generation != generation_)
        return;
    procedure(u"GenerateSettingForm", [&] {
        const FormMeasures measures = formMeasures();
        const SettingFormPlan plan = planSettingForm(records, most, measures);
        makeTabs(plan);
        for (const PlannedEntry& entry : plan.entries)
            makeEditor(records[entry.setting], entry, measures);
    });
}

void frmOptions::clearForm() {
    ++generation_;
    matches_.clear();
    found_.setText({});
    search_.setText({});
    message_.setText({});
    editors_.clear();
    pages_.clear();
    pageSizes_.clear();
    labels_ = editBoxes_ = checks_ = selectors_ = 0;
    tbsOptions_.clear();
    tbsOptions_.setTabs({});
}

void frmOptions::makeTabs(const SettingFormPlan& plan) {
    std::vector<ui::TabStrip::Tab> tabs;
    for (const PlannedTab& tab : plan.tabs) {
        const std::u16string caption = tab.category.value_or(std::u16string(kTabByDesign));
        const auto index = static_cast<std::int64_t>(tabs.size());
        tabs.push_back({caption, tab.category.value_or(std::u16string())});
        pages_.push_back(
            &tbsOptions_.add<ui::ScrollPanel>(u"picOptions(" + automation::decimal(index) + u")"));
        pages_.back()->setVisible(index == 0);
        pageSizes_.push_back({tab.page.width + kPageInset * 2, tab.page.height + kPageInset * 2});
    }
    tbsOptions_.setTabs(std::move(tabs));
}

void frmOptions::makeEditor(const SettingRecord& record, const PlannedEntry& entry,
                            const FormMeasures& measures) {
    PlannedEntry placed = entry;
    placed.bounds.left += kPageInset;
    placed.bounds.top += kPageInset;
    const EntryLayout parts = layoutEntry(placed, measures);
    auto owned = std::make_unique<SettingEditor>();
    SettingEditor& editor = *owned;
    editor.kind = entry.kind;
    editor.tab = entry.tab;
    editor.name = record.name;
    editor.caption = record.caption();
    editor.category = record.editCategory;
    switch (entry.kind) {
        case EditKind::Boolean:
            makeCheck(editor, record, parts);
            break;
        case EditKind::File:
        case EditKind::Directory:
            makeSelector(editor, record, parts, entry.captionWidth);
            break;
        case EditKind::Text:
        case EditKind::Show:
            makeTextBox(editor, record, parts);
    }
    addMark(editor, parts);
    editor.atOpening = editor.stored = editor.value();
    editors_.push_back(std::move(owned));
}

std::u16string frmOptions::captionTip(const std::u16string& caption, ui::Size room) const {
    const ui::Size needed = desktop().labelSize(caption, {}, room.width);
    const bool fits = needed.width <= room.width && needed.height <= room.height;
    return fits ? std::u16string() : caption;
}

void frmOptions::makeTextBox(SettingEditor& editor, const SettingRecord& record, const EntryLayout& parts) {
    ui::ScrollPanel& page = *pages_[editor.tab];
    auto& label = page.add<ui::Label>(nameIn(u"Label", labels_));
    label.setText(record.caption());
    label.setToolTip(captionTip(record.caption(), parts.caption.size()));
    label.setBounds(parts.caption);
    auto& box = page.add<ui::TextBox>(nameIn(u"EditBox", editBoxes_));
    box.setText(record.value);
    box.setBounds(parts.control);
    box.setEnabled(editor.isStored());
    if (editor.isStored())
        box.setTag(record.name);
    box.onChange.connect([this, &editor] { refreshMark(editor); });
    editor.control = &box;
}

void frmOptions::makeCheck(SettingEditor& editor, const SettingRecord& record, const EntryLayout& parts) {
    auto& check = pages_[editor.tab]->add<ui::CheckBox>(nameIn(u"Check", checks_));
    check.setValue(checkValueOf(record.value));
    check.setText(record.caption());
    check.setToolTip(captionTip(record.caption(), parts.control.size()));
    check.setBounds(parts.control);
    check.setTag(record.name);
    check.onClick.connect([this, &editor] { refreshMark(editor); });
    editor.control = &check;
}

void frmOptions::makeSelector(SettingEditor& editor, const SettingRecord& record, const EntryLayout& parts,
                              ui::Twips captionWidth) {
    auto& selector = pages_[editor.tab]->add<controls::FileSelector>(nameIn(u"FileSelector", selectors_),
                                                                     desktop(), environment_.fileDialogs);
    selector.SetAttribute(u"FilePath", record.value);
    if (editor.kind == EditKind::File) {
        const std::u16string key(fileTypeKey(record.editType));
        if (frame::ExistsInCollection(fileTypes_, key)) {
            const Object type = fileTypes_.item(key).toObject();
            selector.SetAttribute(u"DefaultExtension", type.get(u"Extension"));
            selector.SetAttribute(u"Filter", type.get(u"Filter"));
        }
    }
    selector.SetAttribute(u"Message", record.caption());
    selector.SetAttribute(u"Mode", editor.kind == EditKind::File ? u"File" : u"Directory");
    selector.setCaptionWidth(captionWidth);
    selector.setBounds(parts.control);
    selector.caption().setToolTip(captionTip(record.caption(), selector.caption().bounds().size()));
    selector.setTag(record.name);
    selector.onChange.connect([this, &editor] { refreshMark(editor); });
    selector.onEntered.connect([this, &editor] { entered(editor); });
    selector.onFailure.connect(
        [this](const automation::Error& error) { procedure(u"FileSelector_Click", [&] { throw error; }); });
    editor.control = &selector;
}

void frmOptions::addMark(SettingEditor& editor, const EntryLayout& parts) {
    ui::ScrollPanel& page = *pages_[editor.tab];
    const std::u16string number = automation::decimal(static_cast<std::int64_t>(editors_.size() + 1));
    editor.mark = &page.add<ui::PictureBox>(u"Mark(" + number + u")");
    editor.mark->setBounds(parts.mark);
    editor.mark->setVisible(false);
    if (!editor.isStored())
        return;
    editor.reset = &page.add<ui::Button>(u"Reset(" + number + u")");
    editor.reset->setText(u"Reset");
    editor.reset->setGlyph(ui::glyphs::revert());
    editor.reset->setBounds(parts.reset);
    editor.reset->setVisible(false);
    editor.reset->onClick.connect([this, &editor] {
        editor.setValue(editor.stored);
        editor.focusTarget().focus();
        refreshMark(editor);
    });
}

}  // namespace quorel::settings
