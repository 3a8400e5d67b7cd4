// The numerical analysis by the external solver: control file, run, stamps, comma copies. All files are named without a
// folder and lie in the current folder. Callers: ANALYZE of the analysis screen, the batch tool.
#pragma once
#include <functional>
#include <string>
#include <string_view>

#include "base/int16.h"
#include "pavement/pavement_model.h"
#include "platform/process.h"

namespace zirvo {

/// The analysis solver's executable, in the program folder.
inline constexpr const char* AnalysisSolverName = "ZIRVO_SV12.EXE";

struct SolverRunRequest {
    std::string InputFileName;      ///< ".eva"; the names inside it must be the two below
    std::string ResultFileName;     ///< ".bre"
    std::string PrincipalFileName;  ///< ".san"
    Int16 Language = 0;             ///< 1 Japanese, 2 English
    UnitSystem Units = UnitSystem::None;
    std::string ProgramFolder;  ///< holds the solver
};

/// Moments of a run at which a screen changes. An empty one is passed over.
struct SolverRunCallbacks {
    std::function<void()> PaintComputing;  ///< first of all: show the note and paint it at once
    std::function<void()> HandleObtained;  ///< before the wait: disable all that could start anything
    std::function<void()> WaitOver;        ///< the process has ended, or could not be opened; not with identifier 0
    std::function<void()> HideComputing;   ///< after the run, before the files are taken up
    std::function<void()> Waiting{};       ///< a few times a second while the solver works
    /// Another run is under way in the folder: true to look again; where it is not set the run is given up at once.
    std::function<bool()> FolderBusy{};
};

enum class SolverRunResult {
    InputMissing,  ///< k=172, nothing was written and the note still shows
    Finished,      ///< both reports are stamped and have their comma copies
    Uncompleted,   ///< k=173, a stamped report was gone again
    FolderBusy,    ///< FolderBusyText; nothing was written and the note still shows
};

/// Runs the solver and finishes its reports, ".san" first. Only the presence of the reports is looked at: a report of
/// an earlier run passes for a new one if the solver writes none, and a solver's own report of an error is a report.
/// Faults that the caller lets through: 53 where the solver is missing ("Initial_File" stays behind) or left no report,
/// 58 where "ZIRVO_SV.TMP" lies in the way, those of files that cannot be written.
SolverRunResult RunSolver(const SolverRunRequest& request, ProcessService& process,
                          const SolverRunCallbacks& callbacks);

/// The name of a report's comma copy: every point an underscore, then ".csv": "a.san" gives "a_san.csv".
std::string CommaCopyName(std::string_view report);

}  // namespace zirvo
