// Faults that tell what they were about, see fault_subject.h. The same on every platform.
#include "platform/fault_subject.h"

#include "base/utf8.h"
#include "platform/files.h"

namespace zirvo {
namespace {

#ifdef _WIN32
bool IsSeparator(char letter) {
    return letter == '/' || letter == '\\';
}
#endif

/// Whether the path stands on its own. A drive without a separator behind it ("C:name") is left as it is too.
bool NamesItsFolder(const std::string& path) {
#ifdef _WIN32
    return path.size() > 1 && (path[1] == ':' || (IsSeparator(path[0]) && IsSeparator(path[1])));
#else
    return path.starts_with('/');
#endif
}

#ifdef _WIN32
/// "\name": from the root of the drive on which the current folder lies.
bool StartsAtTheRoot(const std::string& path) {
    return !path.empty() && IsSeparator(path[0]) && (path.size() == 1 || !IsSeparator(path[1]));
}

/// What stands in front of a folder's own root: "C:" or "\\server\share".
std::string DriveOf(const std::string& folder) {
    constexpr const char* Separators = "/\\";
    if (folder.size() > 1 && folder[1] == ':') {
        return folder.substr(0, 2);
    }
    const std::size_t share = folder.find_first_of(Separators, 2);
    return share == std::string::npos ? folder : folder.substr(0, folder.find_first_of(Separators, share + 1));
}
#endif

/// What a box can show of a name: up to a NUL, and as UTF-8.
std::string Showable(const std::string& path) {
    return FromCharacters(ToCharacters(path.substr(0, path.find('\0'))));
}

}  // namespace

std::string FullPath(const std::string& path) {
    if (path.empty() || NamesItsFolder(path)) {
        return Showable(path);
    }
    try {
#ifdef _WIN32
        if (StartsAtTheRoot(path)) {
            return Showable(DriveOf(CurrentFolder()) + path);
        }
#endif
        return Showable(JoinPath(CurrentFolder(), path));
    } catch (const RuntimeFault&) {  // the current folder is gone, which is no failure of this path
        return Showable(path);
    }
}

FaultSubject AboutPath(FaultMatter matter, const std::string& path) {
    return {matter, FullPath(path), {}};
}

void RaiseFileFault(int number, const std::string& path) {
    if (path.empty()) {
        throw RuntimeFault(number);
    }
    if (number == fault::PathNotFound) {
        const std::string full = FullPath(path);
        throw RuntimeFault(number, {FaultMatter::Folder, FolderOf(full).empty() ? full : FolderOf(full), {}});
    }
    throw RuntimeFault(number, AboutPath(FaultMatter::File, path));
}

}  // namespace zirvo
