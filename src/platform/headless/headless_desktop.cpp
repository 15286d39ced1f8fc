#include "platform/headless/headless_desktop.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>

#include "platform/automation/text.h"
#include "platform/headless/quoted.h"
#include "platform/ui/access_key.h"
#include "platform/ui/drawing_area.h"
#include "platform/ui/menu.h"
#include "platform/ui/picture_file.h"
#include "platform/ui/virtual_list.h"

namespace quorel::headless {

namespace {

constexpr ui::Rect kScreen{{0}, {0}, {1920 * 15}, {1040 * 15}};
constexpr ui::Twips kUnitWidth{90};
constexpr ui::Twips kLineHeight{195};
constexpr std::int32_t kPoints = 8;

/// The lines that are left of one when it is broken between words.
[[nodiscard]] std::vector<std::size_t> brokenLengths(std::u16string_view line, std::size_t most) {
    std::vector<std::size_t> lengths{0};
    while (!line.empty()) {
        const std::size_t blank = line.find(u' ');
        const std::size_t word = std::min(blank, line.size());
        const std::size_t gap = lengths.back() > 0 ? 1 : 0;
        if (gap > 0 && lengths.back() + gap + word > most)
            lengths.push_back(word);
        else
            lengths.back() += gap + word;
        line.remove_prefix(std::min(word + 1, line.size()));
    }
    return lengths;
}

}  // namespace

HeadlessPeer::HeadlessPeer(HeadlessDesktop& desktop, ui::Control& control)
    : desktop_(desktop), control_(control) {
    ++desktop_.livePeers_;
    ++desktop_.peersMade_;
    invalidateAll();
}

HeadlessPeer::~HeadlessPeer() {
    --desktop_.livePeers_;
}

void HeadlessPeer::apply(ui::Change changes) {
    changes_ |= changes;
    if (has(changes, ui::Change::Bounds | ui::Change::Colours))
        invalidateAll();
    if (const auto* const tree = dynamic_cast<const ui::Tree*>(&control_);
        tree != nullptr && has(changes, ui::Change::ScrollTo))
        bringIntoView(*tree);
    const auto* const list = dynamic_cast<const ui::VirtualList*>(&control_);
    if (list == nullptr)
        return;
    scrollTo(topRow_);
    const auto target = list->scrollTarget();
    if (has(changes, ui::Change::ScrollTo) && target)
        bringIntoView(target->row, target->column);
}

void HeadlessPeer::takeFocus() {
    if (ui::Form* const form = control_.form())
        form->userFocused(&control_);
}

void HeadlessPeer::refresh() {
    ++desktop_.refreshes_;
}

void HeadlessPeer::invalidateAll() {
    if (auto* const area = dynamic_cast<ui::DrawingArea*>(&control_))
        invalidate({{}, {}, area->bounds().width, area->bounds().height});
}

void HeadlessPeer::invalidate(const ui::Rect& area) {
    const ui::Rect client{{}, {}, control_.bounds().width, control_.bounds().height};
    const ui::Rect seen = ui::intersection(area, client);
    if (seen.width.value > 0 && seen.height.value > 0)
        invalid_ = invalid_ ? ui::united(*invalid_, seen) : seen;
}

void HeadlessPeer::popUpMenu(ui::MenuItem& menu, ui::MenuPlace place) {
    static_cast<void>(place);
    const auto& items = menu.items();
    if (std::any_of(items.begin(), items.end(), [](const auto& item) { return item->isVisible(); }))
        desktop_.serveMenu(menu);
}

HeadlessDesktop::HeadlessDesktop() : workArea_(kScreen) {}

HeadlessDesktop::~HeadlessDesktop() {
    posted_.clear();
    if (failures_.empty() && expected_.empty())
        return;
    for (const std::string& failure : failures_)
        std::fprintf(stderr, "headless desktop: %s\n", failure.c_str());
    for (const Expectation& expectation : expected_)
        std::fprintf(stderr, "headless desktop: never came: %s\n", describe(expectation).c_str());
    std::abort();
}

void HeadlessDesktop::expectModal(std::u16string_view formName, std::function<void(ui::Form&)> user) {
    expected_.push_back({.formName = std::u16string(formName), .user = std::move(user)});
}

void HeadlessDesktop::expectMessage(std::function<void(const ui::Message&)> look, ui::MessageAnswer answer) {
    expected_.push_back({.isMessage = true, .look = std::move(look), .answer = answer});
}

void HeadlessDesktop::expectMenu(std::u16string_view entry) {
    expected_.push_back({.isMenu = true, .entry = std::u16string(entry)});
}

void HeadlessDesktop::serveMenu(ui::MenuItem& menu) {
    if (expected_.empty() || !expected_.front().isMenu)
        return fail("unexpected menu: " + nextExpected());
    const std::u16string entry = std::move(expected_.front().entry);
    expected_.pop_front();
    if (entry.empty())
        return;
    ui::MenuItem* const chosen = menu.find(entry);
    if (chosen == nullptr || !chosen->isChoosable())
        return fail("the menu has no usable entry " + quoted(entry));
    chosen->userClicked();
}

std::string HeadlessDesktop::describe(const Expectation& expectation) {
    if (expectation.isMenu)
        return "a menu to choose " + quoted(expectation.entry) + " from";
    return expectation.isMessage ? "a message box" : "the modal form " + quoted(expectation.formName);
}

std::string HeadlessDesktop::nextExpected() const {
    return expected_.empty() ? "nothing was expected" : "expected was " + describe(expected_.front());
}

void HeadlessDesktop::fail(std::string text) {
    failures_.push_back(std::move(text));
}

void HeadlessDesktop::verify() {
    std::vector<std::string> failures = std::exchange(failures_, {});
    for (const Expectation& expectation : std::exchange(expected_, {}))
        failures.push_back("never came: " + describe(expectation));
    if (failures.empty())
        return;
    std::string text;
    for (const std::string& failure : failures)
        text += (text.empty() ? "" : "\n") + failure;
    throw std::logic_error(text);
}

void HeadlessDesktop::runPosted() {
    while (!posted_.empty()) {
        const std::function<void()> task = std::move(posted_.front());
        posted_.pop_front();
        task();
    }
}

bool HeadlessDesktop::isBlocked(const ui::Form& form) const noexcept {
    return !modal_.empty() && modal_.back() != &form;
}

std::unique_ptr<ui::Peer> HeadlessDesktop::makePeer(ui::Control& control) {
    return std::make_unique<HeadlessPeer>(*this, control);
}

void HeadlessDesktop::runModal(ui::Form& form) {
    const Expectation* const next = expected_.empty() ? nullptr : &expected_.front();
    if (next == nullptr || next->isMessage || next->isMenu ||
        (!next->formName.empty() && next->formName != form.name())) {
        fail("unexpected modal form " + quoted(form.name()) + ": " + nextExpected());
        form.hide();
        return;
    }
    const std::function<void(ui::Form&)> user = std::move(expected_.front().user);
    expected_.pop_front();
    modal_.push_back(&form);
    serveModal(form, user);
    modal_.pop_back();
    if (form.isVisible() && form.isModal()) {
        fail("the modal form " + quoted(form.name()) + " is still open when its script has ended");
        form.hide();
    }
}

void HeadlessDesktop::serveModal(ui::Form& form, const std::function<void(ui::Form&)>& user) {
    try {
        runPosted();
        if (user)
            user(form);
        runPosted();
    } catch (const std::exception& error) {
        fail("in the script of the modal form " + quoted(form.name()) + ": " + error.what());
    }
}

void HeadlessDesktop::post(std::function<void()> task) {
    posted_.push_back(std::move(task));
}

ui::MessageAnswer HeadlessDesktop::showMessage(const ui::Message& message, ui::Form* owner) {
    static_cast<void>(owner);
    messages_.push_back(message);
    if (expected_.empty() || !expected_.front().isMessage) {
        fail("unexpected message box " + quoted(message.title) + " " + quoted(message.text) + ": " +
             nextExpected());
        return ui::MessageAnswer::Ok;
    }
    const Expectation expectation = std::move(expected_.front());
    expected_.pop_front();
    try {
        if (expectation.look)
            expectation.look(message);
    } catch (const std::exception& error) {
        fail("looking at the message box " + quoted(message.text) + ": " + error.what());
    }
    return expectation.answer;
}

void HeadlessDesktop::setPointer(ui::Pointer pointer) {
    pointer_ = pointer;
    if (pointer == ui::Pointer::Wait)
        ++waits_;
}

ui::Size HeadlessDesktop::textSize(std::u16string_view line, const ui::Font& font) {
    const std::int32_t points = font.points > 0 ? font.points : kPoints;
    return {kUnitWidth * points / kPoints * static_cast<std::int32_t>(line.size()),
            kLineHeight * points / kPoints};
}

std::vector<ui::Picture> HeadlessDesktop::loadPicture(std::u16string_view path) {
    if (const auto known = pictures_.find(std::u16string(path)); known != pictures_.end())
        return known->second;
    constexpr std::uint8_t kGrey = 128;
    std::vector<ui::Picture> frames;
    for (const ui::PixelSize size : ui::readPictureFile(path).frames) {
        ui::Picture& frame = frames.emplace_back(ui::Picture{size.width, size.height, {}});
        frame.rgba.assign(static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height) * 4,
                          kGrey);
    }
    return frames;
}

ui::Size HeadlessDesktop::labelSize(std::u16string_view text, const ui::Font& font,
                                    std::optional<ui::Twips> width) {
    const std::int32_t points = font.points > 0 ? font.points : kPoints;
    const ui::Twips unit = kUnitWidth * points / kPoints;
    const std::size_t most =
        width ? static_cast<std::size_t>(std::max(width->value / unit.value, 1)) : std::u16string::npos;
    const std::u16string shown = ui::withoutAccessKey(text);
    std::size_t longest = 0;
    std::int32_t lines = 0;
    for (std::size_t begin = 0, end = 0; end != std::u16string::npos; begin = end + 1) {
        end = shown.find(u'\n', begin);
        std::u16string_view line = std::u16string_view(shown).substr(begin, end - begin);
        if (!line.empty() && line.back() == u'\r')
            line.remove_suffix(1);
        for (const std::size_t length : brokenLengths(line, most)) {
            longest = std::max(longest, length);
            ++lines;
        }
    }
    return {unit * static_cast<std::int32_t>(longest), kLineHeight * points / kPoints * lines};
}

}  // namespace quorel::headless
