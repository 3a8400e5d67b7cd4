// Running the real programs on POSIX, see process_run.h.
#include "batch/process_run.h"

#include <fcntl.h>
#include <stdlib.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <stdexcept>

#include "platform/temporary_folder.h"

namespace zirvo::test {
namespace {

constexpr int NotStarted = 127;

void Require(bool done, const char* what) {
    if (!done) {
        throw std::runtime_error(what);
    }
}

}  // namespace

/// A terminal with nobody in front of it.
class Terminal {
public:
    Terminal() : master_(posix_openpt(O_RDWR | O_NOCTTY)) {
        Require(master_ >= 0 && grantpt(master_) == 0 && unlockpt(master_) == 0, "no terminal can be made");
        slave_ = open(ptsname(master_), O_RDWR | O_NOCTTY);
        Require(slave_ >= 0, "no terminal can be opened");
        fcntl(master_, F_SETFL, O_NONBLOCK);
    }
    ~Terminal() {
        close(slave_);
        close(master_);
    }
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;

    int Slave() const { return slave_; }
    /// What was written so far. A few lines, which the terminal holds until they are read.
    std::string Text() const {
        std::string text;
        std::array<char, 4096> part{};
        for (ssize_t count = 0; (count = read(master_, part.data(), part.size())) > 0;) {
            text.append(part.data(), static_cast<std::size_t>(count));
        }
        return text;
    }

private:
    int master_;
    int slave_ = -1;
};

namespace {

/// The rest of the child: it never comes back.
[[noreturn]] void Become(std::vector<std::string> arguments, const Surroundings& surroundings, int output, int errors) {
    constexpr id_t Nobody = 65534;
    const int null = open("/dev/null", O_RDONLY);
    dup2(null, STDIN_FILENO);
    dup2(output, STDOUT_FILENO);
    dup2(errors, STDERR_FILENO);
    if (!surroundings.Folder.empty() && chdir(surroundings.Folder.c_str()) != 0) {
        _exit(NotStarted);
    }
    for (const auto& [name, value] : surroundings.Variables) {
        setenv(name.c_str(), value.c_str(), 1);
    }
    const rlimit memory{surroundings.Memory, surroundings.Memory};
    if (surroundings.Memory != 0 && setrlimit(RLIMIT_AS, &memory) != 0) {
        _exit(NotStarted);
    }
    if (surroundings.OrdinaryUser && geteuid() == 0 && (setgid(Nobody) != 0 || setuid(Nobody) != 0)) {
        _exit(NotStarted);
    }
    arguments.insert(arguments.begin(), surroundings.Program);
    std::vector<char*> raw;
    for (std::string& argument : arguments) {
        raw.push_back(argument.data());
    }
    raw.push_back(nullptr);
    execv(surroundings.Program.c_str(), raw.data());
    _exit(NotStarted);
}

}  // namespace

/// The process and where its words go.
struct RunningProcess::State {
    pid_t Id = -1;
    const TemporaryFolder Folder;
    const Terminal Screen;
    bool OutputIsRead = true;
    bool ErrorsOnTerminal = false;
};

RunningProcess::RunningProcess(const std::vector<std::string>& arguments, const Surroundings& surroundings)
    : state_(std::make_unique<State>()) {
    state_->OutputIsRead = surroundings.OutputFile.empty();
    state_->ErrorsOnTerminal = surroundings.ErrorsOnTerminal;
    const std::string outputPath = state_->OutputIsRead ? state_->Folder.Path("out") : surroundings.OutputFile;
    const int output = open(outputPath.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0666);
    const int errors = open(state_->Folder.Path("err").c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0666);
    Require(output >= 0 && errors >= 0, "no file for the streams");
    state_->Id = fork();
    if (state_->Id == 0) {
        Become(arguments, surroundings, output, state_->ErrorsOnTerminal ? state_->Screen.Slave() : errors);
    }
    close(output);
    close(errors);
}

RunningProcess::~RunningProcess() {
    if (state_->Id > 0) {
        kill(state_->Id, SIGKILL);
        waitpid(state_->Id, nullptr, 0);
    }
}

void RunningProcess::Send(int signal) const {
    kill(state_->Id, signal);
}

void RunningProcess::Kill() const {
    Send(SIGKILL);
}

bool RunningProcess::HasEnded() const {
    siginfo_t information{};
    return waitid(P_PID, static_cast<id_t>(state_->Id), &information, WEXITED | WNOHANG | WNOWAIT) != 0 ||
           information.si_pid != 0;
}

std::string RunningProcess::ErrorsSoFar() const {
    return state_->Folder.Get("err");
}

Outcome RunningProcess::Wait() {
    int status = 0;
    waitpid(state_->Id, &status, 0);
    state_->Id = -1;
    Outcome outcome;
    outcome.Code = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    outcome.Out = state_->OutputIsRead ? state_->Folder.Get("out") : "";
    outcome.Err = state_->ErrorsOnTerminal ? state_->Screen.Text() : state_->Folder.Get("err");
    return outcome;
}

Outcome RunProcess(const std::vector<std::string>& arguments, const Surroundings& surroundings) {
    return RunningProcess(arguments, surroundings).Wait();
}

}  // namespace zirvo::test
