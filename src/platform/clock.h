// The time of day. Callers: the kept data of the screens, which tell the user when they were typed; zirvo-batch, where
// it waits for another program.
#pragma once
#include <cstdint>
#include <string>

namespace zirvo {

/// Milliseconds since the beginning of 1970 in universal time, as the system's clock has it.
std::int64_t MillisecondsSince1970();

/// Such a time as the user's clock on the wall shows it, "2026-11-21 22:30"; "" for one that no calendar holds.
std::string LocalTimeText(std::int64_t milliseconds);

/// Lets this thread rest.
void Pause(int milliseconds);

}  // namespace zirvo
