// The input of the solver programs: names of the reports, layers, loads, points, read by the rules of the format.
// Callers: the solver run (from the file that "Initial_File" names), zirvo-batch (in its own process).
//
// The lines of names and the one before them are taken whole; the other headings are text fields, and no words matter;
// the rest are rows of numbers (row_reader.h). What stands behind the last point is ignored.
#pragma once
#include <array>
#include <cstddef>
#include <istream>
#include <limits>
#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "solver/io/input_error.h"
#include "solver/problem.h"

namespace zirvo::solver {

/// What the input formats of the two solver programs differ in: names, limits, and the columns of the writer.
struct InputFormat {
    std::size_t ReportNames;
    int HighestPointCount;
    std::array<std::size_t, 3> CountWidths;
    std::array<std::size_t, 4> LayerWidths;  ///< the last layer has the first two
    std::array<std::size_t, 6> LoadWidths;
    std::array<std::size_t, 4> PointWidths;
    /// A depth outside the named layer by no more than this is taken on the boundary [cm].
    double DepthSlack;
    /// Whether the report has columns of a fixed width for the coordinates, which they must fit.
    bool CoordinatesInColumns;
};

/// How far outside the named layer a depth of the analysis path may lie [cm].
inline constexpr double DepthSlack = 0.01;

/// The analysis path's ".eva".
inline constexpr InputFormat AnalysisFormat{
    .ReportNames = 2,
    .HighestPointCount = 10000,
    .CountWidths = {3, 10, 11},
    .LayerWidths = {13, 17, 17, 16},
    .LoadWidths = {10, 17, 17, 16, 15, 19},
    .PointWidths = {5, 16, 13, 13},
    .DepthSlack = DepthSlack,
    .CoordinatesInColumns = true,
};

/// The graphics path's generated input. Its depths were rounded, and a plane may be chosen at any depth, so whatever
/// lies outside its layer counts on the boundary. The count line of an X-Z section is narrower, but its numbers never
/// touch.
inline constexpr InputFormat SectionFormat{
    .ReportNames = 1,
    .HighestPointCount = 100000,
    .CountWidths = {3, 10, 11},
    .LayerWidths = {13, 17, 17, 16},
    .LoadWidths = {10, 15, 15, 15, 15, 19},
    .PointWidths = {5, 16, 13, 13},
    .DepthSlack = std::numeric_limits<double>::infinity(),
    .CoordinatesInColumns = false,
};

inline constexpr int HighestLayerCount = 100;
inline constexpr int HighestLoadCount = 100;
inline constexpr double HighestPoissonRatio = 0.5;
inline constexpr double HighestSlipRate = 0.99;

struct SolverInput {
    /// As they stand in the file, decoded: of the results, and of the principal values. Not judged: whether a report
    /// may be written there is for the one who writes it (report_names.h).
    std::vector<std::string> ReportNames;
    /// The numbers as they were typed: moduli in kgf/cm2 or MPa, forces in kgf or kN, lengths in cm, angles in degrees.
    /// Layer number 0 has become 1, depths lie in their layers.
    Problem Typed;
    /// How many points lay outside their layer and were taken on its boundary.
    int MovedPoints = 0;
};

/// The whole input, or what is wrong with it: the first finding, in the order of the file.
std::variant<SolverInput, InputError> ReadSolverInput(std::istream& input, const InputFormat& format = AnalysisFormat);

/// The same in two steps, so that the reports that the input names can be dealt with before the rest is read.
class InputReader {
public:
    /// The stream must outlive this object and be open in binary mode.
    InputReader(std::istream& input, const InputFormat& format);
    ~InputReader();
    InputReader(const InputReader&) = delete;
    InputReader& operator=(const InputReader&) = delete;

    /// Reads up to the names. On an error `names` holds those that are known: a name whose line has no end is not.
    /// @return the error, or one with the reason None.
    InputError ReadNames(std::vector<std::string>& names);

    /// Reads the rest into everything but the names. @return as above.
    InputError ReadProblem(SolverInput& result);

private:
    class Work;
    std::unique_ptr<Work> work_;
};

}  // namespace zirvo::solver
