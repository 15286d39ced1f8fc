#include "platform/ui/tab_order.h"

#include <algorithm>
#include <vector>

namespace quorel::ui {

namespace {

/// Every control that may have the focus, and `from` wherever it stands, in tab order.
void collect(const Container& container, const Control* from, bool usable, std::vector<Control*>& stops) {
    for (const std::unique_ptr<Control>& child : container.children()) {
        const bool childUsable = usable && child->isVisible() && child->isEnabled();
        if (child.get() == from || (childUsable && child->isTabStop()))
            stops.push_back(child.get());
        if (const auto* inner = dynamic_cast<const Container*>(child.get()))
            collect(*inner, from, childUsable, stops);
    }
}

[[nodiscard]] bool isStop(const Control& control) {
    return control.isTabStop() && control.isUsable();
}

template <class Iterator>
[[nodiscard]] Control* following(Iterator begin, Iterator end, const Control* from) {
    const Iterator at = std::find(begin, end, from);
    const Iterator start = at == end ? begin : std::next(at);
    if (start != end)
        return *start;
    // Round to the front; `from` may be there without being a stop.
    return begin != end && (*begin != from || isStop(**begin)) ? *begin : nullptr;
}

}  // namespace

Control* nextTabStop(Form& form, const Control* from) {
    std::vector<Control*> stops;
    collect(form, from, form.isEnabled(), stops);
    return following(stops.begin(), stops.end(), from);
}

Control* previousTabStop(Form& form, const Control* from) {
    std::vector<Control*> stops;
    collect(form, from, form.isEnabled(), stops);
    return following(stops.rbegin(), stops.rend(), from);
}

}  // namespace quorel::ui
