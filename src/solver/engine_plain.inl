// The kernels in plain doubles.

using Number = Vec;
using Constant = double;

inline Number NumberOf(double x) {
    return All(x);
}
inline Constant ConstantOf(double high, double) {
    return high;
}
inline double LastLane(Number x) {
    return x[ZIRVO_LANES - 1];
}
inline Vec Rounded(Number x) {
    return x;
}
inline Vec Size(Number x) {
    return Absolute(x);
}

/// Where wavenumbers stand.
using NodePlace = const double*;
inline Number NumberAt(NodePlace p) {
    return Load(p);
}
/// Where kernels go.
using RowPlace = double*;
inline void Keep(RowPlace to, Number x) {
    Store(to, x);
}
// The layers with these numbers.
#include "solver/engine_layers.inl"

inline Hyperbolic HyperbolicOf(Vec q) {
    const Vec x = q * q;
    Vec c = All(1.0 / 2432902008176640000.0);
    Vec s = All(1.0 / 51090942171709440000.0);
    Vec t = All(10.0 / 51090942171709440000.0);
    constexpr double Factorials[10] = {1.0,
                                       6.0,
                                       120.0,
                                       5040.0,
                                       362880.0,
                                       39916800.0,
                                       6227020800.0,
                                       1307674368000.0,
                                       355687428096000.0,
                                       121645100408832000.0};
    for (int k = 9; k >= 0; --k) {
        const double f = Factorials[k];  // (2 k + 1)!, of the term q^(2 k + 1)
        c = c * x + (2 * k + 1) / f;
        s = s * x + 1.0 / f;
        t = t * x + k / f;
    }
    return {c, s * q, t * q};
}

// The fields at depths with these numbers.
#include "solver/engine_kernels.inl"
// The fields of whole layers with these numbers.
#include "solver/engine_fields.inl"
