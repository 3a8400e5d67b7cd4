// An analysis input that is harder than the promise of the theory reaches.
#pragma once

namespace zirvo::test {

/// A film of 0.1 mm at the edge of a load of 1 km, which asks for more wavenumbers than there is time for; the second
/// point, at its middle, lies 0.05 mm below the film.
inline constexpr const char* Film =
    "h\nf.bre\nf.san\n\nh\n2 1 2\n\nh\nh\n5000 0.35 0.01 0\n50 0.4\n\nh\nh\n490000 100000 0 0 0 0\n\nh\nh\n"
    "2 99999.99 0 0.01\n1 0 0 0.015\n";

}  // namespace zirvo::test
