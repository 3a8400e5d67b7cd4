// The way from the commands to the user: results on standard output, everything else on standard error. Callers: main,
// the commands.
#pragma once
#include <atomic>
#include <string>
#include <string_view>

#include "base/runtime_fault.h"
#include "platform/interruption.h"

namespace zirvo::batch {

/// What the process tells the one who started it.
enum class ExitCode {
    Done = 0,
    BadInput = 1,    ///< also: a file that cannot be written, a fault
    WrongUsage = 2,  ///< of the command line
};

/// "Run-time error '53': File not found".
std::string FaultText(const RuntimeFault& caught);

class Console {
public:
    Console();
    ~Console();
    Console(const Console&) = delete;
    Console& operator=(const Console&) = delete;

    /// Stills progress and notes, not errors.
    void BeQuiet() { quiet_ = true; }

    /// What is being done now: a line that the next one replaces, and only on a terminal.
    void Progress(std::string_view doing);

    /// A line that does not stop the work.
    void Note(std::string_view file, std::string_view text);

    /// A line of what is wrong; `file` in front if there is one.
    void Complain(std::string_view file, std::string_view reason);

    /// A result on standard output, at once. A full disk behind it, or a closed stream, is ExitCode::BadInput and a
    /// complaint.
    ExitCode Output(std::string_view bytes);

private:
    bool terminal_;
    bool quiet_ = false;
    std::atomic<bool> progressShows_ = false;  // an interruption looks at it from its own thread
    const UndoneIfInterrupted cleared_{[this] { ClearProgress(); }};

    void ClearProgress();
    static void ErrorLine(std::string_view file, std::string_view text);
};

}  // namespace zirvo::batch
