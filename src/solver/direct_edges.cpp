// Sums of pairs near the edge of the load: r close to a, and so little depth that they would need a great many nodes.
//
// A product of two Bessel functions turns with xi (r + a) and with xi (r - a):
//   J1(x) Jn(y) = Re(H1(x) conj Hn(y)) / 2 + Re(H1(x) Hn(y)) / 2,   H = J + i Y, x = xi a, y = xi r.
// The fast share is what wants the nodes, and gives nothing: against it any smooth function of xi sums to zero. So the
// sum is split by a window 1 - V = erfc((xi - 6 sigma) / sigma) / 2, sigma = 64 / (r + a): below it the product is
// summed whole, with as many nodes as that needs; beyond it the slow share alone, on nodes that are as few for a film
// of a hair's breadth as for a road. What is left out, V times the fast share, is exp(-(sigma (r + a) / 2)^2), nothing.
//
// Asymptotic series give H(x) exp(-i x), so that the slow share's phase is xi times the distance from the edge, which
// is known to its last digit. They hold to 1E-16 from x = 32; V falls faster below that than they get worse: at x = 16
// they are 1E-11 off and V is 4E-15, at x = 4, where the slow share is ended, V is 5E-17.
#include <algorithm>
#include <cmath>
#include <complex>

#include "solver/direct_sum.h"
#include "solver/sum_rules.h"
#include "solver/tables.h"

namespace zirvo::solver {

namespace {

constexpr double SplitSigma = 64;     // times r + a
constexpr double SplitMiddle = 6;     // of the window, in sigmas
constexpr double FirstPhase = 4;      // xi a and xi r at which the slow share begins
constexpr double SlowMargin = 130;    // K of the slow share's nodes: the window is narrow beside its middle
constexpr double AlikeReaches = 1.5;  // of the pairs that share a window, the largest over the smallest
constexpr double KernelRange = 42;    // as of RangeOf
constexpr double WindowRange = 192;
constexpr double MostPhase = 1e4;  // xi (r + a) of a whole sum: 3600 nodes

double SeriesAt(const double* c, double y) {
    double sum = c[BesselTable::AsymptoticTerms - 1];
    for (int k = BesselTable::AsymptoticTerms - 2; k >= 0; --k) {
        sum = sum * y + c[k];
    }
    return sum;
}

/// H0..H3 times exp(-i x), x > 0 and not small.
void SlowHankel(const BesselTable& table, double x, std::complex<double> h[4]) {
    const double inverse = 1 / x;
    const double y = inverse * inverse;
    const double scale = std::sqrt(0.31830988618379067154 * inverse);  // times sqrt 2 of both turns
    const std::complex<double> zero(SeriesAt(table.P0, y), SeriesAt(table.Q0, y) * inverse);
    const std::complex<double> one(SeriesAt(table.P1, y), SeriesAt(table.Q1, y) * inverse);
    h[0] = scale * zero * std::complex<double>(1, -1);
    h[1] = scale * one * std::complex<double>(-1, -1);
    h[2] = 2 * inverse * h[1] - h[0];
    h[3] = 4 * inverse * h[2] - h[1];
}

}  // namespace

bool WorthSplitting(double radius, double r, double gap, double effective) {
    gap = std::fabs(gap);
    return gap <= ExactGapShare * radius && (r + radius) * KernelRange > MostPhase * effective &&
           (r + radius) * WindowRange > MostPhase * gap;
}

bool IsNearEdge(const Work& work, const ChunkPoint& point, double effective) {
    for (const LoadGroup& group : work.Groups) {
        if (!WorthSplitting(group.Radius, 1.1 * group.Radius, 0, effective)) {
            continue;
        }
        for (const GroupLoad& load : group.Loads) {
            const double r = PositionFrom(load, point.X, point.Y).R;
            if (WorthSplitting(group.Radius, r, r - group.Radius, effective)) {
                return true;
            }
        }
    }
    return false;
}

bool DirectSum::IsNearEdge(const Pair& pair) const {
    return WorthSplitting(groups_[pair.Group].Radius, pair.Position.R, pair.Gap, EffectiveOf(pair));
}

/// Pairs of like reach share a window.
void DirectSum::RunNearEdges(std::vector<std::size_t> pairs) {
    const auto reach = [&](std::size_t pair) { return groups_[pairs_[pair].Group].Radius + pairs_[pair].Position.R; };
    std::stable_sort(pairs.begin(), pairs.end(), [&](auto a, auto b) { return reach(a) < reach(b); });
    slowRows_.resize(pairs.empty() ? 0 : pairs_.size());
    slowErrors_.resize(slowRows_.size());
    for (std::size_t first = 0; first < pairs.size();) {
        std::size_t last = first;
        while (last < pairs.size() && reach(pairs[last]) <= AlikeReaches * reach(pairs[first])) {
            ++last;
        }
        std::vector<std::size_t> part(pairs.begin() + static_cast<std::ptrdiff_t>(first),
                                      pairs.begin() + static_cast<std::ptrdiff_t>(last));
        std::sort(part.begin(), part.end());
        split_ = SplitSigma / reach(pairs[first]);
        slowestFrom_ = HUGE_VAL;
        double ze = HUGE_VAL;
        std::vector<RadiusItem> items;  // of the slow share, which knows the gaps alone
        for (const std::size_t index : part) {
            const Pair& pair = pairs_[index];
            const double gap = std::fabs(pair.Gap);
            items.push_back({gap, gap, gap, gap, 0});
            slowestFrom_ = std::min(slowestFrom_, FirstPhase / std::max(pair.Position.R, groups_[pair.Group].Radius));
            ze = std::min(ze, EffectiveOf(pair));
        }
        share_ = Share::BelowSplit;
        WaveRange below = RangeOf(reach(pairs[last - 1]), 0, ze, work_.Layers.LowScale, Costs().Mild);
        below.Largest = std::min(below.Largest, 2 * SplitMiddle * split_);
        Refine(part, below, MostNodes);
        share_ = Share::SlowBeyondSplit;
        RunLevels(part, items);
        share_ = Share::Whole;
        for (const std::size_t index : part) {
            for (std::size_t row = 0; row < RowCount; ++row) {
                rows_[index][row] += slowRows_[index][row];
            }
            for (std::size_t load = 0; load < 2; ++load) {
                errors_[index].Strain[load] += slowErrors_[index].Strain[load];
                errors_[index].Displacement[load] += slowErrors_[index].Displacement[load];
            }
        }
        first = last;
    }
}

/// The nodes of one of both shares.
void DirectSum::SplitRule() {
    // Few digits, as of all rules.
    const auto Shortened = [](double x) { return static_cast<double>(static_cast<float>(x)); };
    if (share_ == Share::BelowSplit) {
        rule_.WindowWidth = split_;
        rule_.WindowCentre = SplitMiddle * split_;
    } else if (share_ == Share::SlowBeyondSplit) {
        const double plain = (work_.Layers.Slips ? 58.0 : 50.0) + rule_.C * range_.Reach;
        rule_.Step = Shortened(rule_.Step * plain / (SlowMargin + rule_.C * range_.Reach));
        rule_.Start = Shortened(std::max(rule_.Start, std::log(slowestFrom_ / rule_.C) - 1));
    }
}

/// V of a wavenumber.
double DirectSum::BeyondSplit(double xi) const {
    return 0.5 * std::erfc(SplitMiddle - xi / split_);
}

/// What the nodes lost to rounding, and what r lost as a share of them: the products xi r are then those of a + gap.
/// Else a point would be off by the rounding of r, which shows where the loads of an edge cancel.
void DirectSum::MakeLow(const Pair& pair, int first, int nodes, double* low) const {
    const double radius = groups_[pair.Group].Radius;
    const double sum = radius + pair.Gap;
    const double rest = pair.Gap - (sum - radius);  // the smaller of both is the gap
    const double share = ((sum - pair.Position.R) + rest) / pair.Position.R;
    for (int k = 0; k < nodes; ++k) {
        low[k] = xiLow_[first + k] + xi_[first + k] * share;
    }
}

/// What stands for the Bessel functions of some nodes of the block: the slow share of J1(xi a) Jn(xi r).
void DirectSum::MakeSlow(const Pair& pair, int first, int nodes, double* slow) const {
    const BesselTable& table = Bessels();
    const double radius = groups_[pair.Group].Radius;
    const double r = pair.Position.R;
    for (int k = 0; k < nodes; ++k) {
        const double xi = xi_[first + k];
        if (xi * std::min(radius, r) < FirstPhase) {
            for (int n = 0; n < 4; ++n) {
                slow[n * PairNodes + k] = 0;
            }
            continue;
        }
        std::complex<double> load[4];
        std::complex<double> point[4];
        SlowHankel(table, xi * radius, load);
        SlowHankel(table, xi * r, point);
        const double phase = xi * pair.Gap;
        const std::complex<double> turned = load[1] * std::complex<double>(std::cos(phase), -std::sin(phase));
        for (int n = 0; n < 4; ++n) {
            slow[n * PairNodes + k] = 0.5 * (turned.real() * point[n].real() + turned.imag() * point[n].imag());
        }
    }
}

}  // namespace zirvo::solver
