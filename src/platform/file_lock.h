// A lock that the system itself lets go of when the program ends, however it ends: so a lock that is held tells that
// its program lives. Callers: the kept data of the screens, the lock of a folder in which a run is under way.
#pragma once
#include <cstdint>
#include <memory>
#include <string>

namespace zirvo {

/// A file that this program holds locked as long as the object lives. No faults: where there is no lock there is no
/// object.
class FileLock {
public:
    /// Makes a file, which must not be there yet, and locks it.
    static std::unique_ptr<FileLock> OfNewFile(const std::string& path);
    /// Locks a file that is there; nothing where it is missing or anybody holds it, this program included.
    static std::unique_ptr<FileLock> OfFile(const std::string& path);
    /// Locks a file, which is made where it is missing. What the program starts meanwhile holds it too, except on
    /// Windows, where that ends with the program.
    /// @param held  set to whether another holds it; else there is no lock to be had
    static std::unique_ptr<FileLock> OfAnyFile(const std::string& path, bool& held);
    ~FileLock();
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

    /// Deletes the file and lets go.
    void RemoveFile();

private:
    FileLock(std::string path, std::intptr_t handle);
    void Release();

    std::string path_;
    std::intptr_t handle_;  ///< the system's own; -1 behind RemoveFile
};

}  // namespace zirvo
