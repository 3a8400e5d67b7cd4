// What a solver says in a report that holds no results. Callers: the roads to both solvers, where such a report ends in
// an error of its own.
#pragma once
#include <string>

namespace zirvo {

/// The lines of the report, in the solver's own words, without blanks around them and without the stamp; at most
/// MostReasonLines. Empty for a report of results (it has a line of "="), and where there is nothing to be read.
std::string ReasonInReport(const std::string& path);

inline constexpr int MostReasonLines = 10;

}  // namespace zirvo
