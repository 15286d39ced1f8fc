#include "navigator/browsers.h"

#include <array>
#include <utility>

#include "frame/attempt.h"
#include "navigator/explorer_setup.h"
#include "platform/automation/calls.h"
#include "platform/automation/text.h"

namespace quorel::navigator {

using automation::Object;

namespace {

struct BrowserTraits {
    std::u16string_view progId, name;
};
/// In the order of `Browser`. No name begins with another.
constexpr std::array<BrowserTraits, 4> kBrowsers{{
    {u"QuorelUtility.SixPane", u"Six-Pane"},
    {u"QuorelUtility.MatrixBrowser", u"Matrix"},
    {u"QuorelUtility.HTExplorer", u"Hierarchy"},
    {u"QuorelUtility.Explorer", u"Explorer"},
}};

[[nodiscard]] const BrowserTraits& traitsOf(Browser which) noexcept {
    return kBrowsers[static_cast<std::size_t>(which)];
}

}  // namespace

Browsers::Browsers(automation::ClassRegistry& classes, Workspace& workspace, std::function<void()> changed)
    : classes_(classes), workspace_(workspace), changed_(std::move(changed)) {}

Browsers::~Browsers() {
    if (session_)
        session_->components().onChanged = {};
}

const automation::Ref<WatchedSession>& Browsers::session() {
    if (!session_) {
        session_ = automation::make<WatchedSession>(workspace_.session());
        session_->components().onChanged = changed_;
    }
    return session_;
}

std::u16string Browsers::freeName(Browser which) const {
    for (std::int32_t number = 1;; ++number) {
        std::u16string name =
            std::u16string(traitsOf(which).name).append(u" ").append(automation::decimal(number));
        if (!componentNamed(name))
            return name;
    }
}

/// An explorer takes no name: it is registered under one all the same.
Object Browsers::make(Browser which, const std::u16string& name) {
    Object window = classes_.createObject(traitsOf(which).progId);
    if (which == Browser::Explorer)
        window.call(u"Create");
    else
        window.call(u"Create", name, Object(session()));
    return window;
}

void Browsers::prepare(Browser which, const Object& window, const Object& shown) {
    if (which == Browser::Matrix)
        window.putRef(u"RepositoryManager", session()->repositoryManager());
    window.putRef(u"Repository", workspace_.repository());
    window.call(u"Init");
    if (which == Browser::SixPane || which == Browser::Matrix)
        window.call(u"Populate");
    else if (which == Browser::Hierarchy)
        window.call(u"SetupTree");
    else
        describeExplorer(window, workspace_.repository());
    // What the window has read may have closed the repository meanwhile, and ended the window.
    if (!workspace_.isOpen())
        return;
    if (canShow(which, shown))
        window.call(u"SetSelection", shown);
    window.call(u"PopUp", false);
}

void Browsers::open(Browser which, const Object& shown) {
    if (which == Browser::Explorer)
        if (const Object former = latest(which)) {
            former.call(u"PopUp", false);
            return;
        }
    const std::u16string name = freeName(which);
    const Object window = make(which, name);
    session()->components().addComponent(name, window);
    try {
        prepare(which, window, shown);
    } catch (...) {
        end(name);
        throw;
    }
}

void Browsers::reveal(Browser which, const Object& object) {
    const Object window = latest(which);
    if (!window) {
        open(which, object);
        return;
    }
    window.call(u"SetSelection", object);
    window.call(u"PopUp", false);
}

std::vector<std::u16string> Browsers::names() const {
    std::vector<std::u16string> names;
    if (session_)
        for (const Object& component : automation::each(session_->componentManager()))
            names.push_back(component.get(u"name").toString());
    return names;
}

Object Browsers::componentNamed(const std::u16string& name) const {
    const Object component = session_ ? session_->components().getComponent(name) : Object();
    return component ? component.get(u"ComObject").toObject() : Object();
}

Object Browsers::latest(Browser which) const {
    const std::vector<std::u16string> all = names();
    for (auto name = all.rbegin(); name != all.rend(); ++name)
        if (name->starts_with(traitsOf(which).name))
            return componentNamed(*name);
    return {};
}

void Browsers::bringToFront(const std::u16string& name) {
    if (const Object window = componentNamed(name))
        window.call(u"PopUp", false);
}

void Browsers::end(const std::u16string& name) noexcept {
    Object window;
    frame::attempt([&] { window = componentNamed(name); });
    if (window) {
        frame::attempt([&] { window.call(u"Deinit"); });
        frame::attempt([&] { window.call(u"Destroy"); });
    }
    frame::attempt([&] { session_->components().removeComponent(name); });
}

void Browsers::closeAll() noexcept {
    std::vector<std::u16string> all;
    frame::attempt([&] { all = names(); });
    for (const std::u16string& name : all)
        end(name);
}

bool Browsers::canShow(Browser which, const Object& object) {
    if (!object)
        return false;
    if (which == Browser::SixPane)
        return true;
    return which == Browser::Matrix && automation::answersTo(object, u"Outgoing_");
}

}  // namespace quorel::navigator
