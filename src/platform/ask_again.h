// Questions to the file system through the standard library, which gives up where a signal interrupts the system.
// Callers: whoever asks it whether a file is there and what it is.
#pragma once
#include <system_error>

namespace zirvo {

/// Asks, again while a signal interrupts it. Gives the answer.
/// @param ask    takes an std::error_code&, as the functions of std::filesystem do
/// @param error  of the last answer
template <class Ask>
auto AskAgain(const Ask& ask, std::error_code& error) {
    for (;;) {
        error.clear();
        auto answer = ask(error);
        if (error != std::errc::interrupted) {
            return answer;
        }
    }
}

}  // namespace zirvo
