// Files opened as streams, not read as a whole, since what a user picks may be of any size.
// Callers: the readers of the input files, of the section report and of the section's comma file; the solver programs.
#pragma once
#include <fstream>
#include <string>

namespace zirvo {

/// Opens a file in binary mode. Says why where it cannot: fault 53 or 76 where nothing is there, 75 for a folder or a
/// pipe (which might never end), 52 for a path that the system's own encoding cannot hold, 70 without the right to
/// read.
std::ifstream OpenForReading(const std::string& path);

/// Opens it in binary mode, whatever it is. False where it cannot be opened; then errno says why.
bool OpenStream(const std::string& path, std::ifstream& file);

}  // namespace zirvo
