// How much memory a test has taken, see peak_memory.h.
#include "platform/peak_memory.h"

#ifdef _WIN32
#include <windows.h>
//
#include <psapi.h>
#else
#include <sys/resource.h>
#endif

namespace zirvo::test {

long PeakMemory() {
#ifdef _WIN32
    PROCESS_MEMORY_COUNTERS counters{};
    K32GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    return static_cast<long>(counters.PeakWorkingSetSize / 1024);
#else
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
#endif
}

}  // namespace zirvo::test
