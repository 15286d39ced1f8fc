#include "diagram/diagram_model.h"

#include <stdexcept>
#include <utility>

namespace quorel::diagram {

namespace {

template <class Indices>
[[nodiscard]] std::ptrdiff_t indexOf(const Indices& indices, std::u16string_view key) {
    const auto found = indices.find(std::u16string(key));
    return found == indices.end() ? -1 : static_cast<std::ptrdiff_t>(found->second);
}

}  // namespace

std::size_t DiagramModel::addBox(Box box) {
    boxByKey_[box.key] = boxes.size();
    boxes.push_back(std::move(box));
    return boxes.size() - 1;
}

std::size_t DiagramModel::addConnection(Connection connection) {
    if (connection.from >= boxes.size() || connection.to >= boxes.size())
        throw std::out_of_range("a connection's end is no box");
    connectionByKey_[connection.key] = connections.size();
    connections.push_back(std::move(connection));
    return connections.size() - 1;
}

std::ptrdiff_t DiagramModel::findBox(std::u16string_view key) const {
    return indexOf(boxByKey_, key);
}

std::ptrdiff_t DiagramModel::findConnection(std::u16string_view key) const {
    return indexOf(connectionByKey_, key);
}

}  // namespace quorel::diagram
