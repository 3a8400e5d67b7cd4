// Processes of POSIX systems: children started on the null device and waited for. Called by the solver runs.
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstddef>
#include <string>
#include <thread>
#include <vector>

#include "base/runtime_fault.h"
#include "platform/fault_subject.h"
#include "platform/posix_support.h"
#include "platform/process.h"

// Not every system's header declares it.
extern char** environ;  // NOLINT(readability-redundant-declaration)

namespace zirvo {
namespace {

/// The child's standard streams on the null device.
class NullStreams {
public:
    NullStreams() {
        Require(posix_spawn_file_actions_init(&actions_));
        Require(posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0));
        Require(posix_spawn_file_actions_addopen(&actions_, STDOUT_FILENO, "/dev/null", O_WRONLY, 0));
        Require(posix_spawn_file_actions_addopen(&actions_, STDERR_FILENO, "/dev/null", O_WRONLY, 0));
    }
    ~NullStreams() { posix_spawn_file_actions_destroy(&actions_); }
    NullStreams(const NullStreams&) = delete;
    NullStreams& operator=(const NullStreams&) = delete;
    const posix_spawn_file_actions_t* Get() const { return &actions_; }

private:
    static void Require(int error) {
        if (error != 0) {
            throw RuntimeFault(fault::DeviceError);
        }
    }
    posix_spawn_file_actions_t actions_{};
};

/// The child's signals as a program expects to find them, whatever this process ignores or blocks for itself.
class DefaultSignals {
public:
    DefaultSignals() {
        sigset_t signals;
        sigfillset(&signals);
        sigset_t none;
        sigemptyset(&none);
        if (posix_spawnattr_init(&attributes_) != 0) {
            throw RuntimeFault(fault::DeviceError);
        }
        posix_spawnattr_setsigdefault(&attributes_, &signals);
        posix_spawnattr_setsigmask(&attributes_, &none);
        posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK);
    }
    ~DefaultSignals() { posix_spawnattr_destroy(&attributes_); }
    DefaultSignals(const DefaultSignals&) = delete;
    DefaultSignals& operator=(const DefaultSignals&) = delete;
    const posix_spawnattr_t* Get() const { return &attributes_; }

private:
    posix_spawnattr_t attributes_{};
};

/// The fault of a program that could not be started.
int StartFaultOf(int error) {
    switch (error) {
        case ENOENT:
        case ENOTDIR:
            return fault::FileNotFound;
        case EACCES:
        case EPERM:
        case ETXTBSY:
            return fault::PermissionDenied;
        case ENOEXEC:  // a file, but no program
        case EISDIR:
        case ELOOP:
        case EINVAL:
            return fault::PathAccess;
        default:
            return SystemFaultOf(error, "");
    }
}

class PosixProcessService : public ProcessService {
public:
    ~PosixProcessService() override {
        Reap(children_);
        Reap(abandoned_);
    }

    int StartHidden(const std::string& program) override {
        return Naming(FaultMatter::Program, program, [&] { return Start(program); });
    }

    std::intptr_t Open(int identifier) override { return IsOurs(identifier) ? identifier : 0; }

    void Wait(std::intptr_t handle) override {
        if (!IsOurs(handle)) {  // waited for already: its number may be another process's by now
            return;
        }
        int status = 0;
        while (waitpid(static_cast<pid_t>(handle), &status, 0) < 0 && errno == EINTR) {
        }
        std::erase(children_, handle);
    }

    /// Looked at again and again, at first after half a millisecond: what a road's solver needs is not doubled.
    bool WaitFor(std::intptr_t handle, int milliseconds) override {
        if (!IsOurs(handle)) {
            return true;
        }
        using std::chrono::microseconds;
        const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
        for (microseconds pause(500);; pause = std::min(pause * 2, microseconds(5000))) {
            int status = 0;
            const pid_t ended = waitpid(static_cast<pid_t>(handle), &status, WNOHANG);
            if (ended != 0 && !(ended < 0 && errno == EINTR)) {
                std::erase(children_, handle);
                return true;
            }
            if (std::chrono::steady_clock::now() >= end) {
                return false;
            }
            std::this_thread::sleep_for(pause);
        }
    }

    void Close(std::intptr_t handle) override {
        if (IsOurs(handle)) {  // closed without a wait
            std::erase(children_, handle);
            abandoned_.push_back(static_cast<pid_t>(handle));
        }
        Reap(abandoned_);
    }

private:
    pid_t Start(const std::string& program) {
        RequireUsablePath(program);
        Reap(abandoned_);
        children_.reserve(children_.size() + 1);  // a child that runs must not be forgotten for want of memory
        const NullStreams streams;
        const DefaultSignals signals;
        std::string name = program;
        char* const arguments[] = {name.data(), nullptr};
        pid_t child = 0;
        const int error = posix_spawn(&child, program.c_str(), streams.Get(), signals.Get(), arguments, environ);
        if (error != 0) {
            throw RuntimeFault(StartFaultOf(error));
        }
        children_.push_back(child);
        return child;
    }

    bool IsOurs(std::intptr_t identifier) const {
        return std::find(children_.begin(), children_.end(), identifier) != children_.end();
    }

    /// Takes leave of those that have ended, so that none stays behind as a zombie.
    static void Reap(std::vector<pid_t>& children) {
        std::erase_if(children, [](pid_t child) {
            int status = 0;
            return waitpid(child, &status, WNOHANG) != 0;
        });
    }

    std::vector<pid_t> children_;   // started, not yet waited for
    std::vector<pid_t> abandoned_;  // closed without a wait
};

}  // namespace

std::unique_ptr<ProcessService> MakeProcessService() {
    return std::make_unique<PosixProcessService>();
}

}  // namespace zirvo
