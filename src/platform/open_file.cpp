// Opening files for reading, see open_file.h.
#include "platform/open_file.h"

#include <cerrno>
#include <filesystem>
#include <system_error>

#include "base/runtime_fault.h"
#include "platform/fault_subject.h"
#include "platform/files.h"

namespace zirvo {
namespace {

/// 70 is what stands for all that has to do with rights.
int FaultOfOpening(int error) {
    switch (error) {
        case ENOENT:
            return fault::FileNotFound;
        case ENOMEM:
        case EMFILE:
        case ENFILE:
        case EIO:
            return fault::DeviceError;
        default:
            return fault::PermissionDenied;
    }
}

}  // namespace

bool OpenStream(const std::string& path, std::ifstream& file) {
    const std::filesystem::path name(std::u8string(path.begin(), path.end()));
    do {
        errno = 0;
        file.clear();
        file.open(name, std::ios::binary);
    } while (!file.is_open() && errno == EINTR);
    return file.is_open();
}

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
        if (!OpenStream(path, file)) {
            RaiseFileFault(FaultOfOpening(errno), path);
        }
    } catch (const std::system_error&) {
        RaiseFileFault(fault::BadFileName, path);
    }
    return file;
}

}  // namespace zirvo
