// The report of the graphics path: one table of points at 18 numbers each, behind a head of a fixed number of text
// fields. Callers: the solver run.
//
// The program that reads it throws away the head by counting text fields, and a comma ends a field as a line end does.
// So the head has exactly 5 lines, one for each layer, and 4 more; no line of it has a comma, except that line 3 has
// one in English with unit system 1, where the reader counts one field more. The table is for that program, not for
// people: its columns widen where a number needs it.
#pragma once
#include <string>

#include "solver/io/reports.h"

namespace zirvo::solver {

/// Brings the results into the units of the output. The first result that is no finite number, or above what a report
/// prints, is the error; its reason is None if there is none.
InputError FinishSection(ReportData& data);

/// The report, whole, as bytes of code page 932. FinishSection has passed. No principal values are looked at.
std::string SectionReport(const ReportData& data);

}  // namespace zirvo::solver
