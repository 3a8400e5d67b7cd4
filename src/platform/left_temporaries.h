// What killed programs have left beside the files of the user's: a temporary file under which nothing was put into
// place any more. Callers: the writing of a whole file, the end of a process that was made to end.
#pragma once
#include <string>

namespace zirvo {

#ifdef _WIN32

/// Deletes from a folder what has been left there. What cannot be looked at stays, and nothing is told.
/// @param folder  with a separator behind it; "" is the current one
/// @param own     handle of a file that this program has just made there: it tells what the drive's clock says now
void RemoveLeftTemporaries(const std::wstring& folder, void* own);

#else

/// Locks a temporary file that this program has made, as long as the descriptor or a double of it is open. Where the
/// drive knows no locks it is not locked.
void HoldTemporary(int file);

/// Deletes from a folder what has been left there. What cannot be looked at stays, and nothing is told.
/// @param folder  "" is the current one
/// @param own     descriptor of a file that this program has just made there: it tells what the drive's clock says now
void RemoveLeftTemporaries(const std::string& folder, int own);

#endif

/// Deletes the temporary file of a process that is known to have ended, but for one that is held: then it is that of
/// another machine's process with the same number.
void RemoveTemporaryOfEnded(const std::string& path);

}  // namespace zirvo
