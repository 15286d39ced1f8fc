#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "frame/environment.h"
#include "frame/guarded.h"
#include "platform/automation/object.h"
#include "platform/controls/list_view.h"
#include "platform/ui/form.h"

namespace quorel::ui {
class Label;
class StatusBar;
class TextBox;
}  // namespace quorel::ui

namespace quorel::navigator {

/// The window that searches a repository while the user types: types, nodes, links and values. It knows the
/// repository by its members `Search` and, if there is one, `PrepareSearch`, which it calls in slices from
/// the message loop for as long as not everything is indexed. What fails is shown in the error box with
/// module label "Search".
///
/// While `Query` has the focus the arrow keys move in `Results`. Enter or a double click on a result ends the
/// window and raises `onReveal`; Esc ends it. A repository that answers no `Search` is said to be one.
class frmSearch final : public ui::Form {
  public:
    frmSearch(const frame::Environment& environment, automation::Object repository);

    /// The node, link or type to be shown, once the window has ended.
    ui::Event<const automation::Object&> onReveal;

  private:
    /// Runs a procedure of this window under its label.
    template <class Body>
    auto procedure(std::u16string_view label, Body&& body) {
        return frame::guarded(*this, u"Search", label, std::forward<Body>(body));
    }

    void Form_Load();
    void Form_Unload();
    void Query_Change();
    void keyInQuery(ui::KeyEvent& event);
    void Results_DblClick();

    void connectParts();
    void search();
    void fill(const automation::Object& found);
    void tellResults();
    void moveBy(std::int64_t rows);
    void reveal();
    void indexSoon();
    void indexSome();
    void tellProgress(std::int32_t percent);
    void savePlacement();
    void place();

    frame::Environment environment_;
    automation::Object repository_;
    ui::Label& caption_;
    ui::TextBox& query_;
    controls::ListView& results_;
    ui::StatusBar& statusBar_;
    std::uint64_t searches_ = 0;   ///< so that a search which another one overtook is known
    std::int32_t indexed_ = 0;     ///< in percent, as it was told last
    std::int32_t searchedAt_ = 0;  ///< what was indexed when the search began
    bool isSearchable_ = false;
    bool isIndexing_ = false;
};

}  // namespace quorel::navigator
