// The names under which files are written until they are put into place. Called by the halves of this folder only.
#pragma once
#include <string>
#include <string_view>

namespace zirvo {

/// A name of its own, not one made from the target's: that may be as long as a name can be.
/// @param process  identifier of the process that writes
/// @param number   of the file within it
std::string TemporaryName(long long process, unsigned number);

/// Whether a name is exactly such a one, of whatever process.
bool IsTemporaryName(std::string_view name);

/// Deletes what a process that was made to end has left in the current folder under such names.
void RemoveTemporariesOf(long long process);

}  // namespace zirvo
