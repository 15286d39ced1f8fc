#pragma once

#include <cstddef>
#include <vector>

#include "platform/automation/object.h"

namespace quorel::matrix {

/// The nodes that were the source one after the other, and which of them is the source now. The oldest are
/// forgotten when there are too many. No member of a node is called.
class VisitedSources {
  public:
    static constexpr std::size_t kMost = 100;

    /// The node is the source now; what was gone back from is forgotten. Nothing happens when it was already.
    void visit(const automation::Object& node);
    /// Forgets all and lets go of the nodes.
    void clear() noexcept;

    [[nodiscard]] bool canGoBack() const noexcept { return position_ > 1; }
    [[nodiscard]] bool canGoForward() const noexcept { return position_ < nodes_.size(); }
    /// Moves by one and answers the node to make the source; empty, and no move, when there is none.
    [[nodiscard]] automation::Object goBack() noexcept;
    [[nodiscard]] automation::Object goForward() noexcept;

  private:
    std::vector<automation::Object> nodes_;
    std::size_t position_ = 0;  // behind the present one
};

}  // namespace quorel::matrix
