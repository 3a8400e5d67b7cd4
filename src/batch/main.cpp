// zirvo-batch: solving, analyses, maps, checks and designs from the command line.
#include <exception>
#include <new>
#include <variant>

#include "batch/analyze_command.h"
#include "batch/check_command.h"
#include "batch/command_line.h"
#include "batch/console.h"
#include "batch/gear_command.h"
#include "batch/lives_command.h"
#include "batch/map_command.h"
#include "batch/solve_command.h"
#include "batch/study_command.h"
#include "platform/interruption.h"
#include "platform/terminal.h"

namespace {

using namespace zirvo::batch;

struct Work {
    Console& Out;

    ExitCode operator()(const NothingToDo& answered) const { return answered.Code; }
    ExitCode operator()(const SolveRequest& request) const { return RunSolve(request, Out); }
    ExitCode operator()(const AnalyzeRequest& request) const { return RunAnalyze(request, Out); }
    ExitCode operator()(const MapRequest& request) const { return RunMap(request, Out); }
    ExitCode operator()(const CheckRequest& request) const { return RunCheck(request, Out); }
    ExitCode operator()(const GearRequest& request) const { return RunGear(request, Out); }
    ExitCode operator()(const LivesRequest& request) const { return RunLives(request, Out); }
    ExitCode operator()(const StudyRequest& request) const { return RunStudy(request, Out); }
};

ExitCode Run(int argumentCount, char** arguments, Console& console) {
    try {
        return std::visit(Work{console},
                          ReadCommandLine(zirvo::CommandLineArguments(argumentCount, arguments), console));
    } catch (const zirvo::RuntimeFault& caught) {
        console.Complain("zirvo-batch", FaultText(caught));
    } catch (const std::bad_alloc&) {
        console.Complain("zirvo-batch", "there is not enough memory");
    } catch (const std::exception& failure) {
        console.Complain("zirvo-batch", failure.what());
    } catch (...) {
        console.Complain("zirvo-batch", "an unknown failure");
    }
    return ExitCode::BadInput;
}

}  // namespace

int main(int argumentCount, char** arguments) {
    zirvo::EndCleanlyWhenInterrupted();
    const zirvo::PlainStreams streams;
    Console console;
    return static_cast<int>(Run(argumentCount, arguments, console));
}
