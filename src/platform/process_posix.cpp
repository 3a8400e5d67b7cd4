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
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "base/runtime_fault.h"
#include "platform/fault_subject.h"
#include "platform/interruption.h"
#include "platform/posix_support.h"
#include "platform/process.h"
#include "platform/temporary_names.h"

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

/// Whether the process has ended. It is left as it is, so that its number stays its own until Child::Reap.
/// @param options  WNOHANG, or 0 to wait for its end
bool HasEnded(pid_t child, int options) {
    siginfo_t information{};
    int result = 0;
    do {
        result = waitid(P_PID, static_cast<id_t>(child), &information, WEXITED | WNOWAIT | options);
    } while (result != 0 && errno == EINTR);
    return result != 0 || information.si_pid != 0;  // a failure: it is no child any more
}

/// A process that this one has started and not taken leave of. An interruption makes it end.
class Child {
public:
    void Start(const std::string& program) {
        const NullStreams streams;
        const DefaultSignals signals;
        std::string name = program;
        char* const arguments[] = {name.data(), nullptr};
        const NotInterrupted untilItIsNoted;
        int error = 0;
        do {
            error = posix_spawn(&id_, program.c_str(), streams.Get(), signals.Get(), arguments, environ);
        } while (error == EINTR);
        if (error != 0) {
            id_ = None;
            throw RuntimeFault(StartFaultOf(error));
        }
    }

    pid_t Id() const { return id_; }

    /// Takes leave of one that has ended, so that it does not stay behind as a zombie.
    void Reap() {
        const NotInterrupted whileItsNumberGoes;
        int status = 0;
        while (waitpid(id_, &status, 0) < 0 && errno == EINTR) {
        }
        id_ = None;
    }

private:
    static constexpr pid_t None = -1;

    /// A solver of ours cleans up behind itself when it is asked to end.
    void End() {
        if (id_ == None) {
            return;
        }
        constexpr int most = 200;  // looks, 5 ms apart: a second
        kill(id_, SIGTERM);
        for (int look = 0; look < most && !HasEnded(id_, WNOHANG); ++look) {
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
        kill(id_, SIGKILL);
        while (waitpid(id_, nullptr, 0) < 0 && errno == EINTR) {
        }
        RemoveTemporariesOf(id_);
    }

    pid_t id_ = None;
    const UndoneIfInterrupted ended_{[this] { End(); }};
};

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
        if (IsOurs(handle)) {  // else waited for already: its number may be another process's by now
            HasEnded(static_cast<pid_t>(handle), 0);
            TakeLeave(handle);
        }
    }

    /// Looked at again and again, at first after half a millisecond: what a road's solver needs is not doubled.
    bool WaitFor(std::intptr_t handle, int milliseconds) override {
        if (!IsOurs(handle)) {
            return true;
        }
        using std::chrono::microseconds;
        const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
        for (microseconds pause(500);; pause = std::min(pause * 2, microseconds(5000))) {
            if (HasEnded(static_cast<pid_t>(handle), WNOHANG)) {
                TakeLeave(handle);
                return true;
            }
            if (std::chrono::steady_clock::now() >= end) {
                return false;
            }
            std::this_thread::sleep_for(pause);
        }
    }

    void Close(std::intptr_t handle) override {
        if (const auto child = Find(handle); child != children_.end()) {  // closed without a wait
            abandoned_.push_back(std::move(*child));
            children_.erase(child);
        }
        Reap(abandoned_);
    }

private:
    pid_t Start(const std::string& program) {
        RequireUsablePath(program);
        Reap(abandoned_);
        children_.reserve(children_.size() + 1);  // a child that runs must not be forgotten for want of memory
        abandoned_.reserve(abandoned_.size() + children_.size() + 1);
        auto child = std::make_unique<Child>();
        child->Start(program);
        children_.push_back(std::move(child));
        return children_.back()->Id();
    }

    using Children = std::vector<std::unique_ptr<Child>>;

    Children::iterator Find(std::intptr_t identifier) {
        return std::find_if(children_.begin(), children_.end(),
                            [&](const std::unique_ptr<Child>& child) { return child->Id() == identifier; });
    }
    bool IsOurs(std::intptr_t identifier) { return Find(identifier) != children_.end(); }

    void TakeLeave(std::intptr_t identifier) {
        const auto child = Find(identifier);
        (*child)->Reap();
        children_.erase(child);
    }

    /// Takes leave of those that have ended.
    static void Reap(Children& children) {
        std::erase_if(children, [](const std::unique_ptr<Child>& child) {
            const bool ended = HasEnded(child->Id(), WNOHANG);
            if (ended) {
                child->Reap();
            }
            return ended;
        });
    }

    Children children_;   // started, not yet waited for
    Children abandoned_;  // closed without a wait
};

}  // namespace

std::unique_ptr<ProcessService> MakeProcessService() {
    return std::make_unique<PosixProcessService>();
}

}  // namespace zirvo
