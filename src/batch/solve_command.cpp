// `zirvo-batch solve`, see solve_command.h.
#include "batch/solve_command.h"

#include <algorithm>
#include <cmath>
#include <variant>

#include "batch/input_file.h"
#include "batch/result_rows.h"
#include "platform/files.h"
#include "solver/io/solver_input.h"
#include "solver/solve.h"

namespace zirvo::batch {
namespace {

using solver::InputError;
using solver::Word;

std::variant<solver::SolverInput, InputError> ReadInput(const std::string& path) {
    std::ifstream file;
    InputError error = OpenInputFile(path, file);
    if (error.Reason != Word::None) {
        return error;
    }
    return solver::ReadSolverInput(file);
}

/// Brings the results into the units of the output; the first that is no finite number is the error.
InputError FinishResults(solver::Solution& solution, solver::UnitSystem units) {
    InputError error;
    for (std::size_t i = 0; i < solution.Points.size(); ++i) {
        auto& values = solution.Points[i].Values;
        values = solver::ToOutputUnits(values, units);
        const auto bad = std::find_if_not(values.begin(), values.end(), [](double v) { return std::isfinite(v); });
        if (bad != values.end()) {
            error.Reason = Word::NotFinite;
            error.Row = Word::RowPoint;
            error.RowNumber = static_cast<int>(i) + 1;
            error.Component = solver::ComponentNames[static_cast<std::size_t>(bad - values.begin())];
            return error;
        }
    }
    return error;
}

void TellNotes(const SolveRequest& request, const solver::SolverInput& input, const solver::Solution& solution,
               Console& console) {
    if (input.MovedPoints > 0) {
        console.Note(request.File, MovedPointsText(input.MovedPoints));
    }
    const auto doubtful = [](const solver::PointResult& point) {
        return std::any_of(point.Estimates.begin(), point.Estimates.end(),
                           [](double bound) { return !(bound <= solver::PromisedError); });
    };
    const auto count = std::count_if(solution.Points.begin(), solution.Points.end(), doubtful);
    if (count > 0) {
        console.Note(request.File, std::to_string(count) + (count == 1 ? " point has" : " points have") +
                                       " a bound of the relative error above 1E-9; --estimates tells which");
    }
}

ExitCode Write(const SolveRequest& request, const std::string& rows, Console& console) {
    if (request.CsvFile.empty()) {
        return console.Output(rows);
    }
    try {
        WriteWholeFile(request.CsvFile, rows);
        return ExitCode::Done;
    } catch (const RuntimeFault& caught) {
        console.Complain(request.CsvFile, "cannot be written: " + FaultText(caught));
        return ExitCode::BadInput;
    }
}

}  // namespace

ExitCode RunSolve(const SolveRequest& request, Console& console) {
    const auto refuse = [&](const InputError& error) {
        console.Complain("", solver::OneLine(solver::Language::English, request.File, error));
        return ExitCode::BadInput;
    };
    console.Progress("reading " + request.File);
    std::variant<solver::SolverInput, InputError> read = ReadInput(request.File);
    if (const auto* error = std::get_if<InputError>(&read)) {
        return refuse(*error);
    }
    const auto& input = std::get<solver::SolverInput>(read);
    const solver::Problem& typed = input.Typed;
    console.Progress("solving " + std::to_string(typed.Layers.size()) + " layers, " +
                     std::to_string(typed.Loads.size()) + " loads, " + std::to_string(typed.Points.size()) + " points");
    solver::Solution solution =
        solver::Solve(solver::ToConsistentUnits(typed, request.Units), {.Threads = request.Threads});
    if (const InputError error = FinishResults(solution, request.Units); error.Reason != Word::None) {
        return refuse(error);
    }
    console.Progress("writing the results");
    const ExitCode code = Write(request, ResultRows(typed.Points, solution, request.Estimates), console);
    if (code == ExitCode::Done) {
        TellNotes(request, input, solution, console);
    }
    return code;
}

}  // namespace zirvo::batch
