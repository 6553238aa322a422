#include "Costs.h"

#include <algorithm>
#include <cstddef>
#include <numeric>

namespace {

using Times = std::vector<Costs::Clock::duration>;

double microseconds(Costs::Clock::duration time) {
    return std::chrono::duration<double, std::micro>(time).count();
}

/// With the first `count` of them no longer than any other.
Times partitioned(Times times, std::size_t count) {
    std::nth_element(times.begin(), times.begin() + static_cast<std::ptrdiff_t>(count),
                     times.end());
    return times;
}

} // namespace

double Costs::median() const {
    const std::size_t middle = times.size() / 2;
    return times.empty() ? 0 : microseconds(partitioned(times, middle)[middle]);
}

double Costs::mean() const {
    const std::size_t count = times.size() - times.size() / 50;
    if (count == 0)
        return 0;
    const Times sorted = partitioned(times, count);
    const auto end = sorted.begin() + static_cast<std::ptrdiff_t>(count);
    return microseconds(std::accumulate(sorted.begin(), end, Clock::duration())) /
           static_cast<double>(count);
}
