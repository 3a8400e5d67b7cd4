// Starting zirvo-batch without waiting for its end, to kill it. Caller: the tests of studies.
#pragma once
#include <sys/types.h>

#include <string>
#include <vector>

namespace zirvo::test {

/// A run of zirvo-batch in a folder, its streams on the null device; killed with the object if it still runs.
class StartedRun {
public:
    StartedRun(const std::string& folder, const std::vector<std::string>& arguments);
    ~StartedRun();
    StartedRun(const StartedRun&) = delete;
    StartedRun& operator=(const StartedRun&) = delete;

    /// SIGKILL. True if it still ran.
    bool Kill();

private:
    pid_t child_;
};

}  // namespace zirvo::test
