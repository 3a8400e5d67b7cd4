// How much memory a test has taken.
#pragma once

namespace zirvo::test {

/// The most that this process has held so far [kB].
long PeakMemory();

}  // namespace zirvo::test
