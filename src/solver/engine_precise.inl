// The kernels in numbers of two parts, one engine's width: included by each engine_precise_*.cpp as engine_body.inl is
// by engine_*.cpp.
#include "solver/engine.h"

#if defined(__GNUC__)
#pragma GCC diagnostic ignored "-Wpsabi"
#endif

#if !defined(__GNUC__) || defined(ZIRVO_PLAIN_VECTORS)
#include <cmath>
#endif

namespace zirvo::solver::ZIRVO_ENGINE {
namespace {
#include "solver/vectors.inl"
// Numbers in two parts need the vectors above.
#include "solver/pairs.inl"

using Number = TwoVec;
using Constant = TwoVec;

inline Number NumberOf(double x) {
    return Exactly(x);
}
inline Constant ConstantOf(double high, double low) {
    return {All(high), All(low)};
}
/// Where wavenumbers stand.
struct NodePlace {
    const double* High;
    const double* Low;
};
inline NodePlace operator+(NodePlace place, int n) {
    return {place.High + n, place.Low + n};
}
inline Number NumberAt(NodePlace p) {
    return {Load(p.High), Load(p.Low)};
}
/// Where kernels go; what they lose to rounding may be wanted too.
struct RowPlace {
    double* High;
    double* Low;
};
inline RowPlace operator+(RowPlace place, int n) {
    return {place.High + n, place.Low != nullptr ? place.Low + n : nullptr};
}
inline void Keep(RowPlace to, Number x) {
    Store(to.High, x.High);
    if (to.Low != nullptr) {
        Store(to.Low, x.Low);
    }
}
inline double LastLane(Number x) {
    return x.High[ZIRVO_LANES - 1];
}
inline Vec Rounded(Number x) {
    return x.High;
}
inline Vec Size(Number x) {
    return Absolute(x.High);
}
// The layers with these numbers.
#include "solver/engine_layers.inl"

inline Hyperbolic HyperbolicOf(Number q) {
    constexpr int Terms = 18;  // 1.5^36 / 36! is 6E-36
    const Number x = q * q;
    Number c = InverseFactorial(2 * Terms);
    Number s = InverseFactorial(2 * Terms + 1);
    Number t = s * static_cast<double>(Terms);
    for (int k = Terms - 1; k >= 0; --k) {
        const Number odd = InverseFactorial(2 * k + 1);
        c = c * x + InverseFactorial(2 * k);
        s = s * x + odd;
        t = t * x + odd * static_cast<double>(k);
    }
    return {c, s * q, t * q};
}
// The fields at depths with these numbers.
#include "solver/engine_kernels.inl"
// The fields of whole layers with these numbers.
#include "solver/engine_fields.inl"
// Nodes need the numbers alone.
#include "solver/engine_nodes.inl"
}  // namespace

void PreciseKernels(const LayeredSystem& system, double radius, const double* xi, const double* xiLow, int nodes,
                    const KernelDepth* depths, int depthCount, bool vertical, bool horizontal, int& deepest,
                    double* out, double* low);

void PreciseKernels(const LayeredSystem& system, double radius, const double* xi, const double* xiLow, int nodes,
                    const KernelDepth* depths, int depthCount, bool vertical, bool horizontal, int& deepest,
                    double* out, double* low) {
    Kernels(system, radius, {xi, xiLow}, nodes, depths, depthCount, vertical, horizontal, deepest, RowPlace{out, low});
}

void MakeNodes(const NodeTable& table, const NodeMap& map, double first, int count, double* xi, double* xiLow,
               double* weight);

void MakeNodes(const NodeTable& table, const NodeMap& map, double first, int count, double* xi, double* xiLow,
               double* weight) {
    Nodes(table, map, first, count, xi, xiLow, weight);
}

void PreciseFields(const LayeredSystem& system, const double* radii, int radiusCount, const double* xi,
                   const double* xiLow, int nodes, const int* slots, int deepestWanted, bool vertical, bool horizontal,
                   int& deepest, const FieldsPlace& out);

void PreciseFields(const LayeredSystem& system, const double* radii, int radiusCount, const double* xi,
                   const double* xiLow, int nodes, const int* slots, int deepestWanted, bool vertical, bool horizontal,
                   int& deepest, const FieldsPlace& out) {
    Fields(system, radii, radiusCount, {xi, xiLow}, nodes, slots, deepestWanted, vertical, horizontal, deepest, out);
}

}  // namespace zirvo::solver::ZIRVO_ENGINE
