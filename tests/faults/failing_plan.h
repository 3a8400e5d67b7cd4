// Which call fails, and how: what stands between a FailingCall and the system's functions. Caller:
// failing_functions.cpp.
#pragma once
#include <cerrno>
#include <string>

namespace zirvo::test {

/// Calls that only look at something leave every file as it is, so that none of them is a moment to kill at.
enum class Act { Changes, Looks };

/// The full path of what a call names beside an open folder (AT_FDCWD: the current one).
std::string FullPathAt(int folder, const char* path);

/// Whether a path, or the file behind a descriptor, lies in the folders of the plan.
bool Counts(const char* path);
bool Counts(int file);

/// Notes whether calls about the descriptor count from now on. Gives the descriptor.
int Watch(int file, bool counts);

/// The error of the call that is being made, or 0; 0 without a plan.
/// @param what  the call is about
/// @param full  what the call gives on a full disk
/// @param gone  and where what it is about is gone
int ErrorOf(const char* call, const std::string& what, int full, int gone, Act act = Act::Changes);

/// The same for a path and for an open file, where they count.
int ErrorOfPath(const char* call, const char* path, int full = ENOSPC, Act act = Act::Changes);
int ErrorOfFile(const char* call, int file, int full, Act act = Act::Changes);

/// Of a rename or a link, noted with both names.
int ErrorOfBoth(const char* call, const std::string& from, const std::string& to);

/// Of a thread that is started: the system has no more.
int ErrorOfThread();

}  // namespace zirvo::test
