#pragma once

#include <vector>

namespace tarn::bench {

/// Middle and spread of a series of readings. Medians and quartiles: a start-up time has a long
/// tail to one side.
struct Summary {
    double best = 0;  ///< the smallest: what remains on a busy machine of what a quiet one shows
    double median = 0;
    double lowerQuartile = 0;
    double upperQuartile = 0;
};

/// Of at least one reading.
Summary Summarize(std::vector<double> readings);

}  // namespace tarn::bench
