// The run of the analysis solver, see solver_run.h.
#include "analysis/solver_run.h"

#include <algorithm>
#include <optional>

#include "base/callback.h"
#include "base/runtime_fault.h"
#include "pavement/report_reason.h"
#include "pavement/run_lock.h"
#include "pavement/solver_process.h"
#include "platform/fault_subject.h"
#include "platform/files.h"
#include "text/file_helpers.h"

namespace zirvo {

namespace {

/// The stamp of a report. One that is missing from the start faults in the rename at its head, which is as far as most
/// failed runs get.
void StampReport(const std::string& report) {
    try {
        MakeStampedCopy(report, StampTemporaryName);
    } catch (RuntimeFault& caught) {
        if (caught.Number() == fault::FileNotFound && caught.About().Name == FullPath(report)) {
            caught.SayInstead(FaultMatter::Report, FullPath(report));
        }
        throw;
    }
}

/// Stamps a report and makes its comma copy; false if it is gone after the stamp.
bool FinishReport(const std::string& report) {
    StampReport(report);
    if (!FileExists(report)) {
        return false;
    }
    WriteCommaCopy(report, CommaCopyName(report));
    return true;
}

/// Both reports. Where one is missing the solver has failed, and may have left its reason in the other.
bool FinishReports(const SolverRunRequest& request) {
    try {
        return FinishReport(request.PrincipalFileName) && FinishReport(request.ResultFileName);
    } catch (RuntimeFault& caught) {
        if (caught.About().Matter == FaultMatter::Report) {
            const std::string reason = ReasonInReport(request.ResultFileName);
            caught.GiveReason(reason.empty() ? ReasonInReport(request.PrincipalFileName) : reason);
        }
        throw;
    }
}

}  // namespace

SolverRunResult RunSolver(const SolverRunRequest& request, ProcessService& process,
                          const SolverRunCallbacks& callbacks) {
    CallIfSet(callbacks.PaintComputing);
    if (!FileExists(request.InputFileName)) {
        return SolverRunResult::InputMissing;
    }
    std::optional<RunLock> folder;
    for (folder.emplace(); folder->IsBusy(); folder.emplace()) {
        if (!callbacks.FolderBusy || !callbacks.FolderBusy()) {
            return SolverRunResult::FolderBusy;
        }
    }
    ControlFile control(ControlFileBytes(request.Language, request.Units, "INPUT FILENAME", request.InputFileName));
    RunHidden(process, JoinPath(request.ProgramFolder, AnalysisSolverName), StartFailure::Fault,
              {callbacks.HandleObtained, callbacks.WaitOver, callbacks.Waiting});
    CallIfSet(callbacks.HideComputing);
    control.Remove();
    return FinishReports(request) ? SolverRunResult::Finished : SolverRunResult::Uncompleted;
}

std::string CommaCopyName(std::string_view report) {
    std::string name(report);
    std::replace(name.begin(), name.end(), '.', '_');
    return name.append(".csv");
}

}  // namespace zirvo
