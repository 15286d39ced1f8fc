#include <algorithm>
#include <numeric>

#include "diagram/layout/component.h"

namespace quorel::diagram::layout {
namespace {

int rootOf(std::vector<int>& parents, int v) {
    while (parents[static_cast<std::size_t>(v)] != v) {
        int& parent = parents[static_cast<std::size_t>(v)];
        parent = parents[static_cast<std::size_t>(parent)];
        v = parent;
    }
    return v;
}

Length squareRoot(Length number) {
    Length low = 0, high = 3'000'000'000;
    while (low < high) {
        const Length middle = (low + high + 1) / 2;
        if (middle <= number / middle)
            low = middle;
        else
            high = middle - 1;
    }
    return low;
}

}  // namespace

std::vector<Component> splitIntoComponents(const Diagram& diagram) {
    std::vector<int> parents(diagram.boxes.size());
    std::iota(parents.begin(), parents.end(), 0);
    for (const Connection& connection : diagram.connections) {
        const int a = rootOf(parents, static_cast<int>(connection.from));
        const int b = rootOf(parents, static_cast<int>(connection.to));
        parents[static_cast<std::size_t>(std::max(a, b))] = std::min(a, b);
    }
    std::vector<Component> components;
    std::vector<std::size_t> numbers(parents.size());
    for (std::size_t v = 0; v < parents.size(); ++v) {
        const auto root = static_cast<std::size_t>(rootOf(parents, static_cast<int>(v)));
        if (root == v)
            numbers[v] = components.size(), components.emplace_back();
        numbers[v] = numbers[root];
        components[numbers[v]].boxes.push_back(static_cast<int>(v));
    }
    for (std::size_t c = 0; c < diagram.connections.size(); ++c)
        components[numbers[diagram.connections[c].from]].connections.push_back(static_cast<int>(c));
    return components;
}

Extent pack(const std::vector<Extent>& sizes, Length gap, std::vector<Place>& places) {
    std::vector<std::size_t> order(sizes.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(),
                     [&](std::size_t a, std::size_t b) { return sizes[a].height > sizes[b].height; });
    Length area = 0, widest = 0;
    for (const Extent& size : sizes)
        area += (size.width + gap) * (size.height + gap), widest = std::max(widest, size.width);
    const Length wide = std::max(widest, squareRoot(area));
    places.resize(sizes.size());
    Extent whole;
    Place next;
    Length rowHeight = 0;
    for (const std::size_t i : order) {
        if (next.x > 0 && next.x + sizes[i].width > wide)
            next = {0, next.y + rowHeight + gap}, rowHeight = 0;
        places[i] = next;
        rowHeight = std::max(rowHeight, sizes[i].height);
        next.x += sizes[i].width + gap;
        whole.width = std::max(whole.width, next.x - gap);
        whole.height = std::max(whole.height, next.y + rowHeight);
    }
    return whole;
}

}  // namespace quorel::diagram::layout
