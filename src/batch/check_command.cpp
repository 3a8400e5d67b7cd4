// `zirvo-batch check`, see check_command.h.
#include "batch/check_command.h"

#include <string>
#include <vector>

#include "analysis/analysis_input.h"

namespace zirvo::batch {
namespace {

std::string Counted(int count, const char* what) {
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

std::string Contents(const PavementModel& model) {
    return Counted(model.LayerCount, "layer") + ", " + Counted(model.LoadCount, "load") + ", " +
           Counted(model.PointCount, "point");
}

}  // namespace

ExitCode RunCheck(const CheckRequest& request, Console& console) {
    console.Progress("checking " + request.File);
    const std::vector<Finding> findings = CheckAnalysisInput(request.File);
    for (const Finding& finding : findings) {
        // What concerns the file as a whole needs no word for "file" behind its name.
        const bool whole = finding.Group == DataGroup::File && finding.Value.empty() && finding.Text.empty();
        console.Complain(request.File, whole ? finding.Reason : FindingText(finding));
    }
    if (!findings.empty()) {
        return ExitCode::BadInput;
    }
    const AnalysisInputResult read = ReadAnalysisInput(request.File);
    if (!read.Model) {  // changed by someone else since the line above
        console.Complain(request.File, FindingText(read.Failure));
        return ExitCode::BadInput;
    }
    return console.Output(request.File + ": passes: " + Contents(*read.Model) + "\n");
}

}  // namespace zirvo::batch
