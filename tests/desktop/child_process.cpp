// Processes of a window test, see child_process.h.
#include "desktop/child_process.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <stdexcept>

namespace zirvo::window_tests {

ChildProcess::ChildProcess(const std::vector<std::string>& arguments, const Environment& environment,
                           const std::string& folder, int keptOpen, const std::string& complaints) {
    std::vector<std::string> pairs;
    for (const auto& [name, value] : environment) {
        pairs.push_back(name + "=" + value);
    }
    std::vector<char*> variables;
    for (std::string& pair : pairs) {
        variables.push_back(pair.data());
    }
    variables.push_back(nullptr);
    std::vector<std::string> words = arguments;
    std::vector<char*> argumentPointers;
    for (std::string& word : words) {
        argumentPointers.push_back(word.data());
    }
    argumentPointers.push_back(nullptr);

    id_ = fork();
    if (id_ < 0) {
        throw std::runtime_error("cannot start " + arguments.front());
    }
    if (id_ == 0) {
        if (keptOpen >= 0) {
            fcntl(keptOpen, F_SETFD, 0);
        }
        const int nowhere = open("/dev/null", O_RDWR | O_CLOEXEC);
        dup2(nowhere, STDIN_FILENO);
        dup2(nowhere, STDOUT_FILENO);
        if (!complaints.empty()) {
            dup2(open(complaints.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600), STDERR_FILENO);
        }
        if (chdir(folder.c_str()) == 0) {
            execvpe(argumentPointers.front(), argumentPointers.data(), variables.data());
        }
        _exit(127);
    }
}

ChildProcess::~ChildProcess() {
    Kill();
}

void ChildProcess::Reap(int options) {
    int state = 0;
    if (!status_.has_value() && waitpid(id_, &state, options) == id_) {
        status_ = WIFEXITED(state) ? WEXITSTATUS(state) : -1;
    }
}

std::optional<int> ChildProcess::ExitStatus() {
    Reap(WNOHANG);
    return status_;
}

void ChildProcess::Kill() {
    if (!ExitStatus().has_value()) {
        kill(id_, SIGKILL);
        Reap(0);
    }
}

}  // namespace zirvo::window_tests
