// The run of the graphics solver, see section_run.h.
#include "graphics/section_run.h"

#include "graphics/run_input.h"
#include "platform/files.h"
#include "text/file_helpers.h"

namespace zirvo {

GraphicsRunResult RunGraphicsSolver(const GraphicsRunRequest& request, ProcessService& process,
                                    const ProcessCallbacks& callbacks) {
    if (!FileExists(SectionInputName)) {
        return GraphicsRunResult::InputMissing;
    }
    ControlFile control(ControlFileBytes(request.Language, request.Units, "Input FileName", SectionInputName));
    const bool started =
        RunHidden(process, JoinPath(request.ProgramFolder, GraphicsSolverName), StartFailure::Silent, callbacks);
    control.Remove();
    return started ? GraphicsRunResult::Finished : GraphicsRunResult::NotStarted;
}

}  // namespace zirvo
