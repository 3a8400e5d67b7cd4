// The command line and the terminal on POSIX systems, see terminal.h.
#include <unistd.h>

#include "platform/terminal.h"

namespace zirvo {

std::vector<std::string> CommandLineArguments(int count, char** arguments) {
    if (count <= 1) {  // a process may be started without even a name
        return {};
    }
    return {arguments + 1, arguments + count};
}

PlainStreams::PlainStreams() = default;
PlainStreams::~PlainStreams() = default;

bool IsErrorTerminal() {
    return isatty(STDERR_FILENO) != 0;
}

}  // namespace zirvo
