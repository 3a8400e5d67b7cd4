// The command line and the terminal of a program without windows. Caller: zirvo-batch.
#pragma once
#include <string>
#include <vector>

namespace zirvo {

/// The arguments of the process in UTF-8, without the program's own name. On Windows the system is asked for them,
/// since those of main() come in a code page that cannot hold every name; elsewhere they are the bytes of main().
std::vector<std::string> CommandLineArguments(int count, char** arguments);

/// True if standard error is a terminal that a person looks at and that takes escape sequences.
bool IsErrorTerminal();

}  // namespace zirvo
