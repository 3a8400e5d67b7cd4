// The mains of the solver programs, see program_main.h.
#include "solver/io/program_main.h"

#include <cstring>
#include <iostream>
#include <string>

#include "platform/interruption.h"
#include "platform/terminal.h"
#include "text/version_stamp.h"

namespace zirvo::solver {

namespace {

/// A text on standard output; 1 where that cannot be written.
int Answer(const std::string& text) {
    std::cout << text << std::flush;
    if (std::cout) {
        return 0;
    }
    std::cerr << "standard output: cannot be written\n";
    return 1;
}

}  // namespace

int ProgramMain(int argumentCount, char** arguments, const ProgramTexts& texts, const std::function<ExitCode()>& run) {
    const PlainStreams streams;
    if (argumentCount <= 1) {
        EndCleanlyWhenInterrupted();
        return static_cast<int>(run());
    }
    if (std::strcmp(arguments[1], "--help") == 0) {
        return Answer(texts.Usage);
    }
    if (std::strcmp(arguments[1], "--version") == 0) {
        return Answer(std::string(texts.Name) + ' ' + MakeVersionStamp(0) + '\n');
    }
    std::cerr << texts.Usage;
    return static_cast<int>(ExitCode::NoControlFile);
}

}  // namespace zirvo::solver
