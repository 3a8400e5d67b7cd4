// Files and folders of POSIX systems. Called wherever a file is read, renamed, deleted or asked about.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <cstdio>

#include "base/runtime_fault.h"
#include "platform/fault_subject.h"
#include "platform/files.h"
#include "platform/interruption.h"
#include "platform/posix_support.h"

namespace zirvo {
namespace {

struct stat StatusOf(const std::string& path) {
    RequireUsablePath(path);
    struct stat status {};
    if (Uninterrupted([&] { return stat(path.c_str(), &status); }) != 0) {
        RaiseSystemFault(errno, path);
    }
    return status;
}

/// The errno of a look at what stands there, be it a link; 0 where something does.
int ErrorOfLook(const std::string& path) {
    struct stat status {};
    return Uninterrupted([&] { return lstat(path.c_str(), &status); }) == 0 ? 0 : errno;
}

void RequireReadableLength(std::uint64_t length, const std::string& path) {
    if (length > LongestFile) {
        RaiseFileFault(fault::InvalidCall, path);
    }
}

/// Moves the file where nothing is; the failure's errno, or 0.
int RenameWithoutReplacing(const std::string& from, const std::string& to) {
#ifdef RENAME_NOREPLACE
    if (Uninterrupted([&] { return renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE); }) == 0) {
        return 0;
    }
    if (errno != EINVAL && errno != ENOSYS) {
        return errno;
    }
#endif
    // A file system that cannot promise it: the look before the rename is all there is.
    if (const int error = ErrorOfLook(from); error != 0) {
        return error;
    }
    if (const int error = ErrorOfLook(to); error != ENOENT) {
        return error == 0 ? EEXIST : error;
    }
    return Uninterrupted([&] { return rename(from.c_str(), to.c_str()); }) == 0 ? 0 : errno;
}

std::string FolderOfTheSystem() {
    std::array<char, PATH_MAX> folder{};
    const auto ask = [&] { return getcwd(folder.data(), folder.size()) == nullptr ? -1 : 0; };
    if (Uninterrupted(ask) != 0) {
        RaiseSystemFault(errno == ENOENT ? ENOTDIR : errno, "");
    }
    return folder.data();
}

/// What the program last set; empty before it has set anything.
std::string& FolderLastSet() {
    static std::string folder;
    return folder;
}

/// True if one of the steps of the path is "..", behind which the text of a folder with links tells nothing.
bool HasParentStep(const std::string& path) {
    return ("/" + path + "/").find("/../") != std::string::npos;
}

}  // namespace

std::uint64_t FileLength(const std::string& path) {
    return static_cast<std::uint64_t>(StatusOf(path).st_size);
}

FileAttributes AttributesOf(const std::string& path) {
    const struct stat status = StatusOf(path);
    const bool writable = Uninterrupted([&] { return faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS); }) == 0;
    return {.Directory = S_ISDIR(status.st_mode), .ReadOnly = !writable};
}

std::string ReadFileBytes(const std::string& path) {
    RequireUsablePath(path);
    // Without waiting: opening a pipe that nobody writes to would never come back.
    Descriptor file(Uninterrupted([&] { return open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK); }));
    if (!file.IsOpen()) {
        RaiseSystemFault(errno, path);
    }
    struct stat status {};
    if (Uninterrupted([&] { return fstat(file.Number(), &status); }) != 0) {
        RaiseSystemFault(errno, path);
    }
    if (!S_ISREG(status.st_mode)) {  // a folder, or a device without an end
        RaiseFileFault(fault::PathAccess, path);
    }
    constexpr std::size_t Step = 1 << 16;
    std::string bytes;
    std::size_t length = 0;
    RequireReadableLength(static_cast<std::uint64_t>(status.st_size), path);
    bytes.resize(static_cast<std::size_t>(status.st_size) + 1);
    for (;;) {
        if (length == bytes.size()) {  // it has grown since
            RequireReadableLength(length, path);
            bytes.resize(length + Step);
        }
        const ssize_t got = read(file.Number(), bytes.data() + length, bytes.size() - length);
        if (got > 0) {
            length += static_cast<std::size_t>(got);
        } else if (got == 0) {
            break;
        } else if (errno != EINTR) {
            RaiseSystemFault(errno, path);
        }
    }
    bytes.resize(length);
    return bytes;
}

void RenameFile(const std::string& from, const std::string& to) {
    const NotInterrupted whole;
    RequireUsablePath(from);
    RequireUsablePath(to);
    if (const int error = RenameWithoutReplacing(from, to); error != 0) {
        if (const int first = ErrorOfLook(from); first != 0) {
            RaiseSystemFault(first, from);
        }
        // Missing is the folder of the one, or the other before it was looked at.
        const bool gone = error == ENOENT && SystemFaultOf(error, to) == fault::FileNotFound;
        RaiseSystemFault(error, gone ? from : to);
    }
}

void RemoveFile(const std::string& path) {
    const NotInterrupted whole;
    RequireUsablePath(path);
    if (Uninterrupted([&] { return unlink(path.c_str()); }) != 0) {  // a folder is EISDIR or EPERM
        RaiseSystemFault(errno, path);
    }
}

std::string CurrentFolder() {
    return FolderLastSet().empty() ? FolderOfTheSystem() : FolderLastSet();
}

void ChangeFolder(const std::string& path) {
    RequireUsablePath(path);
    const bool absolute = !path.empty() && path.front() == '/';
    const std::string text = absolute ? path : JoinPath(CurrentFolder(), path);
    if (Uninterrupted([&] { return chdir(path.c_str()); }) != 0) {
        const int number = SystemFaultOf(errno == ENOENT ? ENOTDIR : errno, path);
        throw RuntimeFault(number, AboutPath(FaultMatter::Folder, path));
    }
    FolderLastSet() = absolute || !HasParentStep(path) ? text : FolderOfTheSystem();
}

std::string ProgramFolder() {
    std::array<char, PATH_MAX> program{};
    const ssize_t length = readlink("/proc/self/exe", program.data(), program.size());
    if (length < 0) {
        RaiseSystemFault(errno, "");
    }
    return FolderOf(std::string(program.data(), static_cast<std::size_t>(length)));
}

}  // namespace zirvo
