// Notation: theta the angle of the point seen from a load, phi the direction of its shear, from X both. What the loads
// add up to (theory as in superposition.cpp, AddRows), n the order of the Bessel function that goes with it:
//   pressure p: W, SIGz, EPSx + EPSy with 1 (n = 0), displacements and tractions in the plane with exp(i theta) (1),
//     (EPSx - EPSy) + i GAMxy with exp(2 i theta) (2);
//   shear h: W, SIGz, EPSx + EPSy with cos(theta - phi) (1), displacements and tractions with exp(i phi) (0) and exp(i
//     (2 theta - phi)) (2), strains with exp(i (theta + phi)) (1) and exp(i (3 theta - phi)) (3).
// Steps: at each node these factors of all loads of one radius, times J1 of the radius; of all radii where no layer
// slips; then, at each depth, kernels times factors. Bounds as in level_errors.cpp, of what is added up; what two parts
// lose is a share of the loads' sizes without signs.
#include "solver/joint_sum.h"

#include <algorithm>
#include <cmath>

#include "solver/level_sum.h"
#include "solver/radius_plan.h"
#include "solver/sum_rules.h"

namespace zirvo::solver {

namespace {

constexpr double LoadCost = 1500;     // nanoseconds of a load at one node
constexpr double LayerCost = 250;     // of a layer
constexpr double DepthCost = 600;     // of a depth
constexpr double GivenUpPhase = 120;  // xi * ze at which a sum ends in any case
constexpr double EndedShare = 1e-13;  // of the value, of what is cut off
constexpr double Floor = 1e-4;        // of a unit of the load: errors are shares of the value plus that
constexpr double WeightRounding = 3 * UnitRounding;
constexpr double TwoPartRounding = 1e-30;          // of two parts: Bessel functions
constexpr double TwoPartContrastRounding = 1e-32;  // kernels, for the ratio of the moduli
constexpr int MostBlocks = 4000;

void Turn(TwoPart c, TwoPart s, TwoPart cosine, TwoPart sine, TwoPart out[2]) {
    out[0] = c * cosine - s * sine;
    out[1] = s * cosine + c * sine;
}

void Scale(TwoPart factor, TwoPart out[2]) {
    out[0] = out[0] * factor;
    out[1] = out[1] * factor;
}

void AddProduct(TwoPart a, TwoPart b, TwoPart& sum) {
    sum += a * b;
}
void AddProducts(const TwoPart a[2], TwoPart b, TwoPart sum[2]) {
    sum[0] += a[0] * b;
    sum[1] += a[1] * b;
}

}  // namespace

JointSum::JointSum(const Problem& problem, const LayerTable& layers, const Engine& engine, const LoadScale& scale,
                   double x, double y, const std::vector<SourceDepth>& sources)
    : layers_(layers),
      engine_(engine),
      scale_(scale),
      sources_(sources),
      depths_(KernelDepthsOf(layers, sources)),
      sums_(sources.size()) {
    double gap = HUGE_VAL;
    double reach = 0;
    for (const Load& load : problem.Loads) {
        const auto place =
            std::find_if(rings_.begin(), rings_.end(), [&](const Ring& ring) { return ring.Radius >= load.Radius; });
        const auto ring =
            place != rings_.end() && place->Radius == load.Radius
                ? place
                : rings_.insert(place, Ring{load.Radius, 0, static_cast<int>(layers.M2.size()) - 1, {}, {}, {}});
        const Seen seen = SeenFrom(load, x, y);
        vertical_ = vertical_ || seen.HasVertical;
        horizontal_ = horizontal_ || seen.HasHorizontal;
        const double area = CircleArea(load.Radius);
        ring->Force += (std::fabs(load.Vertical) + 2 * std::fabs(load.Horizontal)) / area;
        ring->Loads.push_back(seen);
        gap = std::min(gap, std::fabs(seen.R.High - load.Radius));
        reach = std::max(reach, seen.R.High);
    }
    reach += rings_.back().Radius;
    double ze = HUGE_VAL;
    for (const SourceDepth& source : sources) {
        ze = std::min(ze, source.Effective);
    }
    for (const Ring& ring : rings_) {
        forces_ += ring.Force;
    }
    const WaveRange range = RangeOf(reach, gap, ze, layers.LowScale, false);
    rule_ = MakeNodeRule(range, 1, layers.Slips);
    expected_ = NodesBelow(rule_, range.Largest);
}

JointSum::Seen JointSum::SeenFrom(const Load& load, double x, double y) const {
    Seen seen;
    const TwoPart dx = TwoPart(x) - TwoPart(load.X);
    const TwoPart dy = TwoPart(y) - TwoPart(load.Y);
    seen.R = SquareRoot(dx * dx + dy * dy);
    const bool axis = seen.R.High == 0;
    const TwoPart c = axis ? TwoPart(1) : dx / seen.R;
    const TwoPart s = axis ? TwoPart(0) : dy / seen.R;
    const TwoPart area = TwoPartPi * ExactProduct(load.Radius, load.Radius);
    seen.HasVertical = load.Vertical != 0;
    if (seen.HasVertical) {
        const TwoPart p = TwoPart(load.Vertical) / area;
        seen.Vertical0 = p;
        seen.Vertical1[0] = p * c;
        seen.Vertical1[1] = p * s;
        Turn(c, s, c, s, seen.Vertical2);
        Scale(p, seen.Vertical2);
    }
    seen.HasHorizontal = load.Horizontal != 0;
    if (seen.HasHorizontal) {
        const TwoPart h = TwoPart(load.Horizontal) / area;
        TwoPart lc;
        TwoPart ls;
        Direction(load.Angle, lc, ls);
        TwoPart back[2];  // exp(i (theta - phi))
        Turn(c, s, lc, -ls, back);
        seen.Along1 = h * back[0];
        seen.Along0[0] = h * lc;
        seen.Along0[1] = h * ls;
        Turn(c, s, lc, ls, seen.Turned1);
        Turn(c, s, back[0], back[1], seen.Turned2);
        Turn(c, s, seen.Turned2[0], seen.Turned2[1], seen.Turned3);
        Scale(h, seen.Turned1);
        Scale(h, seen.Turned2);
        Scale(h, seen.Turned3);
    }
    return seen;
}

double JointSum::Cost() const {
    double cost = 0;
    for (const Ring& ring : rings_) {
        cost += LoadCost * static_cast<double>(ring.Loads.size() + 1) + DepthCost * static_cast<double>(depths_.size());
        if (layers_.Slips || &ring == &rings_.front()) {
            cost += LayerCost * static_cast<double>(layers_.M2.size() + depths_.size());
        }
    }
    return cost * expected_;
}

/// The loads of a ring at one node, times `weight`.
void JointSum::AddFactors(const Ring& ring, TwoPart xi, TwoPart weight, Factors& factors) const {
    Factors own;
    TwoPart j[4];
    for (const Seen& load : ring.Loads) {
        TwoPartBessel(xi * load.R, j);
        if (load.HasVertical) {
            AddProduct(load.Vertical0, j[0], own.Vertical0);
            AddProducts(load.Vertical1, j[1], own.Vertical1);
            AddProducts(load.Vertical2, j[2], own.Vertical2);
        }
        if (load.HasHorizontal) {
            AddProducts(load.Along0, j[0], own.Along0);
            AddProduct(load.Along1, j[1], own.Along1);
            AddProducts(load.Turned1, j[1], own.Turned1);
            AddProducts(load.Turned2, j[2], own.Turned2);
            AddProducts(load.Turned3, j[3], own.Turned3);
        }
    }
    TwoPartBessel(xi * TwoPart(ring.Radius), j);
    const TwoPart common = weight * TwoPart(ring.Radius) * j[1];
    AddProduct(own.Vertical0, common, factors.Vertical0);
    AddProducts(own.Vertical1, common, factors.Vertical1);
    AddProducts(own.Vertical2, common, factors.Vertical2);
    if (horizontal_) {
        AddProducts(own.Along0, common, factors.Along0);
        AddProduct(own.Along1, common, factors.Along1);
        AddProducts(own.Turned1, common, factors.Turned1);
        AddProducts(own.Turned2, common, factors.Turned2);
        AddProducts(own.Turned3, common, factors.Turned3);
    }
}

void JointSum::MakeKernels(Ring& ring, int nodes) {
    const std::size_t size = depths_.size() * RowCount * NodeBlock;
    ring.High.resize(size);
    ring.Low.resize(size);
    engine_.PreciseKernels(layers_.View(), layers_.Slips ? ring.Radius : 0, xi_, xiLow_, nodes, depths_.data(),
                           static_cast<int>(depths_.size()), vertical_, horizontal_, ring.Deepest, ring.High.data(),
                           ring.Low.data());
}

/// Kernels of a depth at a node times factors.
void JointSum::AddNode(const Ring& ring, const Factors& f, int node, std::size_t depth,
                       std::array<TwoPart, Totals>& added) const {
    const auto kernel = [&](int row) {
        const std::size_t place = (depth * RowCount + static_cast<std::size_t>(row)) * NodeBlock;
        const std::size_t at = place + static_cast<std::size_t>(node);
        return TwoPart{ring.High[at], ring.Low[at]};
    };
    if (vertical_) {
        const TwoPart u = kernel(RowVerticalU0);
        const TwoPart radial = -kernel(RowVerticalU1);
        const TwoPart shear = -kernel(RowVerticalT);
        added[AtW] += kernel(RowVerticalW) * f.Vertical0;
        added[AtNormal] += kernel(RowVerticalS) * f.Vertical0;
        added[AtArea] -= u * f.Vertical0;
        for (std::size_t axis = 0; axis < 2; ++axis) {
            added[AtU + axis] += radial * f.Vertical1[axis];
            added[AtShearX + axis] += shear * f.Vertical1[axis];
            added[AtDifference + axis] += u * f.Vertical2[axis];
        }
    }
    if (horizontal_) {
        added[AtW] += kernel(RowHorizontalW) * f.Along1;
        added[AtNormal] += kernel(RowHorizontalS) * f.Along1;
        added[AtArea] -= kernel(RowHorizontalU) * f.Along1;
        for (std::size_t axis = 0; axis < 2; ++axis) {
            added[AtU + axis] += kernel(RowSum0) * f.Along0[axis] - kernel(RowDifference2) * f.Turned2[axis];
            added[AtShearX + axis] += kernel(RowShear0) * f.Along0[axis] - kernel(RowShear2) * f.Turned2[axis];
            added[AtDifference + axis] += kernel(RowDifference3) * f.Turned3[axis] - kernel(RowSum1) * f.Turned1[axis];
        }
    }
}

/// What loads whose factors have that size would add without signs.
void JointSum::AddSizes(const Ring& ring, double factor, int node, bool last, std::size_t depth) {
    std::array<double, 2> largest{};
    for (int row = vertical_ ? 0 : VerticalRows; row < (horizontal_ ? static_cast<int>(RowCount) : VerticalRows);
         ++row) {
        const std::size_t place = (depth * RowCount + static_cast<std::size_t>(row)) * NodeBlock;
        double& kernel = largest[RowIsDisplacement[row] ? 1 : 0];
        kernel = std::max(kernel, std::fabs(ring.High[place + static_cast<std::size_t>(node)]));
    }
    DepthSum& sum = sums_[depth];
    for (std::size_t kind = 0; kind < 2; ++kind) {
        const double size = factor * largest[kind];
        sum.Alone[kind] += size;
        sum.Tail[kind] = last ? std::max(sum.Tail[kind], size) : sum.Tail[kind];
    }
}

void JointSum::SumBlock(long first, int nodes, const double* weight) {
    for (Ring& ring : rings_) {
        if (layers_.Slips || &ring == &rings_.front()) {
            MakeKernels(ring, nodes);
        }
    }
    for (DepthSum& sum : sums_) {
        sum.Tail = {};
    }
    std::vector<std::array<TwoPart, Totals>> added(depths_.size());
    for (int node = 0; node < nodes; ++node) {
        const double xi = xi_[node];
        std::fill(added.begin(), added.end(), std::array<TwoPart, Totals>{});
        Factors factors;
        double size = 0;
        for (const Ring& ring : rings_) {
            AddFactors(ring, {xi, xiLow_[node]}, weight[node], factors);
            size += weight[node] * ring.Radius * ring.Force * Envelope(xi * ring.Radius);
            if (!layers_.Slips && &ring != &rings_.back()) {
                continue;  // the next ring has the same kernels
            }
            const Ring& kernels = layers_.Slips ? ring : rings_.front();
            for (std::size_t d = 0; d < depths_.size(); ++d) {
                AddNode(kernels, factors, node, d, added[d]);
                AddSizes(kernels, size, node, node >= nodes - TailNodes, d);
            }
            factors = {};
            size = 0;
        }
        for (std::size_t d = 0; d < depths_.size(); ++d) {
            DepthSum& sum = sums_[d];
            std::array<double, 2> largest{};
            for (std::size_t i = 0; i < Totals; ++i) {
                sum.Total[i] += added[d][i];
                sum.Difference[i] += (first + node) % 2 == 0 ? added[d][i].High : -added[d][i].High;
                double& value = largest[i <= AtW ? 1 : 0];
                value = std::max(value, std::fabs(added[d][i].High));
            }
            for (std::size_t kind = 0; kind < 2; ++kind) {
                sum.Magnitude[kind] += largest[kind];
                sum.Segment[kind] += largest[kind] * (WeightRounding + NodeRounding);
            }
        }
        if ((node + 1) % Segment == 0 || node + 1 == nodes) {
            CloseSegment();
        }
    }
}

void JointSum::CloseSegment() {
    for (DepthSum& sum : sums_) {
        for (std::size_t kind = 0; kind < 2; ++kind) {
            sum.Rounding[kind] += sum.Segment[kind] * sum.Segment[kind];
            sum.Segment[kind] = 0;
        }
    }
}

/// What is cut off behind the last node, as a geometric series of the kernel's decay.
double JointSum::Cut(std::size_t depth, std::size_t kind) const {
    return sums_[depth].Tail[kind] / -std::expm1(-rule_.C * rule_.Step * sources_[depth].Effective);
}

/// A unit of the load in the layer of a depth.
double JointSum::Unit(std::size_t depth, std::size_t kind) const {
    const double m2 = layers_.M2[static_cast<std::size_t>(sources_[depth].Layer)];
    return scale_.Pressure * (kind == 1 ? scale_.Radius : 1) / m2;
}

bool JointSum::Ended(double xi) const {
    if (xi > WindowEnd(rule_)) {
        return true;
    }
    for (std::size_t d = 0; d < sources_.size(); ++d) {
        const double phase = xi * sources_[d].Effective;
        if (phase < EndedPhase) {
            return false;
        }
        for (std::size_t kind = 0; kind < 2 && phase < GivenUpPhase; ++kind) {
            double value = Floor * Unit(d, kind);
            for (std::size_t i = 0; i < Totals; ++i) {
                value = (i <= AtW) == (kind == 1) ? std::max(value, std::fabs(sums_[d].Total[i].High)) : value;
            }
            if (Cut(d, kind) > EndedShare * value) {
                return false;
            }
        }
    }
    return true;
}

PointSums JointSum::ResultAt(std::size_t depth) const {
    const DepthSum& sum = sums_[depth];
    PointSums result;
    const auto& t = sum.Total;
    result.U = t[AtU].High;
    result.V = t[AtV].High;
    result.W = t[AtW].High;
    result.Normal = t[AtNormal].High;
    result.ShearX = t[AtShearX].High;
    result.ShearY = t[AtShearY].High;
    result.AreaStrain = t[AtArea].High;
    result.StrainDifference = t[AtDifference].High;
    result.ShearStrain = t[AtShear].High;
    std::array<double, 2> error{};
    for (std::size_t kind = 0; kind < 2; ++kind) {
        double half = 0;
        double size = 0;
        for (std::size_t i = 0; i < Totals; ++i) {
            if ((i <= AtW) == (kind == 1)) {
                half = std::max(half, std::fabs(sum.Difference[i]));
                size += std::fabs(t[i].High);
            }
        }
        const double scale = std::min(forces_ / scale_.Pressure * Unit(depth, kind), sum.Magnitude[kind]);
        error[kind] = (scale > 0 ? RuleError(half, scale) : 0) + Cut(depth, kind) + std::sqrt(sum.Rounding[kind]) +
                      (TwoPartRounding + TwoPartContrastRounding * layers_.Contrast) * sum.Alone[kind];
        (kind == 1 ? result.DisplacementSize : result.StrainSize) = size;
    }
    result.StrainError = error[0];
    result.DisplacementError = error[1];
    return result;
}

std::vector<PointSums> JointSum::Run() {
    alignas(64) double weight[NodeBlock];
    long first = 0;
    for (int block = 0; block < MostBlocks; ++block) {
        const double left = std::max(expected_ - static_cast<double>(first), 64.0);
        const int nodes = left >= NodeBlock ? NodeBlock : (static_cast<int>(left) + 15) / 16 * 16;
        FillNodes(engine_, rule_, first, nodes, xi_, xiLow_, weight);
        SumBlock(first, nodes, weight);
        first += nodes;
        if (Ended(xi_[nodes - 1])) {
            break;
        }
    }
    std::vector<PointSums> results;
    for (std::size_t d = 0; d < sources_.size(); ++d) {
        results.push_back(ResultAt(d));
    }
    return results;
}

}  // namespace zirvo::solver
