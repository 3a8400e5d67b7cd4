// The mains of the solver programs, see program_main.h.
#include "solver/io/program_main.h"

#include <cstring>
#include <iostream>

#include "platform/interruption.h"
#include "text/version_stamp.h"

namespace zirvo::solver {

int ProgramMain(int argumentCount, char** arguments, const ProgramTexts& texts, const std::function<ExitCode()>& run) {
    if (argumentCount <= 1) {
        EndCleanlyWhenInterrupted();
        return static_cast<int>(run());
    }
    if (std::strcmp(arguments[1], "--help") == 0) {
        std::cout << texts.Usage;
        return 0;
    }
    if (std::strcmp(arguments[1], "--version") == 0) {
        std::cout << texts.Name << ' ' << MakeVersionStamp(0) << '\n';
        return 0;
    }
    std::cerr << texts.Usage;
    return static_cast<int>(ExitCode::NoControlFile);
}

}  // namespace zirvo::solver
