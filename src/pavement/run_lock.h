// One run at a time in a folder: the work files of a run have fixed names there, and a second program would read the
// first one's report. Callers: the run of the analysis solver, the map screen.
#pragma once
#include <memory>
#include <string>

#include "base/int16.h"
#include "platform/file_lock.h"
#include "platform/interruption.h"

namespace zirvo {

/// The file beside the work files, there as long as a run is. One that a killed program has left is no hindrance.
inline constexpr const char* RunLockName = ".zirvo-lock";

/// The current folder for one run, from its first work file to the last report that is read. The system lets go of it
/// where the program is killed: once the solver that it has started has ended too, on Windows at once, since the
/// solver is ended with it. Where no lock can be had at all (a folder without the right to write, a drive that knows
/// none) the run goes on without.
class RunLock {
public:
    RunLock();
    ~RunLock();
    RunLock(const RunLock&) = delete;
    RunLock& operator=(const RunLock&) = delete;

    /// Another run is under way in the folder: this one must not begin.
    bool IsBusy() const { return busy_; }

private:
    void Release();

    bool busy_ = false;
    std::unique_ptr<FileLock> lock_;
    const UndoneIfInterrupted released_{[this] { Release(); }};
};

/// What the user is told where the folder is busy, in the language of that base.
std::string FolderBusyText(Int16 languageBase);

/// What he is told where the report that stands in the folder is not that of the map on his screen any more.
std::string ReportReplacedText(Int16 languageBase);

}  // namespace zirvo
