// Files and folders of the operating system. Paths are UTF-8. Failures are RuntimeFault with the number that fits:
// 53 file not found, 58 file already exists, 61 disk full, 70 permission denied, 75 path/file access, 76 path not
// found, 57 device error.
#pragma once
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace zirvo {

struct FileAttributes {
    bool Directory = false;
    /// Nobody may write here: the read-only attribute on Windows, no write permission for this user elsewhere.
    bool ReadOnly = false;
};

/// Length in bytes; of a folder too (its number means nothing). Fault 53 or 76 where nothing is there.
std::uint64_t FileLength(const std::string& path);

/// Attributes of a file or folder. Fault 53 or 76 where nothing is there.
FileAttributes AttributesOf(const std::string& path);

/// Longest file that is read whole [bytes]: far beyond any report, and it spares the machine's memory.
inline constexpr std::uint64_t LongestFile = std::uint64_t{1} << 30;

/// All bytes of a file. A folder or a device is fault 75, a file beyond LongestFile fault 5.
std::string ReadFileBytes(const std::string& path);

/// Whether a write waits until the bytes are on the disk. What the user typed does; what can be made again from it in a
/// moment (reports, their copies, control files) does not, since each wait costs more than the whole analysis of a
/// road.
enum class Flush { ToDisk, ToSystem };

/// Writes the whole file under a temporary name beside its target and renames it over the target, so that the target is
/// either the old file or the new one, never half. A link is followed to its file. An existing target that the user may
/// not write, or a folder, is fault 75 before anything is written. The permissions of an existing target are kept.
/// On failure no temporary file is left behind.
void WriteWholeFile(const std::string& path, std::string_view bytes, Flush flush = Flush::ToDisk);

/// The same for what is too long to be held: written piece by piece, and never in place if PutInPlace is not called.
class WholeFile {
public:
    /// @param temporary  name of the temporary file; the next one of that name takes its place, so that what killed
    ///                   programs leave does not pile up. For a caller who keeps others away meanwhile; each write has
    ///                   a name of its own if it is empty
    explicit WholeFile(const std::string& path, const std::string& temporary = {});
    ~WholeFile();
    WholeFile(const WholeFile&) = delete;
    WholeFile& operator=(const WholeFile&) = delete;

    void Write(std::string_view bytes);
    void PutInPlace(Flush flush);

private:
    class Work;
    std::unique_ptr<Work> work_;
};

/// Renames a file. Fault 53 if `from` is missing, 58 if `to` exists (it is never replaced).
void RenameFile(const std::string& from, const std::string& to);

/// Deletes a file. Fault 53 if it is missing, 75 for a folder.
void RemoveFile(const std::string& path);

/// The current folder, as the program last set it with ChangeFolder, else as the system tells it.
std::string CurrentFolder();

/// Moves the current folder of the process. Fault 76 where it is no folder.
void ChangeFolder(const std::string& path);

/// The folder of the running executable, without a separator at its end (a root keeps its own).
std::string ProgramFolder();

/// folder + separator + name; no separator is added behind one ("/" or "\" on every platform). The separator is "\" on
/// Windows, else "/".
std::string JoinPath(std::string_view folder, std::string_view name);

/// The part of a path behind its last folder separator ("/" everywhere, "\" and a drive's ":" on Windows too).
std::string FileNameOf(std::string_view path);

/// The part of a path before its last folder separator, "" without one (a root keeps its separator).
std::string FolderOf(std::string_view path);

}  // namespace zirvo
