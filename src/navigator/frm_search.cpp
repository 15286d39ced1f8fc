#include "navigator/frm_search.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "frame/window_placement.h"
#include "navigator/search_layout.h"
#include "navigator/search_row.h"
#include "platform/automation/calls.h"
#include "platform/automation/text.h"
#include "platform/ui/plain_controls.h"

namespace quorel::navigator {

using automation::Object;
using namespace ui::literals;

namespace {

constexpr ui::Size kFirstSearchSize{9600_tw, 6600_tw};
constexpr ui::Twips kFoundKindWidth = 1050_tw, kFoundNameWidth = 3000_tw, kFoundTypeWidth = 2100_tw,
                    kFoundWhereWidth = 3000_tw;
constexpr ui::Twips kProgressWidth = 1800_tw;

/// More than a screen shows; who needs more types more.
constexpr std::int32_t kMostResults = 100;
/// A slice of indexing, short enough for who types meanwhile.
constexpr std::int32_t kSliceMs = 40;
/// So much more in the index, in percent, is worth another look for what was not found.
constexpr std::int32_t kWorthAnotherLook = 10;
constexpr std::int32_t kAllIndexed = 100;
constexpr std::int64_t kPageOfRows = 10;

[[nodiscard]] std::u16string countText(std::size_t count) {
    if (count >= static_cast<std::size_t>(kMostResults))
        return u"first " + automation::decimal(kMostResults);
    std::u16string text = automation::decimal(static_cast<std::int64_t>(count));
    return text.append(count == 1 ? u" result" : u" results");
}

[[nodiscard]] bool isBlank(std::u16string_view text) noexcept {
    return text.find_first_not_of(u" \t\r\n") == std::u16string_view::npos;
}

/// What was typed, as far as a status line shows it.
[[nodiscard]] std::u16string shortened(std::u16string_view text) {
    constexpr std::size_t kShownLength = 60;
    std::u16string shown(text.substr(0, kShownLength));
    return text.size() > kShownLength ? shown.append(u"\u2026") : shown;
}

}  // namespace

frmSearch::frmSearch(const frame::Environment& environment, Object repository)
    : Form(environment.desktop, u"frmSearch"),
      environment_(environment),
      repository_(std::move(repository)),
      caption_(add<ui::Label>(u"QueryCaption")),
      query_(add<ui::TextBox>(u"Query")),
      results_(add<controls::ListView>(u"Results", environment.desktop)),
      statusBar_(add<ui::StatusBar>(u"StatusBar")) {
    setText(u"Search Everywhere");
    caption_.setText(u"&Search for");
    query_.setCueText(u"Words of names and values");
    results_.addColumn(u"Kind", u"Kind", kFoundKindWidth);
    results_.addColumn(u"Name", u"LinkName", kFoundNameWidth);
    results_.addColumn(u"Type", u"Type", kFoundTypeWidth);
    results_.addColumn(u"Where", u"Where", kFoundWhereWidth);
    results_.list().setToolTip(u"Enter shows what is selected in a browser");
    connectParts();
    const ui::Size line = desktop().textSize(u"Search for");
    setMinimumClientSize(leastSearchSize(line.height, line.width));
    setClientSize(kFirstSearchSize);
    place();
}

void frmSearch::connectParts() {
    onLoad.connect([this] { Form_Load(); });
    onUnload.connect([this] { Form_Unload(); });
    onResize.connect([this] { place(); });
    onKeyDown.connect([this](ui::KeyEvent& event) {
        if (event.handled || event.chord != ui::KeyChord{ui::Key::Escape})
            return;
        event.handled = true;
        procedure(u"Form_KeyDown", [this] { unload(); });
    });
    query_.onChange.connect([this] { Query_Change(); });
    query_.onKeyDown.connect([this](ui::KeyEvent& event) { keyInQuery(event); });
    results_.onDoubleClick.connect([this] { Results_DblClick(); });
    results_.onCellError.connect(
        [this](const automation::Error& error) { procedure(u"Results_Read", [&] { throw error; }); });
}

// The window.
// ------------------------------------------------------------------------

void frmSearch::Form_Load() {
    query_.focus();
    query_.selectAll();
    procedure(u"Form_Load", [this] {
        if (const auto placement = frame::readWindowPlacement(environment_.settings, name(), {}))
            frame::place(*this, *placement);
        isSearchable_ = automation::answersTo(repository_, u"Search");
        if (!isSearchable_) {
            query_.setEnabled(false);
            statusBar_.setPanelText(0, u"This repository cannot be searched: it has no member 'Search'");
            return;
        }
        indexSoon();
        indexed_ = isIndexing_ ? 0 : kAllIndexed;
        search();
    });
}

void frmSearch::Form_Unload() {
    ++searches_;
    results_.clearRows();
    procedure(u"Form_Unload", [this] { savePlacement(); });
}

void frmSearch::savePlacement() {
    const frame::WindowPlacement former = frame::readWindowPlacement(environment_.settings, name(), {})
                                              .value_or(frame::WindowPlacement{.size = kFirstSearchSize});
    frame::writeWindowPlacement(environment_.settings, name(), frame::placementOf(*this, former), {});
}

void frmSearch::place() {
    const ui::Size line = desktop().textSize(u"Search for");
    const SearchLayout layout = layoutSearch(clientSize(), line.height, line.width);
    caption_.setBounds(layout.caption);
    query_.setBounds(layout.query);
    results_.setBounds(layout.results);
    statusBar_.setBounds(layout.statusBar);
    std::vector<ui::StatusBar::PanelState> panels = statusBar_.panels();
    panels.resize(2);
    panels[0].width = std::max(clientSize().width - kProgressWidth, 0_tw);
    panels[1].width = kProgressWidth;
    statusBar_.setPanels(std::move(panels));
}

// Searching.
// ------------------------------------------------------------------------

void frmSearch::Query_Change() {
    procedure(u"Query_Change", [this] { search(); });
}

void frmSearch::search() {
    if (!isSearchable_)
        return;
    const std::uint64_t number = ++searches_;
    searchedAt_ = indexed_;
    results_.clearRows();
    statusBar_.setPanelText(0, u"");
    if (isBlank(query_.text()))
        return;
    const Object found = repository_.call(u"Search", query_.text(), kMostResults).toObject();
    // The repository may have let the user type on, or close the window.
    if (number == searches_)
        fill(found);
}

void frmSearch::fill(const Object& found) {
    const std::uint64_t number = searches_;
    std::vector<Object> rows;
    for (const Object& result : automation::each(found))
        if (result)
            rows.push_back(automation::make<SearchRow>(result, static_cast<std::int32_t>(rows.size() + 1)));
    if (number != searches_)
        return;
    for (const Object& row : rows)
        results_.addObject(row);
    if (results_.shownCount() > 0)
        results_.list().selectRow(0);
    tellResults();
    if (!isIndexing_ && automation::answersTo(found, u"Complete") && !found.get(u"Complete").toBoolean())
        indexSoon();
}

void frmSearch::tellResults() {
    statusBar_.setPanelText(0, results_.count() == 0
                                   ? u"Nothing found for '" + shortened(query_.text()) + u"'"
                                   : countText(results_.count()));
}

void frmSearch::keyInQuery(ui::KeyEvent& event) {
    if (event.handled || event.chord.modifiers != ui::Modifiers::None)
        return;
    event.handled = true;
    switch (event.chord.key) {
        case ui::Key::Down:
            return moveBy(1);
        case ui::Key::Up:
            return moveBy(-1);
        case ui::Key::PageDown:
            return moveBy(kPageOfRows);
        case ui::Key::PageUp:
            return moveBy(-kPageOfRows);
        case ui::Key::Enter:
            return procedure(u"Query_KeyDown", [this] { reveal(); });
        default:
            event.handled = false;
    }
}

void frmSearch::moveBy(std::int64_t rows) {
    const auto count = static_cast<std::int64_t>(results_.shownCount());
    if (count == 0)
        return;
    const std::optional<std::size_t> selected = results_.list().selectedRow();
    const std::int64_t row = selected ? static_cast<std::int64_t>(*selected) + rows : 0;
    results_.list().selectRow(static_cast<std::size_t>(std::clamp<std::int64_t>(row, 0, count - 1)));
}

void frmSearch::Results_DblClick() {
    procedure(u"Results_DblClick", [this] { reveal(); });
}

void frmSearch::reveal() {
    const Object selected = results_.selectedObject();
    if (!selected)
        return;
    const Object object = static_cast<const SearchRow&>(*selected.native()).object();
    unload();
    if (object)
        onReveal.raise(object);
}

// Indexing.
// ------------------------------------------------------------------------

void frmSearch::indexSoon() {
    isIndexing_ = automation::answersTo(repository_, u"PrepareSearch");
    if (!isIndexing_)
        return;
    desktop().post([weak = weak_from_this()] {
        if (const auto form = std::static_pointer_cast<frmSearch>(weak.lock()))
            form->procedure(u"Index", [&form] { form->indexSome(); });
    });
}

void frmSearch::indexSome() {
    isIndexing_ = false;
    if (!isLoaded())
        return;
    statusBar_.setPanelText(1, u"Not all is indexed");  // stays if what follows fails
    const std::int32_t percent = repository_.call(u"PrepareSearch", kSliceMs).toInteger();
    if (!isLoaded())
        return;
    tellProgress(percent);
    if (percent < kAllIndexed)
        indexSoon();
    const bool hasMore =
        percent >= kAllIndexed ? searchedAt_ < kAllIndexed : percent >= searchedAt_ + kWorthAnotherLook;
    const bool isUntouched = results_.list().selectedRow().value_or(0) == 0;
    if (hasMore && isUntouched && results_.count() < static_cast<std::size_t>(kMostResults))
        search();
}

void frmSearch::tellProgress(std::int32_t percent) {
    indexed_ = std::clamp(percent, 0, kAllIndexed);
    statusBar_.setPanelText(
        1, indexed_ == kAllIndexed ? std::u16string() : u"Indexing " + automation::decimal(indexed_) + u" %");
}

}  // namespace quorel::navigator
