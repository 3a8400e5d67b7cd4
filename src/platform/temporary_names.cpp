// Names of temporary files, see temporary_names.h. The same on every platform.
#include "platform/temporary_names.h"

#include "platform/folders.h"

namespace zirvo {
namespace {

constexpr const char* Extension = ".tmp";

std::string FrontOf(long long process) {
    return ".zirvo-" + std::to_string(process) + "-";
}

}  // namespace

std::string TemporaryName(long long process, unsigned number) {
    return FrontOf(process) + std::to_string(number) + Extension;
}

void RemoveTemporariesOf(long long process) {
    const std::string front = FrontOf(process);
    for (const std::string& name : NamesIn(".")) {
        if (name.starts_with(front) && name.ends_with(Extension)) {
            RemoveIfThere(name);
        }
    }
}

}  // namespace zirvo
