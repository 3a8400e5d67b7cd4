// Descriptors and the system's own faults on POSIX systems. Called by the POSIX halves of this folder only.
#include "platform/posix_support.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "base/runtime_fault.h"
#include "platform/fault_subject.h"
#include "platform/files.h"

namespace zirvo {
namespace {

/// 53 where the folder of the path is there, else 76.
int MissingFault(const std::string& path) {
    const std::string folder = FolderOf(path);
    struct stat status {};
    const bool folderThere = folder.empty() || (Uninterrupted([&] { return stat(folder.c_str(), &status); }) == 0 &&
                                                S_ISDIR(status.st_mode));
    return folderThere ? fault::FileNotFound : fault::PathNotFound;
}

}  // namespace

int SystemFaultOf(int error, const std::string& path) {
    switch (error) {
        case ENOENT:
            return MissingFault(path);
        case ENOTDIR:
            return fault::PathNotFound;
        case ENAMETOOLONG:
            return fault::BadFileName;
        case EEXIST:
            return fault::FileAlreadyExists;
        case ENOSPC:
        case EDQUOT:
        case EFBIG:
            return fault::DiskFull;
        case EBUSY:
        case ETXTBSY:
            return fault::PermissionDenied;
        case EACCES:
        case EPERM:
        case EROFS:
        case EISDIR:
        case ENOTEMPTY:
        case ELOOP:
        case EXDEV:
        case ENXIO:
            return fault::PathAccess;
        default:
            return fault::DeviceError;
    }
}

void RaiseSystemFault(int error, const std::string& path) {
    RaiseFileFault(SystemFaultOf(error, path), path);
}

void RequireUsablePath(const std::string& path) {
    if (path.find('\0') != std::string::npos) {
        RaiseFileFault(fault::BadFileName, path);
    }
}

Place PlaceOf(const std::string& path, int file) {
    struct stat open {};
    struct stat named {};
    if (Uninterrupted([&] { return fstat(file, &open); }) != 0) {
        return Place::Unknown;
    }
    if (Uninterrupted([&] { return lstat(path.c_str(), &named); }) != 0) {
        return errno == ENOENT ? Place::Elsewhere : Place::Unknown;
    }
    return open.st_dev == named.st_dev && open.st_ino == named.st_ino ? Place::Here : Place::Elsewhere;
}

Descriptor::~Descriptor() {
    Close();
}

bool Descriptor::Close() {
    const int number = number_;
    number_ = -1;
    return number < 0 || close(number) == 0 || errno == EINTR;  // after EINTR the number is free all the same
}

}  // namespace zirvo
