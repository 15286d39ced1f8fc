#include "platform/controls/combo.h"

#include <algorithm>
#include <utility>

#include "platform/automation/calls.h"
#include "platform/automation/text.h"
#include "platform/controls/cell_text.h"

namespace quorel::controls {

using automation::Object;
using automation::Value;

namespace {
constexpr ui::Twips kComboPadding{120};
}

Combo::Combo(std::u16string_view name, ui::Desktop& desktop)
    : Panel(std::u16string(name) + u".View"), desktop_(desktop), box_(&add<ui::ComboBox>(name)) {
    box_->onGotFocus.connect([this] { open(); });
    box_->onClick.connect([this] { chosen(); });
}

void Combo::reset() {
    setMetaNode(u"", {});
    setSelection({});
}

void Combo::setMetaNode(std::u16string_view view, Object metaNode) {
    ++generation_;
    view_ = view == u"Extension" ? std::u16string_view() : view;
    metaNode_ = std::move(metaNode);
    isRead_ = false;
}

void Combo::setSelection(Object object) {
    const auto alive = keepFormAlive();
    const std::uint64_t generation = ++generation_;
    isRead_ = false;
    selection_ = std::move(object);
    showSelection({});
    if (!selection_)
        return;
    std::u16string text = textOf(Object(selection_));
    if (generation == generation_)
        showSelection(std::move(text));
}

void Combo::showSelection(std::u16string text) {
    std::vector<Choice> choices;
    if (selection_)
        choices.push_back({std::move(text), selection_});
    show(std::move(choices), 0);
}

void Combo::show(std::vector<Choice> choices, std::size_t index) {
    std::vector<std::u16string> items;
    items.reserve(choices.size());
    for (const Choice& choice : choices)
        items.push_back(choice.text);
    const std::vector<Choice> gone = std::exchange(choices_, std::move(choices));
    box_->setItems(std::move(items));
    box_->setListIndex(index);
}

void Combo::open() {
    if (isRead_ || !metaNode_)
        return;
    const auto alive = keepFormAlive();
    const ui::WaitPointer wait(desktop_);
    const std::uint64_t generation = generation_;
    try {
        std::vector<Choice> choices = readChoices();
        if (generation != generation_)
            return;
        const auto isSelected = [this](const Choice& choice) { return choice.object == selection_; };
        auto at = std::find_if(choices.begin(), choices.end(), isSelected);
        if (at == choices.end() && selection_)
            at = choices.insert(choices.begin(), {box_->text(), selection_});
        const auto index = static_cast<std::size_t>(at - choices.begin());
        isRead_ = true;
        show(std::move(choices), index);
    } catch (...) {
        onFailure.raise(automation::currentError());
    }
}

/// Sorted by their texts, equal ones as the repository has them.
std::vector<Combo::Choice> Combo::readChoices() const {
    struct Keyed {
        std::u16string key;
        Choice choice;
    };
    std::vector<Keyed> keyed;
    for (const Object& node : automation::each(Object(metaNode_).get(u"Extension").toObject())) {
        if (!node)
            continue;
        std::u16string text = textOf(node);
        std::u16string key = automation::foldCase(text);
        keyed.push_back({std::move(key), {std::move(text), node}});
    }
    std::stable_sort(keyed.begin(), keyed.end(),
                     [](const Keyed& a, const Keyed& b) { return a.key < b.key; });
    std::vector<Choice> choices;
    choices.reserve(keyed.size());
    for (Keyed& each : keyed)
        choices.push_back(std::move(each.choice));
    return choices;
}

std::u16string Combo::textOf(const Object& object) const {
    return displayText(
        valueText(view_.empty() ? object.get(u"name") : object.get(u"Prop_", std::u16string(view_))));
}

void Combo::chosen() {
    const std::optional<std::size_t> index = box_->listIndex();
    if (!index || *index >= choices_.size() || choices_[*index].object == selection_)
        return;
    const auto alive = keepFormAlive();
    const std::uint64_t generation = generation_;
    const Object wanted = choices_[*index].object;
    try {
        onChoose.raise(wanted);
    } catch (...) {
        onFailure.raise(automation::currentError());
    }
    if (generation != generation_)
        return;
    const auto former = std::find_if(choices_.begin(), choices_.end(), [this](const Choice& choice) {
        return selection_ && choice.object == selection_;
    });
    box_->setListIndex(static_cast<std::size_t>(former - choices_.begin()));
}

void Combo::boundsChanged() {
    box_->setBounds({{0}, {0}, bounds().width, std::min(bounds().height, neededHeight())});
}

ui::Twips Combo::neededHeight() const {
    return desktop_.textSize(u"Xg").height + kComboPadding;
}

}  // namespace quorel::controls
