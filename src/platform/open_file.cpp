// Opening files for reading, see open_file.h.
#include "platform/open_file.h"

#include <filesystem>
#include <system_error>

#include "base/runtime_fault.h"
#include "platform/fault_subject.h"
#include "platform/files.h"

namespace zirvo {

std::ifstream OpenForReading(const std::string& path) {
    if (AttributesOf(path).Directory) {
        RaiseFileFault(fault::PathAccess, path);
    }
    std::ifstream file;
    try {
        const std::filesystem::path name(std::u8string(path.begin(), path.end()));
        std::error_code ignored;
        if (std::filesystem::is_fifo(name, ignored)) {
            RaiseFileFault(fault::PathAccess, path);
        }
        file.open(name, std::ios::binary);
    } catch (const std::system_error&) {
        RaiseFileFault(fault::BadFileName, path);
    }
    if (!file.is_open()) {
        RaiseFileFault(fault::PermissionDenied, path);
    }
    return file;
}

}  // namespace zirvo
