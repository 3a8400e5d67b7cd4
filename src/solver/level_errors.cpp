// Bounds of the errors of a level's sums. Sources and their measures, per unit load:
//   rule: halving the step squares the error of a trapezoid whose integrand is analytic in a strip, as a share of the
//     size that the integrand has on the strip's edge. The half rule's error is known from the even and odd nodes; that
//     size is taken as the sum's magnitude, or a unit load where that is less, and as less still, by the fourth root of
//     the share, since a narrow turn of the kernel may be small on its own.
//   cut: the last kernels, as a geometric series of the kernel's decay.
//   window: what it cuts off is beyond a double (wavenumbers.h).
//   kernels: at one node of each segment they are made once more in two parts; the difference as a share of the
//     largest kernel of its kind, at its largest among neighbours, stands for its segment.
//   sum: rounding of kernels, Bessel functions and additions, times the magnitudes.
//     Both are added without signs inside a segment and as independent errors from segment to segment.
//   interpolation in r: the two highest Chebyshev coefficients.
#include <algorithm>
#include <cmath>

#include "solver/level_rows.h"
#include "solver/level_sum.h"
#include "solver/sum_rules.h"
#include "solver/tables.h"

namespace zirvo::solver {

namespace {

constexpr double SumRounding = 1.5 * UnitRounding;  // of a product of kernel and Bessel functions
constexpr double CellSpread = 2;

/// Largest of J0 .. J3 from x on.
double EnvelopeOfAll(double x) {
    return x < 0.8 ? 1 : 0.9 / std::sqrt(x);
}

}  // namespace

/// Measures of one item at one source by kind, per unit load.
struct LevelSum::Measures {
    std::array<double, Kinds> Rule{}, Interpolation{}, Cut{}, Kernel{}, Sum{}, Value{}, Magnitude{};
};

/// Sizes of the Bessel functions of an item in each segment, into envelopes_.
void LevelSum::MakeEnvelopes(std::size_t item) {
    const double r = work_.Items[item].Low;
    envelopes_.clear();
    double lowest = 0;
    for (const double xi : segmentXi_) {
        envelopes_.push_back(EnvelopeOfAll(lowest * r));
        lowest = xi;
    }
}

/// Sums over the segments: magnitudes, and what rounding may amount to.
void LevelSum::AddRounding(std::size_t g, std::size_t source, Measures& m) const {
    const auto width = static_cast<std::size_t>(sources_) * static_cast<std::size_t>(Kinds);
    const double* magnitudes = sums_[g].Magnitude.data() + source * Kinds;
    const double* doubts = sums_[g].Doubt.data() + source * Kinds;
    for (std::size_t s = 0; s < segmentXi_.size(); ++s) {
        const double size = envelopes_[s];
        const double rounding = size * segmentRounding_[s];
        for (std::size_t kind = 0; kind < Kinds; ++kind) {
            const double kernel = doubts[s * width + kind] * size;
            const double sum = magnitudes[s * width + kind] * rounding;
            m.Magnitude[kind] += magnitudes[s * width + kind];
            m.Kernel[kind] += kernel * kernel;
            m.Sum[kind] += sum * sum;
        }
    }
    for (std::size_t kind = 0; kind < Kinds; ++kind) {
        m.Kernel[kind] = std::sqrt(m.Kernel[kind]);
        m.Sum[kind] = std::sqrt(m.Sum[kind]);
    }
}

LevelSum::Measures LevelSum::MeasuresOf(std::size_t g, std::size_t item, std::size_t source) const {
    const GroupSum& sum = sums_[g];
    const RadiusItem& radii = work_.Items[item];
    const bool cell = radii.Group < 0;
    const std::size_t count = cell ? ChebyshevCount : 1;
    const std::size_t first = columnOf_[item];
    const double m2 = work_.Layers.M2[static_cast<std::size_t>(work_.Chunk.Sources[source].Layer)];
    const double decay = -std::expm1(-rule_.C * rule_.Step * work_.Chunk.Sources[source].Effective);
    Measures m;
    std::array<double, Kinds> half{};
    for (int row = RowsFrom(work_.Groups[g]); row < RowsTo(work_.Groups[g]); ++row) {
        const auto kind = static_cast<std::size_t>(RowKind[row]);
        const double* total = Row(g, row, source) + first;
        const double* difference = sum.Difference.data() + (total - sum.Total.data());
        double high[2] = {};
        for (std::size_t c = 0; c < count; ++c) {
            half[kind] = std::max(half[kind], std::fabs(difference[c]));
            m.Value[kind] = std::max(m.Value[kind], std::fabs(total[c]));
            if (cell) {
                high[0] += ChebyshevTail()[0][c] * total[c];
                high[1] += ChebyshevTail()[1][c] * total[c];
            }
        }
        m.Interpolation[kind] = std::max(m.Interpolation[kind], (std::fabs(high[0]) + std::fabs(high[1])) * TailShare);
    }
    for (std::size_t kind = 0; kind < Kinds; ++kind) {
        m.Cut[kind] = sum.Tail[source * Kinds + kind] / decay;
    }
    AddRounding(g, source, m);
    for (std::size_t kind = 0; kind < Kinds; ++kind) {
        const double unit = (kind % 2 == 1 ? work_.Groups[g].Radius : 1) / m2;
        const double scale = std::min(unit, m.Magnitude[kind]);
        m.Rule[kind] = scale > 0 ? RuleError(half[kind], scale) : 0;
    }
    return m;
}

/// True if no item needs a finer step; tells too whether interpolation in r is good enough.
bool LevelSum::Finish() {
    bool good = true;
    smooth_ = true;
    segmentRounding_.clear();
    for (const double xi : segmentXi_) {
        segmentRounding_.push_back(SumRounding + ArgumentRounding(xi * level_.Range.Reach));
    }
    errors_.assign(work_.Slots() * static_cast<std::size_t>(sources_), {});
    for (std::size_t g = 0; g < work_.Groups.size(); ++g) {
        for (const std::size_t item : level_.Items) {
            const int owner = work_.Items[item].Group;
            if (owner < 0 || owner == static_cast<int>(g)) {
                good = FinishItem(g, item) && good;
            }
        }
    }
    return good;
}

bool LevelSum::FinishItem(std::size_t g, std::size_t item) {
    bool good = true;
    // The values of a cell are weighted with numbers whose sizes sum up to 2.7 at most.
    const double spread = work_.Items[item].Group < 0 ? CellSpread : 1;
    MakeEnvelopes(item);
    for (std::size_t d = 0; d < static_cast<std::size_t>(sources_); ++d) {
        const Measures m = MeasuresOf(g, item, d);
        const double m2 = work_.Layers.M2[static_cast<std::size_t>(work_.Chunk.Sources[d].Layer)];
        SumErrors& errors = errors_[work_.SlotOf(g, item) * static_cast<std::size_t>(sources_) + d];
        for (std::size_t kind = 0; kind < Kinds; ++kind) {
            const double unit = (kind % 2 == 1 ? work_.Groups[g].Radius : 1) / m2;
            const double goal = std::max(AbsoluteGoal * unit, RelativeGoal * m.Value[kind]);
            good = good && m.Rule[kind] <= goal;
            smooth_ = smooth_ && m.Interpolation[kind] <= goal;
            auto& error = kind % 2 == 1 ? errors.Displacement : errors.Strain;
            const double growth = GrowthRounding(static_cast<double>(nodes_) / NodeBlock, m.Value[kind]);
            error[kind / 2] =
                m.Interpolation[kind] + spread * (m.Rule[kind] + m.Cut[kind] + m.Kernel[kind] + m.Sum[kind] + growth);
        }
    }
    return good;
}

}  // namespace zirvo::solver
