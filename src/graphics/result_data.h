// The comma file of a section read into the data that a map is drawn from. Callers: the graphics screen after each
// conversion, the batch tool.
#pragma once
#include <istream>
#include <string>
#include <vector>

#include "base/progress.h"
#include "contour/contour_map.h"

namespace zirvo {

/// All that drawing rests on. A value that the file does not have is 0.
struct ResultDataSet {
    std::vector<double> PointValue{0.0};  ///< of the data lines in file order [micro], 1-based: entry 0 is unused
    ContourMap Map;                       ///< field, grid, extent and value range
    double ContourMin = 0;                ///< the value range to which an invalid entry returns; set by TakeReadOuts
    double ContourMax = 0;  ///< its other end, which no entry asks for: an invalid one returns to ContourMin

    /// Number of data lines.
    int Count() const { return static_cast<int>(PointValue.size()) - 1; }
};

/// Reads the file, puts each value into its node of the fine matrix and refines the matrix. A line whose very first
/// character is "#" is a comment; in any other line the first four of the fields between its commas are X, Y, Z and the
/// value, each read as a cell is (a word is 0). Positions of the grid come from `grid`, with 4 decimals; the extent
/// comes from the file, with 2.
///
/// On an X-Z section a gap between two levels that agree after rounding takes up no values, so that all later rows hold
/// values of other points; nothing warns of it.
/// @param grid  of the run that made the file
/// Fault 9 for a line with fewer than four fields (an empty one too) and beyond 100000 data lines; those of a file that
/// cannot be read.
ResultDataSet ReadResultData(const std::string& path, SectionKind kind, const CoarseGrid& grid,
                             const Progress& progress = {});

/// The same from a stream, opened in binary mode.
ResultDataSet ReadResultData(std::istream& input, SectionKind kind, const CoarseGrid& grid,
                             const Progress& progress = {});

/// What the screen shows of a data set: extent in the format "0.00" [cm], value range in "0.00E+00" [micro].
struct ReadOuts {
    std::string AxisMin1, AxisMax1, AxisMin2, AxisMax2;
    std::string ValueMin, ValueMax;

    bool operator==(const ReadOuts&) const = default;
};

/// Gives the texts, and takes the value range back from them: from here on the map is drawn in limits of three
/// significant digits, and values beyond them are black. Fault 6 for values that are no finite numbers.
ReadOuts TakeReadOuts(ResultDataSet& data);

}  // namespace zirvo
