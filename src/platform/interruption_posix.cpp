// Interruptions on POSIX systems, see interruption.h: the signals are blocked in every thread but one, which waits for
// them. So what is undone may do whatever any thread may, which a signal handler may not.
#include <limits.h>
#include <pthread.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>

#include "platform/interruption.h"

namespace zirvo {
namespace {

/// Much less than what a thread gets unasked, since a solver may have little memory in all [bytes].
constexpr std::size_t StackSize = std::size_t{256} << 10U;

sigset_t& Heard() {
    static sigset_t signals;
    return signals;
}

void* Listen(void* /*nothing*/) {
    int signal = 0;
    while (sigwait(&Heard(), &signal) != 0) {
    }
    UndoWhatIsUnderWay();
    _exit(128 + signal);
}

/// False where the system gives no thread.
bool StartListening() {
    pthread_attr_t attributes;
    if (pthread_attr_init(&attributes) != 0) {
        return false;
    }
    pthread_attr_setstacksize(&attributes, StackSize);
    pthread_attr_setdetachstate(&attributes, PTHREAD_CREATE_DETACHED);
    pthread_t listener{};
    const bool started = pthread_create(&listener, &attributes, Listen, nullptr) == 0;
    pthread_attr_destroy(&attributes);
    return started;
}

bool IsIgnored(int signal) {
    struct sigaction now {};
    return sigaction(signal, nullptr, &now) == 0 && now.sa_handler == SIG_IGN;
}

static_assert(ExitBehindHangUp == 128 + SIGHUP && ExitBehindCtrlC == 128 + SIGINT &&
              ExitBehindRequest == 128 + SIGTERM);

}  // namespace

void EndCleanlyWhenInterrupted() {
    sigemptyset(&Heard());
    for (const int signal : {SIGHUP, SIGINT, SIGTERM}) {
        if (!IsIgnored(signal)) {  // by nohup, or by a shell for its jobs behind
            sigaddset(&Heard(), signal);
        }
    }
    sigset_t earlier;
    if (pthread_sigmask(SIG_BLOCK, &Heard(), &earlier) == 0 && !StartListening()) {
        pthread_sigmask(SIG_SETMASK, &earlier, nullptr);  // then a signal ends the process at once
    }
}

}  // namespace zirvo
