// What is wrong with a data file, row by row and value by value, in English. The screens only say which group of data
// failed; the check tool prints these. Callers: the readers of the input files, the check tool.
#pragma once
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "pavement/pavement_rules.h"

namespace zirvo {

enum class DataGroup { File, Names, Counts, Layers, Loads, Points };

/// One value that a rule refuses, or the place where a file could not be read on.
struct Finding {
    DataGroup Group = DataGroup::File;
    int Row = 0;         ///< 1-based; 0 where the group has no rows
    std::string Value;   ///< its name, for example "PoissonRatio"; empty where no single value is meant
    std::string Text;    ///< the number or text that stands there; empty where it could not be read
    std::string Reason;  ///< "is above 0.5"

    bool operator==(const Finding&) const = default;
};

/// The finding as one line without an end: "layer 2, PoissonRatio 0.7: is above 0.5".
std::string FindingText(const Finding& finding);

/// The reason of a refusal: "is above 0.5".
std::string_view ReasonOf(Refusal refusal);

/// The same with the depths of the layer at hand: "lies below the bottom of layer 1 at 10 cm".
std::string DepthReasonOf(Refusal refusal, const InterestPoint& point, const LayerTops& tops, int layerCount);

/// The reason why a read stopped at a fault: "is no number", "the file ends here".
std::string ReasonOf(const RuntimeFault& caught);

/// Adds one finding for each value of a row that is refused.
/// @param names   names of the values by column
/// @param values  the numbers by column
void AddRowFindings(DataGroup group, int row, std::span<const char* const> names, std::span<const double> values,
                    std::span<const Refusal> refusals, std::vector<Finding>& findings);

}  // namespace zirvo
