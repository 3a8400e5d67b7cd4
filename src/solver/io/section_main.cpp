// ZIRVO_SV22.exe: the solver program of the graphics path. Started without arguments in the folder of "Initial_File".
#include <iostream>

#include "solver/io/program_main.h"
#include "solver/io/solver_run.h"
#include "solver/solve.h"

namespace {

constexpr zirvo::solver::ProgramTexts Texts{
    "ZIRVO_SV22",
    "usage: ZIRVO_SV22.exe\n"
    "Reads \"Initial_File\" in the current folder and the input file that it names, and writes the report that the\n"
    "input names. Exit codes: 0 solved, 1 bad input, 2 no usable \"Initial_File\".\n",
};

}  // namespace

int main(int argumentCount, char** arguments) {
    return zirvo::solver::ProgramMain(argumentCount, arguments, Texts,
                                      [] { return zirvo::solver::RunSection(zirvo::solver::Solve, std::cerr); });
}
