// Running the real programs as a user does. POSIX only.
#pragma once
#include <string>
#include <vector>

namespace zirvo::test {

/// What a process left: its exit code (128 and more: the signal that killed it), standard output, standard error.
struct Outcome {
    int Code = -1;
    std::string Out;
    std::string Err;
};

struct Surroundings {
    std::string Program = ZIRVO_BIN "/zirvo-batch";
    std::string Folder{};           ///< current folder of the process
    std::string OutputFile{};       ///< takes standard output in place of Outcome::Out, for example /dev/full
    bool OrdinaryUser = false;      ///< root may write everywhere; this one may not
    bool ErrorsOnTerminal = false;  ///< standard error is a terminal
};

/// Runs the program to its end.
Outcome RunProcess(const std::vector<std::string>& arguments, const Surroundings& surroundings);

}  // namespace zirvo::test
