// Paths as text: joining and splitting, the same on every platform but for the separators. Files that are at hand as a
// whole.
#include "platform/files.h"

namespace zirvo {
namespace {

#ifdef _WIN32
constexpr char Separator = '\\';
constexpr std::string_view Separators = "/\\";
#else
constexpr char Separator = '/';
constexpr std::string_view Separators = "/";
#endif

/// Where the name begins: behind the last separator, on Windows also behind a drive's colon.
std::size_t NameStart(std::string_view path) {
    const std::size_t last = path.find_last_of(Separators);
    if (last != std::string_view::npos) {
        return last + 1;
    }
#ifdef _WIN32
    if (path.size() >= 2 && path[1] == ':') {
        return 2;
    }
#endif
    return 0;
}

/// "/" and, on Windows, "C:\": without its separator it would be another folder.
bool IsRoot(std::string_view folder) {
#ifdef _WIN32
    if (folder.size() == 3 && folder[1] == ':') {
        return true;
    }
#endif
    return folder.size() == 1;
}

}  // namespace

std::string JoinPath(std::string_view folder, std::string_view name) {
    std::string path(folder);
    if (!path.empty() && path.back() != '/' && path.back() != '\\') {
        path += Separator;
    }
    path += name;
    return path;
}

std::string FileNameOf(std::string_view path) {
    return std::string(path.substr(NameStart(path)));
}

std::string FolderOf(std::string_view path) {
    std::string_view folder = path.substr(0, NameStart(path));
    if (!folder.empty() && !IsRoot(folder) && Separators.find(folder.back()) != std::string_view::npos) {
        folder.remove_suffix(1);
    }
    return std::string(folder);
}

void WriteWholeFile(const std::string& path, std::string_view bytes, Flush flush) {
    WholeFile file(path);
    file.Write(bytes);
    file.PutInPlace(flush);
}

}  // namespace zirvo
