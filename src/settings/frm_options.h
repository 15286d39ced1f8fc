#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "frame/environment.h"
#include "frame/guarded.h"
#include "platform/automation/object.h"
#include "platform/ui/form.h"
#include "settings/attributes.h"
#include "settings/options_layout.h"
#include "settings/setting_editor.h"
#include "settings/setting_form_plan.h"

namespace quorel::ui {
class Label;
class ScrollPanel;
class TabStrip;
class TextBox;
}  // namespace quorel::ui

namespace quorel::settings {

/// The options window: a tab for every category of the settings of a store, on it an edit control for every
/// setting. What fails in its procedures is shown in the error box with module label "frmOptions"; the
/// members that only forward to the store throw.
///
/// Its arrays of controls are counted by the setting on them: "picOptions(0)" is the first page, "Label(1)",
/// "EditBox(1)", "Check(1)", "FileSelector(1)" the first of their kind.
class frmOptions final : public ui::Form {
  public:
    explicit frmOptions(const frame::Environment& environment);

    /// Generates tabs and controls from the store's settings, selects the first tab and makes the window as
    /// large as they need. Loads the window.
    void Init(automation::Object settings);
    void Deinit() noexcept {}
    /// Returns when the window is hidden or unloaded.
    void PopUp();
    void Conceal();
    void Destroy() noexcept { settings_.reset(); }

    [[nodiscard]] const automation::Object& Settings() const noexcept { return settings_; }
    void setSettings(automation::Object settings) { settings_ = std::move(settings); }
    /// Always false, as `Attributes::SetEntry` is.
    bool SetAttribute(std::u16string_view name, const automation::Value& value);
    [[nodiscard]] automation::Value GetAttribute(std::u16string_view name) const;

    // Forwarded to the store.
    [[nodiscard]] bool hasEntry(const std::u16string& spec) const;
    bool SetEntry(const std::u16string& spec, const std::u16string& value);
    bool GetEntry(const std::u16string& spec, std::u16string& value, const std::u16string& fallback) const;
    [[nodiscard]] automation::Object getSettings() const;

    /// Replaces all tabs and controls by what the store's settings ask for. Of a list that cannot be read to
    /// its end those before are there.
    void GenerateSettingForm();

    [[nodiscard]] ui::TabStrip& tbsOptions() noexcept { return tbsOptions_; }

  private:
    using Editors = std::vector<std::unique_ptr<SettingEditor>>;

    static constexpr std::int32_t kFirstMaxEntrys = 16;

    void Form_Load();
    void Form_KeyDown(ui::KeyEvent& event);
    void Form_Resize();
    void tbsOptions_Click();
    void cmdOK_Click();
    void cmdApply_Click();
    void cmdCancel_Click();

    /// Runs a procedure of this window under its label.
    template <class Body>
    auto procedure(std::u16string_view label, Body&& body) {
        return frame::guarded(*this, u"frmOptions", label, std::forward<Body>(body));
    }

    // Generation.
    void clearForm();
    void makeTabs(const SettingFormPlan& plan);
    void makeEditor(const SettingRecord& record, const PlannedEntry& entry, const FormMeasures& measures);
    void makeTextBox(SettingEditor& editor, const SettingRecord& record, const EntryLayout& parts);
    void makeCheck(SettingEditor& editor, const SettingRecord& record, const EntryLayout& parts);
    void makeSelector(SettingEditor& editor, const SettingRecord& record, const EntryLayout& parts,
                      ui::Twips captionWidth);
    /// The bar before it and the button behind it.
    void addMark(SettingEditor& editor, const EntryLayout& parts);
    /// The whole caption, where its room is too small for it.
    [[nodiscard]] std::u16string captionTip(const std::u16string& caption, ui::Size room) const;
    [[nodiscard]] OptionsMeasures optionsMeasures() const;
    [[nodiscard]] FormMeasures formMeasures() const;
    [[nodiscard]] OptionsLayout layout() const;
    /// "Check(3)".
    [[nodiscard]] static std::u16string nameIn(std::u16string_view array, std::size_t& count);

    // Editing.
    void selectTab(std::size_t tab);
    void stepTab(bool forward);
    [[nodiscard]] bool isOnAPage(const ui::Control* control) const;
    void focusFirstOf(std::size_t tab);
    /// Writes the values of all controls into the store.
    void store();
    /// What was changed and names nothing that is there may be stored all the same: the user decides.
    [[nodiscard]] bool confirmComplaints();
    void entered(const SettingEditor& editor);
    /// Shows whether it is changed or found.
    void refreshMark(const SettingEditor& editor);

    // The search over all settings.
    void Search_Change();
    void Search_KeyDown(ui::KeyEvent& event);
    void showMatch(std::size_t match);

    frame::Environment environment_;
    ui::TextBox& search_;
    ui::Label& found_;
    ui::TabStrip& tbsOptions_;
    ui::Panel& controlButtons_;
    ui::Label& message_;
    ui::Button& cmdOK_;
    ui::Button& cmdCancel_;
    ui::Button& cmdApply_;

    automation::Object settings_;
    Attributes attributes_;
    automation::Object fileTypes_;
    std::vector<ui::ScrollPanel*> pages_;
    std::vector<ui::Size> pageSizes_;
    Editors editors_;
    std::size_t labels_ = 0, editBoxes_ = 0, checks_ = 0, selectors_ = 0;
    std::size_t generation_ = 0;
    std::vector<const SettingEditor*> matches_;
    std::size_t match_ = 0;
};

}  // namespace quorel::settings
