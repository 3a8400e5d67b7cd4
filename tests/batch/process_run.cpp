// Running the real programs, see process_run.h.
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

/// Where the program's words go.
struct RunningProcess::Streams {
    const TemporaryFolder Folder;
    const Terminal Screen;
    bool OutputIsRead = true;
    bool ErrorsOnTerminal = false;
};

RunningProcess::RunningProcess(const std::vector<std::string>& arguments, const Surroundings& surroundings)
    : streams_(std::make_unique<Streams>()) {
    streams_->OutputIsRead = surroundings.OutputFile.empty();
    streams_->ErrorsOnTerminal = surroundings.ErrorsOnTerminal;
    const std::string outputPath = streams_->OutputIsRead ? streams_->Folder.Path("out") : surroundings.OutputFile;
    const int output = open(outputPath.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0666);
    const int errors = open(streams_->Folder.Path("err").c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0666);
    Require(output >= 0 && errors >= 0, "no file for the streams");
    id_ = fork();
    if (id_ == 0) {
        Become(arguments, surroundings, output, streams_->ErrorsOnTerminal ? streams_->Screen.Slave() : errors);
    }
    close(output);
    close(errors);
}

RunningProcess::~RunningProcess() {
    if (id_ > 0) {
        kill(id_, SIGKILL);
        waitpid(id_, nullptr, 0);
    }
}

void RunningProcess::Send(int signal) const {
    kill(id_, signal);
}

bool RunningProcess::HasEnded() const {
    siginfo_t information{};
    return waitid(P_PID, static_cast<id_t>(id_), &information, WEXITED | WNOHANG | WNOWAIT) != 0 ||
           information.si_pid != 0;
}

std::string RunningProcess::ErrorsSoFar() const {
    return streams_->Folder.Get("err");
}

Outcome RunningProcess::Wait() {
    int status = 0;
    waitpid(id_, &status, 0);
    id_ = -1;
    Outcome outcome;
    outcome.Code = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    outcome.Out = streams_->OutputIsRead ? streams_->Folder.Get("out") : "";
    outcome.Err = streams_->ErrorsOnTerminal ? streams_->Screen.Text() : streams_->Folder.Get("err");
    return outcome;
}

Outcome RunProcess(const std::vector<std::string>& arguments, const Surroundings& surroundings) {
    return RunningProcess(arguments, surroundings).Wait();
}

}  // namespace zirvo::test
