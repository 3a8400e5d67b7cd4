// What bounds the errors of sums over wavenumbers, and when a sum has ended: shared by the sums of levels and those of
// single pairs. docs/theory.md says why.
#pragma once
#include <algorithm>
#include <cmath>
#include <limits>

#include "solver/wavenumbers.h"

namespace zirvo::solver {

// Errors that need no finer step and no narrower cells: a point that wants more is done again.
inline constexpr double AbsoluteGoal = 1e-14;  // in units of the load
inline constexpr double RelativeGoal = 2e-11;  // or as a share of the value
inline constexpr double UnitRounding = 1.1e-16;
inline constexpr double NodeRounding = 0.3 * UnitRounding;  // of an argument xi r: measured at most 0.26
inline constexpr double PlaceRounding = 2.2e-16;            // of a distance or a depth
inline constexpr double RuleSafety = 2;

inline constexpr double PreciseContrast = 1000;  // of the moduli, beyond which plain kernels lose too much too suddenly
inline constexpr double MildContrast = 300;  // of bonded layers whose kernels have no poles near the real wavenumbers
inline constexpr double MostNodes = 3e6;     // of one level
inline constexpr double FewestNodes = 2e4;   // that it may have whatever the budget says
inline constexpr double PreciseCost = 15;    // of kernels in two parts over plain ones

inline constexpr double EndedKernel = 1e-15;  // share of its peak below which a kernel has ended
inline constexpr double EndedPhase = 40;      // and xi * ze above which it may
inline constexpr int ExtraNodes = 64;         // block beyond the expected end
inline constexpr int MostRefinements = 2;
inline constexpr double TailShare = 0.5;           // of the last two Chebyshev coefficients: what follows them at most
inline constexpr double LeastRounding = 2e-16;     // share of a kernel that a sample is not believed below
inline constexpr double ContrastRounding = 6e-18;  // more of it for the ratio of the moduli
inline constexpr double KernelSafety = 1;      // of a sampled difference: within a segment errors are added unsigned
inline constexpr double PairKernelSafety = 2;  // and of one that stands for a whole layer's depths

/// What a rule is off when its half is off by `half`.
inline double RuleError(double half, double scale) {
    if (half == 0) {
        return 0;  // no share of nothing
    }
    const double share = half / scale;
    return half * std::min(RuleSafety * share / std::sqrt(std::sqrt(std::min(share, 1.0))), 1 + share);
}

/// What is lost where a sum grows block by block: the rounding of what there is at each of them. A great many blocks
/// that are small beside it all lose in one direction.
inline double GrowthRounding(double blocks, double value) {
    return UnitRounding * blocks * value;
}

/// Size of J1(x) without its oscillation.
inline double Envelope(double x) {
    return std::min(0.5 * x, 0.8 / std::sqrt(x));
}

/// The larger of two; what is no number stays.
inline double LargerOrNone(double a, double b) {
    return b <= a || std::isnan(a) ? a : b;
}

/// Share of a kernel that is rounding, from the sizes of a plain one, of one in two parts and of their difference.
/// Where one of both has left the layer out as not reached (engine_kernels.inl), they tell nothing: so little is there
/// that it must not be taken for the rounding of neighbours that are a million times as large.
inline double RoundingShare(double off, double precise, double plain) {
    if (std::isnan(off)) {
        return std::numeric_limits<double>::infinity();
    }
    return off > 0 && precise > 0 && plain > 0 ? off / std::max(precise, off) : 0;
}

/// What an argument xi r up to `largest` is off: by what the nodes are, and where its multiple of a right angle is a
/// number of more digits than an exact product has room for (engine_bessel.inl), by its own rounding.
inline double ArgumentRounding(double largest) {
    constexpr double LargestExact = 1.6e6;
    return NodeRounding + (largest > LargestExact ? UnitRounding * largest : 0);
}

/// Nodes of the block that begins at `first`, at most `most`: fewer where the sum is expected to end.
inline int NodesOfBlock(double expected, long first, int most) {
    const double left = std::max(expected - static_cast<double>(first), static_cast<double>(ExtraNodes));
    return left >= most ? most : (static_cast<int>(left) + 15) / 16 * 16;
}

}  // namespace zirvo::solver
