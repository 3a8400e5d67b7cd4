// One call to the system that fails, chosen by its number: the first, the second, and so on until none is left.
//
// How it works    failing_functions.cpp and failing_looks.cpp define open, stat, write, rename and the like themselves.
//                 A test program that links them calls these in place of the system's, the standard library included;
//                 so does a real program into which they are loaded before all others. The programs themselves know
//                 nothing of it and are what users get.
// What counts     Calls about files in the folders of the test, starts of programs and threads and waits for programs,
//                 from the moment when a FailingCall is made, or in a real program from its beginning. What only looks
//                 at something is no moment to be killed at.
#pragma once
#include <array>
#include <string>
#include <utility>
#include <vector>

namespace zirvo::test {

/// What is wrong with the call that fails.
enum class Trouble {
    Denied,
    Full,
    Gone,
    Interrupted,
    NoMemory,
    Killed,     ///< the process ends before the call, as by SIGKILL
    Stale,      ///< what a folder of the network says that has been taken away
    OverQuota,  ///< the user has no room left, though the disk has
};

inline constexpr std::array AllTroubles{Trouble::Denied, Trouble::Full, Trouble::Gone, Trouble::Interrupted,
                                        Trouble::NoMemory};

/// Those of a folder on another machine.
inline constexpr std::array NetworkTroubles{Trouble::Stale, Trouble::OverQuota};

std::string NameOf(Trouble trouble);

/// While it lives, one call of this process fails.
class FailingCall {
public:
    /// @param folder  and all below it is what counts; a full path
    /// @param number  of the call, from 1; 0 for none, to count them
    FailingCall(const std::string& folder, int number, Trouble trouble);
    ~FailingCall();
    FailingCall(const FailingCall&) = delete;
    FailingCall& operator=(const FailingCall&) = delete;

    /// "rename /folder/file"; empty if there were not so many calls.
    static std::string Failed();
    /// So many calls have been made since then.
    static int Calls();
};

/// Whether a call that has failed, as Failed() gives it, would only have looked at something.
bool OnlyLooks(const std::string& call);

/// The variables of the environment with which a real program has a call that fails.
/// @param folders  each of them and all below it is what counts
/// @param program  alone: not what it starts in turn
/// @param log      file that is written when the call has failed, with what Failed() gives
/// @param only     the one kind of call that counts, such as "lock"; empty: each does
std::vector<std::pair<std::string, std::string>> FailingCallOf(const std::string& program,
                                                               const std::vector<std::string>& folders, int number,
                                                               Trouble trouble, const std::string& log,
                                                               const std::string& only = "");

}  // namespace zirvo::test
