// Running the real programs as a user does. POSIX only.
#pragma once
#include <sys/types.h>

#include <cstddef>
#include <memory>
#include <string>
#include <utility>
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
    std::vector<std::pair<std::string, std::string>> Variables{};  ///< of the environment, besides the test's own
    std::size_t Memory = 0;                                        ///< most that it may have [bytes]; 0: no limit
};

/// A program that works while the test goes on. One that nobody waits for is killed.
class RunningProcess {
public:
    RunningProcess(const std::vector<std::string>& arguments, const Surroundings& surroundings);
    ~RunningProcess();
    RunningProcess(const RunningProcess&) = delete;
    RunningProcess& operator=(const RunningProcess&) = delete;

    void Send(int signal) const;
    bool HasEnded() const;
    /// What it has written on standard error by now.
    std::string ErrorsSoFar() const;
    /// Until its end.
    Outcome Wait();

private:
    struct Streams;
    std::unique_ptr<Streams> streams_;
    pid_t id_ = -1;
};

/// Runs the program to its end.
Outcome RunProcess(const std::vector<std::string>& arguments, const Surroundings& surroundings);

}  // namespace zirvo::test
