// An axis of a chart: its range, the places of its numbers and their texts. Caller: the chart.
#pragma once
#include <string>
#include <utility>
#include <vector>

namespace zirvo {

struct ChartAxis {
    double Low = 0;  ///< the ends, round numbers around the values
    double High = 1;
    bool Logarithmic = false;
    std::vector<std::pair<double, std::string>> Ticks;

    /// Where a value lies, from 0 at Low to 1 at High.
    double PlaceOf(double value) const;
};

/// The axis for values from `low` to `high`: at most about `most` numbers, steps of 1, 2 or 5 times a power of ten; of
/// a logarithmic one powers of ten, with 2 and 5 between them where there are few.
/// @param low, high  finite, low <= high; above 0 for a logarithmic axis
ChartAxis AxisOf(double low, double high, int most, bool logarithmic);

}  // namespace zirvo
