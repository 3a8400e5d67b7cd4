// UTF-8 and the system's own faults on Windows. Called by the Windows halves of this folder only.
#include "platform/windows_text.h"

#include <windows.h>

#include "base/runtime_fault.h"
#include "base/utf8.h"
#include "platform/fault_subject.h"

namespace zirvo {
namespace {

/// Whether the last part of the path is longer than a name can be. Some versions of the system tell so, others that the
/// file or its folder is not there.
bool HasNameTooLong(const std::string& path) {
    constexpr std::size_t LongestName = 255;
    const std::string name = path.substr(path.find_last_of("/\\") + 1);  // of none: npos + 1 is 0
    return IsValidUtf8(name) && ToCharacters(name).size() > LongestName;
}

}  // namespace

std::wstring ToWide(const std::string& path) {
    if (!IsValidUtf8(path) || path.find('\0') != std::string::npos) {
        RaiseFileFault(fault::BadFileName, path);
    }
    std::wstring wide;
    for (const char32_t c : ToCharacters(path)) {
        if (c < 0x10000) {
            wide += static_cast<wchar_t>(c);
        } else {
            wide += static_cast<wchar_t>(0xD800 + ((c - 0x10000) >> 10));
            wide += static_cast<wchar_t>(0xDC00 + ((c - 0x10000) & 0x3FF));
        }
    }
    return wide;
}

std::string FromWide(std::wstring_view wide) {
    std::u32string characters;
    for (std::size_t i = 0; i < wide.size(); ++i) {
        const char32_t c = static_cast<char16_t>(wide[i]);
        const char32_t next = i + 1 < wide.size() ? static_cast<char16_t>(wide[i + 1]) : 0;
        if (c >= 0xD800 && c <= 0xDBFF && next >= 0xDC00 && next <= 0xDFFF) {
            characters += 0x10000 + ((c - 0xD800) << 10) + (next - 0xDC00);
            ++i;
        } else {
            characters += c;
        }
    }
    return FromCharacters(characters);
}

int SystemFaultOf(unsigned long error) {
    switch (error) {
        case ERROR_FILE_NOT_FOUND:
            return fault::FileNotFound;
        case ERROR_PATH_NOT_FOUND:
        case ERROR_INVALID_DRIVE:
        case ERROR_BAD_NETPATH:
        case ERROR_BAD_NET_NAME:
            return fault::PathNotFound;
        case ERROR_INVALID_NAME:
        case ERROR_BAD_PATHNAME:
        case ERROR_FILENAME_EXCED_RANGE:
            return fault::BadFileName;
        case ERROR_FILE_EXISTS:
        case ERROR_ALREADY_EXISTS:
            return fault::FileAlreadyExists;
        case ERROR_DISK_FULL:
        case ERROR_HANDLE_DISK_FULL:
        case ERROR_FILE_TOO_LARGE:
            return fault::DiskFull;
        case ERROR_SHARING_VIOLATION:
        case ERROR_LOCK_VIOLATION:
            return fault::PermissionDenied;
        case ERROR_ACCESS_DENIED:
        case ERROR_WRITE_PROTECT:
        case ERROR_DIRECTORY:
        case ERROR_NOT_SAME_DEVICE:
            return fault::PathAccess;
        default:
            return fault::DeviceError;
    }
}

void RaiseSystemFault(unsigned long error, const std::string& path) {
    RaiseFileFault(HasNameTooLong(path) ? fault::BadFileName : SystemFaultOf(error), path);
}

}  // namespace zirvo
