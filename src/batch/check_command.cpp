// `zirvo-batch check`, see check_command.h.
#include "batch/check_command.h"

#include "pavement/analysis_input.h"
#include "pavement/graphics_input.h"

namespace zirvo::batch {
namespace {

std::string Counted(int count, const char* what) {
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

std::string Contents(int layers, int loads) {
    return Counted(layers, "layer") + ", " + Counted(loads, "load");
}

ExitCode Passes(const std::string& file, const std::string& contents, Console& console) {
    return console.Output(file + ": passes: " + contents + "\n");
}

ExitCode CheckGraphics(const std::string& file, Console& console) {
    if (TellFindings(file, CheckGraphicsInput(file), console)) {
        return ExitCode::BadInput;
    }
    const GraphicsInputResult read = ReadGraphicsInput(file);
    if (!read.Passed()) {  // changed by someone else since the lines above
        TellFindings(file, {read.Failure().First}, console);
        return ExitCode::BadInput;
    }
    return Passes(file, Contents(read->LayerCount, read->LoadCount), console);
}

ExitCode CheckAnalysis(const std::string& file, Console& console) {
    if (TellFindings(file, CheckAnalysisInput(file), console)) {
        return ExitCode::BadInput;
    }
    const AnalysisInputResult read = ReadAnalysisInput(file);
    if (!read.Passed()) {  // changed by someone else since the lines above
        TellFindings(file, {read.Failure().First}, console);
        return ExitCode::BadInput;
    }
    return Passes(file, Contents(read->LayerCount, read->LoadCount) + ", " + Counted(read->PointCount, "point"),
                  console);
}

}  // namespace

bool TellFindings(const std::string& file, const std::vector<Finding>& findings, Console& console) {
    for (const Finding& finding : findings) {
        // What concerns the file as a whole needs no word for "file" behind its name.
        const bool whole = finding.Group == DataGroup::File && finding.Value.empty() && finding.Text.empty();
        console.Complain(file, whole ? finding.Reason : FindingText(finding));
    }
    return !findings.empty();
}

ExitCode RunCheck(const CheckRequest& request, Console& console) {
    console.Progress("checking " + request.File);
    return request.Graphics ? CheckGraphics(request.File, console) : CheckAnalysis(request.File, console);
}

}  // namespace zirvo::batch
