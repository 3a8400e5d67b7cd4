// ZIRVO_SV12.EXE: the solver program of the analysis path. Started without arguments in the folder of "Initial_File".
#include <cstring>
#include <iostream>

#include "shell/version_stamp.h"
#include "solver/io/solver_run.h"
#include "solver/problem.h"

namespace {

constexpr const char* Usage =
    "usage: ZIRVO_SV12.EXE\n"
    "Reads \"Initial_File\" in the current folder and the input file that it names, and writes the two reports that\n"
    "the input names. Exit codes: 0 solved, 1 bad input, 2 no usable \"Initial_File\".\n";

int RunWithArgument(const char* argument) {
    if (std::strcmp(argument, "--help") == 0) {
        std::cout << Usage;
        return 0;
    }
    if (std::strcmp(argument, "--version") == 0) {
        std::cout << "ZIRVO_SV12 " << zirvo::MakeVersionStamp(0) << '\n';
        return 0;
    }
    std::cerr << Usage;
    return static_cast<int>(zirvo::solver::ExitCode::NoControlFile);
}

}  // namespace

int main(int argumentCount, char** arguments) {
    if (argumentCount > 1) {
        return RunWithArgument(arguments[1]);
    }
    return static_cast<int>(zirvo::solver::RunAnalysis(zirvo::solver::Solve, std::cerr));
}
