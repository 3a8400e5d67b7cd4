// Faults that tell which file, folder or program they were about. Callers: every operation of this folder that can
// fail, and all who read a file field by field or start a program.
#pragma once
#include <string>

#include "base/runtime_fault.h"

namespace zirvo {

/// The path with its folder: a name without one is joined to the current folder. The path itself where that cannot be
/// told.
std::string FullPath(const std::string& path);

/// What a fault is about, with the full path. A name that the system can know nothing of stays as it is.
FaultSubject AboutPath(FaultMatter matter, const std::string& path);

/// Raises a fault about a file. 76 is one about the folder that holds it.
[[noreturn]] void RaiseFileFault(int number, const std::string& path);

/// Runs the work; a fault that comes out of it and does not tell yet what it was about is about this path.
template <class Work>
decltype(auto) Naming(FaultMatter matter, const std::string& path, Work work) {
    try {
        return work();
    } catch (RuntimeFault& caught) {
        caught.SayAbout(matter, FullPath(path));
        throw;
    }
}

}  // namespace zirvo
