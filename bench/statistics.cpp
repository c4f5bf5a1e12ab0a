#include "bench/statistics.h"

#include <algorithm>
#include <cmath>

namespace tarn::bench {

namespace {

// Linear between the two neighbours of the place.
double Quantile(const std::vector<double>& sorted, double share) {
    const double place = share * static_cast<double>(sorted.size() - 1);
    const auto below = static_cast<std::size_t>(std::floor(place));
    const auto above = static_cast<std::size_t>(std::ceil(place));
    return sorted[below] + (sorted[above] - sorted[below]) * (place - std::floor(place));
}

}  // namespace

Summary Summarize(std::vector<double> readings) {
    std::sort(readings.begin(), readings.end());
    return {readings.front(), Quantile(readings, 0.5), Quantile(readings, 0.25),
            Quantile(readings, 0.75)};
}

}  // namespace tarn::bench
