// The run of the analysis solver, see solver_run.h.
#include "analysis/solver_run.h"

#include <algorithm>

#include "base/callback.h"
#include "pavement/solver_process.h"
#include "platform/files.h"
#include "text/file_helpers.h"

namespace zirvo {

namespace {

/// Stamps a report and makes its comma copy; false if it is gone after the stamp. A report that is missing from the
/// start faults in the rename at the head of the stamp, which is as far as most failed runs get.
bool FinishReport(const std::string& report) {
    MakeStampedCopy(report, StampTemporaryName);
    if (!FileExists(report)) {
        return false;
    }
    WriteCommaCopy(report, CommaCopyName(report));
    return true;
}

}  // namespace

SolverRunResult RunSolver(const SolverRunRequest& request, ProcessService& process,
                          const SolverRunCallbacks& callbacks) {
    CallIfSet(callbacks.PaintComputing);
    if (!FileExists(request.InputFileName)) {
        return SolverRunResult::InputMissing;
    }
    WriteWholeFile(ControlFileName,
                   ControlFileBytes(request.Language, request.Units, "INPUT FILENAME", request.InputFileName),
                   Flush::ToSystem);
    RunHidden(process, JoinPath(request.ProgramFolder, AnalysisSolverName), StartFailure::Fault,
              {callbacks.HandleObtained, callbacks.WaitOver});
    CallIfSet(callbacks.HideComputing);
    RemoveFile(ControlFileName);
    if (!FinishReport(request.PrincipalFileName) || !FinishReport(request.ResultFileName)) {
        return SolverRunResult::Uncompleted;
    }
    return SolverRunResult::Finished;
}

std::string CommaCopyName(std::string_view report) {
    std::string name(report);
    std::replace(name.begin(), name.end(), '.', '_');
    return name.append(".csv");
}

}  // namespace zirvo
