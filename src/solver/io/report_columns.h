// Columns of the reports: coordinates, values, and numbers of the head, right-justified in their places.
// Callers: the reports; the input reader, which refuses a coordinate that no column holds.
#pragma once
#include <cstddef>
#include <string>

#include "solver/problem.h"

namespace zirvo::solver {

/// Width of a coordinate's column, the blank in front included, of a value's, and of the four columns that name a
/// point.
inline constexpr std::size_t LayerWidth = 3;
inline constexpr std::size_t CoordinateWidth = 9;
inline constexpr std::size_t ValueWidth = 12;
inline constexpr std::size_t PointWidth = LayerWidth + 3 * CoordinateWidth;

/// Magnitudes below the first print as "0", those above the second not at all.
inline constexpr double SmallestPrinted = 1e-99;
inline constexpr double LargestPrinted = 9.9999e99;

/// The coordinate with 3 decimals while it fits its column with a blank in front, with fewer then, in the form 1.0E+10
/// at last; empty if not even that fits. No "-0.000".
std::string CoordinateText(double x);

/// Whether CoordinateText is not empty.
bool FitsCoordinateColumn(double x);

/// Writes layer and coordinates into the PointWidth characters at `row`, which hold blanks.
void WritePointColumns(const Point& point, char* row);

/// Writes the value in the form -1.2346E-01, or "0", so that it ends before `end`; the ValueWidth characters before it
/// hold blanks. Its magnitude is at most LargestPrinted.
void WriteValueColumn(double value, char* end);

/// A number of the head: FormatNumberText with as many digits as fit `columns` (at least 9), in the exponent form where
/// that keeps more of them.
std::string FittedNumberText(double x, std::size_t columns);

}  // namespace zirvo::solver
