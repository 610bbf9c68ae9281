#include "forms/ReadingOrder.h"

#include <algorithm>
#include <numeric>

namespace forms {

std::vector<std::size_t> ReadingOrder(const std::vector<Area>& areas) {
    std::vector<std::size_t> order(areas.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(),
                     [&](std::size_t a, std::size_t b) { return areas[a].Top < areas[b].Top; });
    for (auto line = order.begin(); line != order.end();) {
        const double bottom = areas[*line].Top + areas[*line].Height;
        const auto next = std::stable_partition(std::next(line), order.end(), [&](std::size_t at) {
            return areas[at].Top + areas[at].Height / 2 < bottom;
        });
        std::stable_sort(line, next,
                         [&](std::size_t a, std::size_t b) { return areas[a].Left < areas[b].Left; });
        line = next;
    }
    return order;
}

} // namespace forms
