// Starting another program and waiting for it: the interface that solver runs are written against, and the real one.
#pragma once
#include <cstdint>
#include <memory>
#include <string>

namespace zirvo {

/// What a solver run asks of the operating system. Tests have a scripted one.
class ProcessService {
public:
    virtual ~ProcessService() = default;

    /// Starts the program without arguments and without a window, in the current folder, with its standard streams on
    /// the null device. Gives the process identifier; 0 is possible and is no failure. Fault 53 if the program is
    /// missing, 70 or 75 if it may not be executed: "could not be started" is a fault, "identifier 0" a result.
    virtual int StartHidden(const std::string& program) = 0;

    /// Opens the process for waiting. Gives a handle, or 0 if it cannot be had.
    virtual std::intptr_t Open(int identifier) = 0;

    /// Waits without limit until the process has ended.
    virtual void Wait(std::intptr_t handle) = 0;

    /// Waits so long at most. Gives whether the process has ended; the wait without limit where a service knows no
    /// other.
    virtual bool WaitFor(std::intptr_t handle, int /*milliseconds*/) {
        Wait(handle);
        return true;
    }

    /// Closes the handle.
    virtual void Close(std::intptr_t handle) = 0;
};

/// The operating system's own processes.
std::unique_ptr<ProcessService> MakeProcessService();

}  // namespace zirvo
