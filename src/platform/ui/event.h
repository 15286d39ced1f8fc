#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace quorel::ui {

/// What a control raises. Handlers run in the order they were connected. A handler may connect, disconnect,
/// or destroy the event's owner: the list that is being run stays alive and unchanged until the raise ends.
template <class... Args>
class Event {
  public:
    using Handler = std::function<void(Args...)>;

    void connect(Handler handler) {
        auto next = handlers_ ? std::make_shared<List>(*handlers_) : std::make_shared<List>();
        next->push_back(std::move(handler));
        handlers_ = std::move(next);
    }
    void clear() noexcept { handlers_.reset(); }
    [[nodiscard]] bool isConnected() const noexcept { return handlers_ != nullptr; }

    void raise(Args... arguments) const {
        if (const std::shared_ptr<const List> running = handlers_)
            for (const Handler& handler : *running)
                handler(arguments...);
    }

  private:
    using List = std::vector<Handler>;
    std::shared_ptr<const List> handlers_;
};

}  // namespace quorel::ui
