// An analysis input that is harder than the promise of the theory reaches.
#pragma once

namespace zirvo::test {

/// A plate that floats on something 5E14 times as soft under opposite loads 1E-6 cm apart: each alone moves it further
/// than both together by more digits than there are. The point lies 0.05 mm below the plate.
inline constexpr const char* Film =
    "h\nf.bre\nf.san\n\nh\n2 2 1\n\nh\nh\n5000 0.3 10 0\n1E-11 0.3\n\nh\nh\n1000 10 0 0 0 0\n-1000 10 1E-6 0 0 "
    "0\n\nh\nh\n"
    "1 5 0 10.005\n";

}  // namespace zirvo::test
