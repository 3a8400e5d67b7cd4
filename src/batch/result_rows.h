// The results as comma-separated rows at full precision, and what is told of them. Callers: the solve and lives
// commands.
#pragma once
#include <string>

#include "solver/problem.h"

namespace zirvo::batch {

/// One heading row, then one row a point, each ended by a line feed: "layer,x,y,z,U,V,W,SIGx, ... ,GAMzx". Coordinates
/// are the shortest texts that read back the same, values have 17 significant digits.
/// @param points     what is asked
/// @param solution   as many results, in the units of the output
/// @param estimates  adds "ESTdisplacement,ESTstress,ESTstrain", with 3 digits: the bound of the error of each group
///                   as a share of its largest value at the point; "inf" where nothing can be said
std::string ResultRows(const std::vector<solver::Point>& points, const solver::Solution& solution, bool estimates);

/// "2 points just outside their layer were taken on its boundary".
std::string MovedPointsText(int count);

}  // namespace zirvo::batch
