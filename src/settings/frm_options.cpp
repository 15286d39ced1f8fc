#include "settings/frm_options.h"

#include <algorithm>

#include "platform/automation/calls.h"
#include "platform/ui/plain_controls.h"
#include "platform/ui/scroll_panel.h"
#include "platform/ui/tab_order.h"
#include "platform/ui/tab_strip.h"
#include "settings/file_type_rows.h"

namespace quorel::settings {

using automation::Object;
using automation::Value;

namespace {

constexpr std::u16string_view kMaxEntrysOnTab = u"MaxEntrysOnTab";
constexpr std::int32_t kYesNo = 4, kWarning = 48;
/// A box that asks about more files than this names no more.
constexpr std::size_t kMostComplaints = 8;

}  // namespace

frmOptions::frmOptions(const frame::Environment& environment)
    : Form(environment.desktop, u"frmOptions"),
      environment_(environment),
      search_(add<ui::TextBox>(u"Search")),
      found_(add<ui::Label>(u"Found")),
      tbsOptions_(add<ui::TabStrip>(u"tbsOptions")),
      controlButtons_(add<ui::Panel>(u"ControlButtons")),
      message_(controlButtons_.add<ui::Label>(u"Message")),
      cmdOK_(controlButtons_.add<ui::Button>(u"cmdOK")),
      cmdCancel_(controlButtons_.add<ui::Button>(u"cmdCancel")),
      cmdApply_(controlButtons_.add<ui::Button>(u"cmdApply")) {
    setText(u"Options");
    setResizable(false);
    search_.setCueText(u"Search");
    search_.setToolTip(u"Search all settings (Ctrl+F)");
    cmdOK_.setText(u"OK");
    cmdCancel_.setText(u"Cancel");
    cmdApply_.setText(u"&Apply");
    setDefaultButton(&cmdOK_);
    setCancelButton(&cmdCancel_);
    cmdOK_.onClick.connect([this] { cmdOK_Click(); });
    cmdCancel_.onClick.connect([this] { cmdCancel_Click(); });
    cmdApply_.onClick.connect([this] { cmdApply_Click(); });
    search_.onChange.connect([this] { Search_Change(); });
    search_.onKeyDown.connect([this](ui::KeyEvent& event) { Search_KeyDown(event); });
    tbsOptions_.onSelect.connect([this](std::size_t, std::size_t) { tbsOptions_Click(); });
    onKeyDown.connect([this](ui::KeyEvent& event) { Form_KeyDown(event); });
    onResize.connect([this] { Form_Resize(); });
    onLoad.connect([this] { Form_Load(); });
}

void frmOptions::Form_Load() {
    procedure(u"Form_Load", [this] {
        attributes_ = {};
        attributes_.AddEntry(kMaxEntrysOnTab);
        attributes_.SetEntry(kMaxEntrysOnTab, kFirstMaxEntrys);
        clearForm();
        fileTypes_ = environment_.classes.createObject(u"VardekFileAccess.c_FileType");
        for (const FileTypeRow& row : kFileTypeRows)
            fileTypes_.call(u"Add", row.key, row.extension, row.filter);
    });
}

void frmOptions::Init(Object settings) {
    const auto alive = keepFormAlive();
    load();
    setSettings(std::move(settings));
    GenerateSettingForm();
    tbsOptions_.select(0);
    tbsOptions_Click();
    Form_Resize();
    setClientSize(layout().client);
    if (editors_.empty())
        return;
    ui::Control& first = editors_.front()->focusTarget();
    first.focus();
    if (auto* const box = dynamic_cast<ui::TextBox*>(&first))
        box->selectAll();
}

void frmOptions::PopUp() {
    procedure(u"PopUp", [this] { show(ui::Modality::Modal); });
}

void frmOptions::Conceal() {
    procedure(u"Conceal", [this] { hide(); });
}

bool frmOptions::SetAttribute(std::u16string_view name, const Value& value) {
    return attributes_.SetEntry(name, value);
}

Value frmOptions::GetAttribute(std::u16string_view name) const {
    return attributes_.GetEntry(name);
}

bool frmOptions::hasEntry(const std::u16string& spec) const {
    return Object(settings_).call(u"hasEntry", spec).toBoolean();
}

bool frmOptions::SetEntry(const std::u16string& spec, const std::u16string& value) {
    return Object(settings_).call(u"SetEntry", spec, value).toBoolean();
}

bool frmOptions::GetEntry(const std::u16string& spec, std::u16string& value,
                          const std::u16string& fallback) const {
    Value variable(value);
    const bool isMissing =
        Object(settings_).call(u"GetEntry", spec, automation::byRef(variable), fallback).toBoolean();
    value = variable.toString();
    return isMissing;
}

Object frmOptions::getSettings() const {
    return Object(settings_).call(u"getSettings").toObject();
}

void frmOptions::Form_KeyDown(ui::KeyEvent& event) {
    procedure(u"Form_KeyDown", [&] {
        const bool control = has(event.chord.modifiers, ui::Modifiers::Control);
        if (control && event.chord.key == ui::Key::Tab) {
            stepTab(!has(event.chord.modifiers, ui::Modifiers::Shift));
            event.handled = true;
        } else if (event.chord == ui::KeyChord{ui::key('F'), ui::Modifiers::Control}) {
            search_.focus();
            search_.selectAll();
            event.handled = true;
        }
    });
}

void frmOptions::stepTab(bool forward) {
    const std::size_t count = tbsOptions_.tabs().size();
    if (count < 2)
        return;
    const std::size_t selected = tbsOptions_.selected().value_or(0);
    selectTab((selected + (forward ? 1 : count - 1)) % count);
}

void frmOptions::selectTab(std::size_t tab) {
    tbsOptions_.select(tab);
    tbsOptions_Click();
}

void frmOptions::tbsOptions_Click() {
    procedure(u"tbsOptions_Click", [this] {
        if (pages_.empty())
            return;
        const std::size_t selected = tbsOptions_.selected().value_or(0);
        const ui::Twips top = pages_.front()->bounds().top;
        const bool hadFocus = isOnAPage(focusedControl());
        // The page that is seen is switched on first: a focus that has to go finds something there.
        const auto place = [&](std::size_t i) {
            const ui::Size size = pages_[i]->bounds().size();
            pages_[i]->setBounds({i == selected ? kPageLeft : kPageAway, top, size.width, size.height});
            pages_[i]->setVisible(i == selected);
        };
        if (selected < pages_.size())
            place(selected);
        for (std::size_t i = 0; i < pages_.size(); ++i)
            if (i != selected)
                place(i);
        if (hadFocus && selected < pages_.size() && !isOnAPage(focusedControl()))
            focusFirstOf(selected);
    });
}

bool frmOptions::isOnAPage(const ui::Control* control) const {
    const ui::Container* above = control != nullptr ? control->parent() : nullptr;
    for (; above != nullptr; above = above->parent())
        if (std::find(pages_.begin(), pages_.end(), above) != pages_.end())
            return true;
    return false;
}

void frmOptions::focusFirstOf(std::size_t tab) {
    ui::Control* const first = ui::nextTabStop(*this, pages_[tab]);
    if (first != nullptr && isOnAPage(first))
        first->focus();
    else
        tbsOptions_.focus();
}

void frmOptions::Form_Resize() {
    procedure(u"Form_Resize", [this] {
        const OptionsLayout parts = layout();
        search_.setBounds(parts.search);
        found_.setBounds(parts.found);
        tbsOptions_.setBounds(parts.strip);
        controlButtons_.setBounds(parts.buttons);
        message_.setBounds(parts.message);
        cmdOK_.setBounds(parts.ok);
        cmdCancel_.setBounds(parts.cancel);
        cmdApply_.setBounds(parts.apply);
        for (std::size_t i = 0; i < pages_.size(); ++i) {
            const ui::Twips left = pages_[i]->bounds().left;
            pages_[i]->setBounds({left, parts.page.top, parts.page.width, parts.page.height});
            pages_[i]->setContentHeight(pageSizes_[i].height);
        }
    });
}

void frmOptions::cmdOK_Click() {
    procedure(u"cmdOK_Click", [this] {
        if (!confirmComplaints())
            return;
        store();
        unload();
    });
}

void frmOptions::cmdApply_Click() {
    procedure(u"cmdApply_Click", [this] { store(); });
}

void frmOptions::cmdCancel_Click() {
    procedure(u"cmdCancel_Click", [this] { unload(); });
}

void frmOptions::store() {
    // The repository may come back and have the form generated anew.
    std::vector<std::pair<std::u16string, std::u16string>> values;
    for (const auto& editor : editors_)
        if (editor->isStored())
            values.emplace_back(editor->name, editor->value());
    const std::size_t generation = generation_;
    auto editor = editors_.begin();
    for (const auto& [name, value] : values) {
        SetEntry(name, value);
        if (!isLoaded())
            return;
        if (generation != generation_)
            continue;
        editor = std::find_if(editor, editors_.end(), [](const auto& each) { return each->isStored(); });
        (*editor)->stored = value;
        refreshMark(**editor++);
    }
}

bool frmOptions::confirmComplaints() {
    std::u16string lines;
    std::size_t count = 0;
    const SettingEditor* first = nullptr;
    for (const auto& editor : editors_) {
        const std::u16string complaint =
            editor->isChanged() ? complaintAbout(editor->kind, editor->value()) : std::u16string();
        if (complaint.empty())
            continue;
        if (count++ == 0)
            first = editor.get();
        if (count <= kMostComplaints)
            lines += editor->caption + u": " + complaint + u"\r\n";
    }
    if (first == nullptr)
        return true;
    if (count > kMostComplaints)
        lines += u"… and " + automation::decimal(static_cast<std::int64_t>(count - kMostComplaints)) +
                 u" more\r\n";
    const std::size_t generation = generation_;
    const ui::Message question{lines + u"\r\nStore the values all the same?", text(), kYesNo | kWarning};
    if (desktop().showMessage(question, this) == ui::MessageAnswer::Yes)
        return isLoaded();
    if (generation == generation_ && isLoaded()) {
        selectTab(first->tab);
        first->focusTarget().focus();
    }
    return false;
}

void frmOptions::entered(const SettingEditor& editor) {
    message_.setText(editor.isChanged() ? complaintAbout(editor.kind, editor.value()) : std::u16string());
    message_.setToolTip(message_.text());
}

}  // namespace quorel::settings
