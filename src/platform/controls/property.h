#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/automation/error.h"
#include "platform/controls/property_editor_handle.h"
#include "platform/controls/property_lines.h"
#include "platform/controls/property_model.h"
#include "platform/shell/file_dialogs.h"
#include "platform/shell/value_pickers.h"
#include "platform/ui/control.h"
#include "platform/ui/desktop.h"
#include "platform/ui/virtual_list.h"

namespace quorel::ui {
class Button;
class CheckBox;
class ComboBox;
class Label;
class TextBox;
}  // namespace quorel::ui

namespace quorel::controls {

/// A property grid: a line for each property that the meta object declares, with its name and the value that
/// the edited object has, and an editor of the property's data type over the cell that is edited.
///
/// Used in this order: `initialise`, `setPath`, `setMetaObject`, `build`, `setRepObject` (before or after
/// `build`); then the user edits; `apply` writes what was changed. `release` drops what was built, `close`
/// everything. The operations throw what the repository throws. What fails while the user acts comes as
/// `onFailure`.
///
/// Properties that name a category (`Category`) are grouped under headings, which fold. A value is read when
/// its line is seen; one that cannot be read shows a mark and cannot be edited. A changed value is marked and
/// can be reverted by itself (Ctrl+Z); one that is refused keeps its text, with the reason in its cell.
///
/// Keys: F2, a double click or a click on the value of the selected line edits; Enter takes the text, Tab
/// takes it and goes on to the next value, Shift+Tab to the one before, Esc takes it back. In several lines
/// Enter breaks the line and Ctrl+Enter takes the text. F4 and Alt+Down browse for a file or a folder and
/// open the picker of a colour or a date, as the button beside the text does. On a line: Space turns a
/// boolean over, Delete unsets, Ctrl+C copies, Ctrl+F searches, Left and Right fold; Enter is the form's
/// default button.
///
/// Made of plain controls: the list bears the name given, this container is "<name>.View"; then there are
/// "<name>.Search", "<name>.Title", "<name>.Description" and the editors "<name>.Text", "<name>.Lines",
/// "<name>.Check", "<name>.Choice", with "<name>.Browse" and "<name>.Message".
class Property : public ui::Panel, private ui::RowSource {
  public:
    /// Without `files` nothing can be browsed for, loaded or saved; without `pickers` colours and dates can
    /// only be typed.
    Property(std::u16string_view name, ui::Desktop& desktop, shell::FileDialogs* files = nullptr,
             shell::ValuePickers* pickers = nullptr);
    ~Property() override;

    // The operations.
    // --------------------------------------------------------------------
    /// Begins anew: no rows, no objects, no edits, no search.
    void initialise();
    /// The folder in which the dialogs for files and folders open.
    [[nodiscard]] const std::u16string& path() const noexcept { return path_; }
    void setPath(std::u16string_view path) { path_ = path; }
    [[nodiscard]] const automation::Object& metaObject() const noexcept { return model_.metaObject(); }
    void setMetaObject(automation::Object metaObject) { model_.setMetaObject(std::move(metaObject)); }
    /// A row for a member of the object itself, such as its `name`, before its properties; before `build`.
    void addMember(PropertyMember::Texts member) { model_.addMember(std::move(member)); }
    /// Makes the rows; edits are forgotten. Error 91 without a meta object.
    void build();
    /// Drops rows, object, meta object and edits.
    void release();
    /// Releases, and forgets the path.
    void close();
    [[nodiscard]] automation::Object repObject() const { return model_.object(); }
    /// Shows the values of that object; edits of the former one are forgotten.
    void setRepObject(automation::Object object);
    [[nodiscard]] bool isReadOnly() const noexcept { return model_.isReadOnly(); }
    void setReadOnly(bool readOnly);
    /// Takes the text that is being edited and writes the changed values. See `PropertyModel::apply`.
    void apply();

    /// At which all its lines can be seen, as far as anybody has room for them.
    [[nodiscard]] ui::Twips neededHeight() const;

    // The events.
    // --------------------------------------------------------------------
    [[nodiscard]] PropertyEvents& events() noexcept { return model_.events; }
    /// A value could not be read (once for each object shown), or what the user did failed.
    ui::Event<const automation::Error&> onFailure;

    // What the keys and the context menu do.
    // --------------------------------------------------------------------
    /// Opens the editor of the line, after taking the text of the one that is open.
    void beginEdit(std::size_t line);
    /// Takes the text and closes the editor; a refused text stays in its cell.
    void endEdit();
    /// Closes the editor; the property is as it was before.
    void cancelEdit();
    [[nodiscard]] bool isEditing() const noexcept { return editing_.has_value(); }
    void revertSelected();
    void revertAll();
    /// Unsets the property.
    void clearSelected();
    void copySelected();
    void copyAll();
    /// Bytes from and to a file that the user chooses.
    void loadSelected();
    void saveSelected();

    [[nodiscard]] ui::VirtualList& list() noexcept { return *list_; }
    [[nodiscard]] ui::TextBox& searchBox() noexcept { return *searchBox_; }
    [[nodiscard]] const PropertyLines& lines() const noexcept { return lines_; }
    [[nodiscard]] PropertyModel& model() noexcept { return model_; }

  private:
    using Item = PropertyModel::Item;
    enum class Step : std::int8_t { Back = -1, On = 1 };
    struct Editing {
        Item item;
        EditorKind kind;
        ui::Control* box;
        automation::Ref<PropertyEditorHandle> handle;
        std::u16string begunWith;
        bool hasButton = false;
        bool touched = false;
    };

    // What the list shows.
    [[nodiscard]] std::size_t rowCount() const override { return lines_.size(); }
    [[nodiscard]] std::u16string cellText(std::size_t line, std::size_t column) override;
    [[nodiscard]] std::u16string cellToolTip(std::size_t line, std::size_t column) override;
    [[nodiscard]] bool hasLooks() const override { return true; }
    [[nodiscard]] ui::CellLook cellLook(std::size_t line, std::size_t column) override;
    [[nodiscard]] bool isGroup(std::size_t line) override;
    void boundsChanged() override;
    [[nodiscard]] bool isLocked(PropertyItem& item) const;
    static void showColour(PropertyItem& item, ui::CellLook& look);
    [[nodiscard]] std::u16string headingText(const std::u16string& category) const;
    [[nodiscard]] std::u16string nameText(PropertyItem& item);
    [[nodiscard]] std::u16string valueOf(PropertyItem& item);
    void cellFailed(const automation::Error& error);
    void place();
    void placeColumns();
    void rearrange();
    void showDescription();
    [[nodiscard]] Item selectedItem() const;
    void toggleHeading(std::size_t line);
    /// Shows the lines that the text in the search box lets through.
    void search();
    /// The line, from `start` on and round to it, whose name begins so.
    [[nodiscard]] std::optional<std::size_t> find(std::u16string_view text, std::size_t start);

    // Editing.
    void openEditor(const Item& item, EditorKind kind);
    void placeEditor();
    void clickedCell(ui::CellIndex cell);
    void closeEditor();
    [[nodiscard]] ui::Control& boxFor(PropertyItem& item, EditorKind kind, std::u16string_view text);
    void fillBox(PropertyItem& item, const Editing& editing);
    PropertyModel::Outcome commit();
    void typed(const std::u16string& text);
    void showProblem();
    void editNext(Step step);
    void editorLost();
    /// Opens the dialog of the kind; what is chosen is taken as if it was typed.
    void browse();
    [[nodiscard]] std::optional<std::u16string> ask(const Editing& editing);
    [[nodiscard]] std::optional<std::u16string> askForPath(const Editing& editing);
    [[nodiscard]] std::optional<std::u16string> askForColour(const Editing& editing);
    [[nodiscard]] std::optional<std::u16string> askForDay(const Editing& editing);
    [[nodiscard]] bool hasButton(PropertyItem& item, EditorKind kind) const;
    void browseLine(std::size_t line);
    void toggleBoolean(const Item& item);

    // Keys and menu.
    void buildMenu();
    void prepareMenu();
    void keyInList(ui::KeyEvent& event);
    void keyOnHeading(ui::KeyEvent& event, std::size_t line);
    void keyInSearch(ui::KeyEvent& event);
    void keyInEditor(ui::KeyEvent& event);
    void pressDefault();
    [[nodiscard]] std::u16string copied(const Item& item);

    /// Runs what the user does; a failure comes as `onFailure`.
    template <class Action>
    void act(Action&& action);

    ui::Desktop& desktop_;
    shell::FileDialogs* files_;
    shell::ValuePickers* pickers_;
    std::u16string path_;
    PropertyModel model_;
    PropertyLines lines_;

    ui::TextBox* searchBox_;
    ui::TextBox* textBox_;
    ui::TextBox* linesBox_;
    ui::CheckBox* checkBox_;
    ui::ComboBox* choiceBox_;
    ui::Button* browseButton_;
    ui::Label* message_;
    ui::VirtualList* list_;
    ui::Label* title_;
    ui::Label* description_;

    std::optional<Editing> editing_;
    bool failureReported_ = false;
    Item selected_;        ///< as the user last selected it
    Item selectedBefore_;  ///< before that, so that a click can tell
    ui::Twips nameWidth_{0};
    std::shared_ptr<const bool> alive_ = std::make_shared<const bool>(true);
};

template <class Action>
void Property::act(Action&& action) {
    const auto form = keepFormAlive();
    try {
        action();
    } catch (...) {
        onFailure.raise(automation::currentError());
    }
}

}  // namespace quorel::controls
