// The reports of the analysis path: results (".bre"), principal values (".san"), and what both say about bad input.
// Callers: the solver run. The graphics path writes another table between the same words.
//
// The viewer cuts the ".bre" at its marker lines and columns, and the comma copies are made by rules that are fitted to
// columns. So no line has 13 blanks in a row or begins with exactly 8, none has a comma, only marker lines begin with
// three blanks and "===", and the widths below are fixed.
#pragma once
#include <span>
#include <string>
#include <vector>

#include "solver/io/input_error.h"
#include "solver/io/principal_values.h"
#include "solver/io/report_columns.h"
#include "solver/io/solver_input.h"
#include "solver/io/unit_systems.h"
#include "solver/problem.h"

namespace zirvo::solver {

/// Columns of the two tables.
inline constexpr std::size_t ResultTableWidth = PointWidth + ComponentCount * ValueWidth;
inline constexpr std::size_t PrincipalColumns = 14;
inline constexpr std::size_t PrincipalTableWidth = PointWidth + PrincipalColumns * ValueWidth;

/// What a report tells: the input as it was typed, the results in the units of the output.
struct ReportData {
    Language Words = Language::English;
    UnitSystem Units = UnitSystem::KgfToKgf;
    std::string InputName;
    SolverInput Input;
    Solution Results;  ///< in the units of the output; as many points as the input has
    std::vector<PrincipalValues> Principal;
};

/// Brings the results into the units of the output and works out the principal values. The first result that is no
/// finite number, or that no column holds, is the error; its reason is None if there is none.
InputError FinishResults(ReportData& data);

/// The ".bre", whole, as bytes of code page 932. FinishResults has passed.
std::string ResultReport(const ReportData& data);

/// The ".san" likewise.
std::string PrincipalReport(const ReportData& data);

/// The report that stands in place of either where there is nothing to report. No marker line.
/// @param title  the title of the report whose place it takes
/// @param file   the file in question, UTF-8
std::string ErrorReport(Language language, Word title, const std::string& file, const InputError& error);

}  // namespace zirvo::solver
