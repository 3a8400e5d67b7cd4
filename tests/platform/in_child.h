// Work done in a child process: under another user, or with limits that must not outlast a test.
#pragma once
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <exception>

#include "base/runtime_fault.h"

namespace zirvo {

inline constexpr int OtherException = 250;
inline constexpr int ChildDied = 251;

/// Runs `prepare` and then `work` in a child process. The number of the fault that the work raised, 0 if it came back.
template <class Prepare, class Work>
int FaultInChild(Prepare prepare, Work work) {
    const pid_t child = fork();
    if (child == 0) {
        int result = 0;
        try {
            prepare();
            work();
        } catch (const RuntimeFault& fault) {
            result = fault.Number();
        } catch (const std::exception&) {
            result = OtherException;
        }
        _exit(result);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : ChildDied;
}

/// As an ordinary user: root may read and write everything. A user who is not root stays who he is.
template <class Work>
int FaultAsOrdinaryUser(Work work) {
    const auto becomeNobody = [] {
        constexpr id_t nobody = 65534;
        if (geteuid() == 0 && (setgid(nobody) != 0 || setuid(nobody) != 0)) {
            _exit(ChildDied);
        }
    };
    return FaultInChild(becomeNobody, work);
}

/// With files limited to so many bytes, which ends a write as a full disk does.
template <class Work>
int FaultWithFilesLimitedTo(rlim_t bytes, Work work) {
    const auto limit = [bytes] {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit both{bytes, bytes};
        if (setrlimit(RLIMIT_FSIZE, &both) != 0) {
            _exit(ChildDied);
        }
    };
    return FaultInChild(limit, work);
}

}  // namespace zirvo
