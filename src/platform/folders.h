// Folders in which the program keeps what it needs to know at its next start, and what lies in them. Paths are UTF-8.
// Nothing here raises a fault: whoever keeps data beside the user's own files goes on without them where it cannot.
// Caller: the kept data of the screens.
#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace zirvo {

/// This program's folder among those in which the user's programs keep their state: "zirvo" in $XDG_STATE_HOME where
/// that is a full path, else in ".local/state" in the home folder; "ZIRVO" in %LOCALAPPDATA% on Windows. "" where the
/// system tells none. It may have to be made.
std::string UserStateFolder();

/// Makes a folder with those above it, each for this user alone. True if it is there behind the call.
bool MakePrivateFolders(const std::string& path);

/// Makes a folder for this user alone in one that is there. False where something stands there already, or it cannot
/// be made.
bool MakeNewFolder(const std::string& path);

/// Whether a folder is known to be there.
bool IsFolder(const std::string& path);

/// Whether nothing is known to be there. False where it cannot be looked at.
bool IsGone(const std::string& path);

/// Names of all that lies in a folder, sorted; none where it cannot be read to its end.
std::vector<std::string> NamesIn(const std::string& folder);

/// Renames a file over another one, which is replaced as a whole or not at all. Gives whether it went through.
bool MoveOver(const std::string& from, const std::string& to);

/// Deletes a file or an empty folder. Gives whether nothing is there any more.
bool RemoveIfThere(const std::string& path);

/// When the file was last written, as a number that only grows with time; nothing where there is no such file.
std::optional<std::int64_t> WrittenAt(const std::string& path);

}  // namespace zirvo
