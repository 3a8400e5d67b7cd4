// The run of the graphics solver: control file, hidden process, wait. All files lie in the current folder under fixed
// names. Callers: the start buttons of the graphics screen, the batch tool.
#pragma once
#include <string>

#include "base/int16.h"
#include "pavement/pavement_model.h"
#include "pavement/solver_process.h"
#include "platform/process.h"

namespace zirvo {

/// The graphics solver's executable, in the program folder.
inline constexpr const char* GraphicsSolverName = "ZIRVO_SV22.exe";

struct GraphicsRunRequest {
    Int16 Language = 0;  ///< 1 Japanese, 2 English
    UnitSystem Units = UnitSystem::None;
    std::string ProgramFolder;  ///< holds the solver
};

enum class GraphicsRunResult {
    InputMissing,  ///< k=172; nothing was written, and the caller converts all the same
    NotStarted,    ///< the solver could not be started: passes in silence, as the next one does
    Finished,      ///< the process has ended, or there was none: whether there is a report shows when it is read
};

/// Runs the solver on "ZIRVO_SV.EVA". Unlike on the analysis path a solver that cannot be started passes in silence;
/// the fault comes with the report that is not there, and a report of an earlier run is taken for a new one. Faults:
/// those of a control file that cannot be written or deleted.
GraphicsRunResult RunGraphicsSolver(const GraphicsRunRequest& request, ProcessService& process,
                                    const ProcessCallbacks& callbacks);

}  // namespace zirvo
