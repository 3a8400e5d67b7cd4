// Opening files for reading, see open_file.h.
#include "platform/open_file.h"

#include <filesystem>
#include <system_error>

#include "base/runtime_fault.h"
#include "platform/files.h"

namespace zirvo {

std::ifstream OpenForReading(const std::string& path) {
    if (AttributesOf(path).Directory) {
        throw RuntimeFault(fault::PathAccess);
    }
    std::ifstream file;
    try {
        const std::filesystem::path name(std::u8string(path.begin(), path.end()));
        std::error_code ignored;
        if (std::filesystem::is_fifo(name, ignored)) {
            throw RuntimeFault(fault::PathAccess);
        }
        file.open(name, std::ios::binary);
    } catch (const std::system_error&) {
        throw RuntimeFault(fault::BadFileName);
    }
    if (!file.is_open()) {
        throw RuntimeFault(fault::PermissionDenied);
    }
    return file;
}

}  // namespace zirvo
