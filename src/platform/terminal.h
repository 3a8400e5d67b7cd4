// The command line and the terminal of a program without windows. Callers: zirvo-batch, the solver programs.
#pragma once
#include <string>
#include <vector>

namespace zirvo {

/// The arguments of the process in UTF-8, without the program's own name. On Windows the system is asked for them,
/// since those of main() come in a code page that cannot hold every name; elsewhere they are the bytes of main().
std::vector<std::string> CommandLineArguments(int count, char** arguments);

/// While it lives, what is written on the standard streams arrives as it is: on Windows no line end is changed, and a
/// console shows UTF-8 as such. Elsewhere it is always so.
class PlainStreams {
public:
    PlainStreams();
    ~PlainStreams();  // NOLINT(performance-trivially-destructible): it has work on Windows
    PlainStreams(const PlainStreams&) = delete;
    PlainStreams& operator=(const PlainStreams&) = delete;

private:
    unsigned earlierCodePage_ = 0;  // of the console; 0 if there is none
};

/// True if standard error is a terminal that a person looks at and that takes escape sequences.
bool IsErrorTerminal();

}  // namespace zirvo
