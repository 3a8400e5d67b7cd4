// Reads the problems with true values in tests/data/cases.
#pragma once
#include <array>
#include <optional>
#include <string>
#include <vector>

#include "solver/solve.h"

namespace zirvo::solver {

struct CaseFile {
    std::string Name;
    Problem TheProblem;       ///< in the unit of the moduli
    double StressFactor = 1;  ///< from that unit to the unit of the true stresses
    /// True values: cm, stresses in the case's output unit, micro; none where the true value is infinite or jumps.
    std::vector<std::array<std::optional<double>, ComponentCount>> Truth;
};

CaseFile ReadCaseFile(const std::string& path);

/// Paths of all case files in a folder of the test data, by name.
std::vector<std::string> CaseFilePaths(const std::string& folder = "cases");

/// Worst errors of a solution in the three groups, as shares of what is allowed: 1E-9 of the largest value of the group
/// at the point plus 1E-13 in units of the load.
struct CaseErrors {
    std::array<double, 3> Worst{};          ///< over the allowance
    std::array<double, 3> WorstRelative{};  ///< over the largest value of the group, floor taken off
    std::array<double, 3> WorstEstimate{};
    std::array<double, 3> OverEstimate{};  ///< the largest error over its own point's estimate
    std::string Where;
};

CaseErrors Compare(const CaseFile& file, const Solution& solution);

}  // namespace zirvo::solver
