#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "navigator/component_watch.h"
#include "navigator/workspace.h"
#include "platform/automation/class_registry.h"

namespace quorel::navigator {

enum class Browser : std::uint8_t { SixPane, Matrix, Hierarchy, Explorer };

/// The windows on the repository, known to its session by name. Every window is created by its programmatic
/// identifier.
class Browsers {
  public:
    /// `changed` is called when `names` may be different.
    Browsers(automation::ClassRegistry& classes, Workspace& workspace, std::function<void()> changed);
    Browsers(const Browsers&) = delete;
    Browsers& operator=(const Browsers&) = delete;
    ~Browsers();

    /// Opens a window under a name of its own, not modal, with `shown` selected in it where it can show that.
    /// An explorer, which the user closes without a trace, is brought back if there is one. Throws what the
    /// window throws; it is not there then.
    void open(Browser which, const automation::Object& shown);
    /// Shows the object in a window of that kind, in one that is open if there is one.
    void reveal(Browser which, const automation::Object& object);
    /// The registered names in the order in which the windows were opened.
    [[nodiscard]] std::vector<std::u16string> names() const;
    /// Brings a window to front; nothing happens when it is gone.
    void bringToFront(const std::u16string& name);
    /// Ends every window, one after the other; one that fails does not keep the others from it.
    void closeAll() noexcept;

    /// Whether a window of that kind can show that object alone: the six-pane browser nodes, links and types,
    /// the matrix browser nodes.
    [[nodiscard]] static bool canShow(Browser which, const automation::Object& object);

  private:
    [[nodiscard]] const automation::Ref<WatchedSession>& session();
    [[nodiscard]] automation::Object componentNamed(const std::u16string& name) const;
    [[nodiscard]] automation::Object latest(Browser which) const;
    [[nodiscard]] std::u16string freeName(Browser which) const;
    [[nodiscard]] automation::Object make(Browser which, const std::u16string& name);
    void prepare(Browser which, const automation::Object& window, const automation::Object& shown);
    void end(const std::u16string& name) noexcept;

    automation::ClassRegistry& classes_;
    Workspace& workspace_;
    std::function<void()> changed_;
    automation::Ref<WatchedSession> session_;
};

}  // namespace quorel::navigator
