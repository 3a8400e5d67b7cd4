// Programs that a window test starts: the display, the window manager, the program itself, and the tools that click and
// type.
#pragma once
#include <sys/types.h>

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace zirvo::window_tests {

using Environment = std::map<std::string, std::string>;

class ChildProcess {
public:
    /// @param arguments    the program first; looked for on the PATH
    /// @param environment  all that it gets
    /// @param keptOpen     a descriptor of ours that it inherits, or -1
    /// @param complaints   file that gets its standard error; ours where empty
    ChildProcess(const std::vector<std::string>& arguments, const Environment& environment,
                 const std::string& folder = ".", int keptOpen = -1, const std::string& complaints = {});
    /// Ends it if it is still running.
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    /// The exit status once it has ended; -1 for one that was killed.
    std::optional<int> ExitStatus();
    void Kill();

private:
    void Reap(int options);
    pid_t id_ = -1;
    std::optional<int> status_;
};

}  // namespace zirvo::window_tests
