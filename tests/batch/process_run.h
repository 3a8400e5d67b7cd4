// Running the real programs as a user does.
#pragma once
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

#ifdef _WIN32
inline constexpr const char* BatchName = "zirvo-batch.exe";
inline constexpr const char* TemporaryVariable = "TMP";
#else
inline constexpr const char* BatchName = "zirvo-batch";
inline constexpr const char* TemporaryVariable = "TMPDIR";  ///< of the environment: the folder for temporary files
#endif

/// What Windows lacks ends the test with an exception: another user, a terminal, a limit on memory, most signals.
struct Surroundings {
    std::string Program = std::string(ZIRVO_BIN "/") + BatchName;
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
    /// As the system does it for somebody who has lost his patience: the program can do nothing more.
    void Kill() const;
    bool HasEnded() const;
    /// What it has written on standard error by now.
    std::string ErrorsSoFar() const;
    /// Until its end.
    Outcome Wait();

private:
    struct State;
    std::unique_ptr<State> state_;
};

/// Runs the program to its end.
Outcome RunProcess(const std::vector<std::string>& arguments, const Surroundings& surroundings);

}  // namespace zirvo::test
