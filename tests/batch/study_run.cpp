// A run that can be killed, see study_run.h.
#include "batch/study_run.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

namespace zirvo::test {

StartedRun::StartedRun(const std::string& folder, const std::vector<std::string>& arguments) {
    std::vector<std::string> all{ZIRVO_BIN "/zirvo-batch"};
    all.insert(all.end(), arguments.begin(), arguments.end());
    std::vector<char*> raw;
    for (std::string& argument : all) {
        raw.push_back(argument.data());
    }
    raw.push_back(nullptr);
    child_ = fork();
    if (child_ == 0) {
        const int null = open("/dev/null", O_RDWR);
        dup2(null, STDIN_FILENO);
        dup2(null, STDOUT_FILENO);
        dup2(null, STDERR_FILENO);
        if (chdir(folder.c_str()) == 0) {
            execv(raw[0], raw.data());
        }
        _exit(127);
    }
}

StartedRun::~StartedRun() {
    Kill();
}

bool StartedRun::Kill() {
    if (child_ <= 0) {
        return false;
    }
    int status = 0;
    kill(child_, SIGKILL);
    waitpid(child_, &status, 0);
    child_ = 0;
    return WIFSIGNALED(status);
}

}  // namespace zirvo::test
