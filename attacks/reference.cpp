// Steps: loads by radius (the springs hold it); panels from a wavenumber at which every kernel is constant, doubling,
// until the Bessel functions limit them; at each node one WaveField, the fields at all depths, and the rows of all
// pairs of loads and points; then the half-space of layer 1 in closed form, and the law of elasticity. Far points end
// under a window erfc((xi - 8.5 sigma) / sigma) / 2, sigma = 24 / gap: exp(-144) of what it cuts.
#include "reference.h"

#include <algorithm>
#include <map>

#include "bessel_reference.h"
#include "gauss_nodes.h"
#include "half_space_reference.h"
#include "wave_field.h"

namespace zirvo::attack {

namespace {

using solver::Load;
using solver::Point;
using solver::Problem;

constexpr double EndedPhase = 50;     // xi times the effective depth at which sums may end
constexpr double EndedShare = 1e-20;  // of the largest panel, and what the last panel must stay below
constexpr double WindowCentre = 8.5;  // in sigmas
constexpr double WindowSigma = 24;    // over the gap

/// Sums of one pair: each kernel with each Bessel function that it meets.
struct PairSums {
    Two W0, S0, U0, U1, T1, U2;                                         // pressure
    Two HW1, HS1, HU1, HSum1, HSum0, HShear0, HDiff2, HShear2, HDiff3;  // shear
};

/// Bessel functions at one distance from a load's axis, for all pairs that lie there.
struct Distance {
    Two R;
    double Xi = -1;  ///< where they stand at present
    Two J[4];
};

/// A load of the group at hand and a point.
struct Pair {
    std::size_t Load = 0, Point = 0, Depth = 0, Distance = 0;
    Two R;
    Two Cos = 1, Sin = 0;
    double Window = 0;  ///< gap of its window; 0: none
    bool Done = false;
    double Largest = 0, Last = 0;  // panel contributions
    PairSums Sums;
};

struct Depth {
    std::size_t Layer = 0;
    double Z = 0;
    double Effective = 0;
    bool Wanted = true;
    WaveValues OfPressure, OfShear;
};

struct PointTotals {
    Two U, V, W, Normal, ShearX, ShearY, Area, Difference, Shear;
    Two SurfaceNormal, SurfaceX, SurfaceY;
};

Two RootOfSquares(Two x, Two y) {
    return SquareRoot(x * x + y * y);
}

/// Cosine and sine of degrees.
void Direction(double degrees, Two& cosine, Two& sine) {
    SineCosine(Two(std::remainder(degrees, 360.0)) * Pi / Two(180), sine, cosine);
}

class GroupSolution {
public:
    GroupSolution(const Problem& problem, const ReferenceLayers& layers, double radius, const ReferenceOptions& options)
        : problem_(problem), layers_(layers), radius_(radius), options_(options) {
        PlacePairs();
    }

    /// False where it is too dear.
    bool Sum();
    void AddTo(std::vector<PointTotals>& totals);

private:
    void PlacePairs();
    std::size_t DepthOf(const Point& point);
    std::size_t DistanceOf(Two r);
    void AddNode(Two xi, Two weight);
    static void AddKernels(const Depth& depth, const Two* j, Two factor, Two inverse, bool shear, PairSums& sums);
    bool EndPanel(double xi);
    void AddOwnShare(const Pair& pair, PairSums& sums) const;
    void Superpose(const Pair& pair, PointTotals& t) const;

    const Problem& problem_;
    const ReferenceLayers& layers_;
    double radius_;
    const ReferenceOptions& options_;
    std::vector<Depth> depths_;
    std::vector<Distance> distances_;
    std::vector<Pair> pairs_;
    bool shear_ = false;  // any load of the group has some
    std::vector<double> windows_;
    double reach_ = 0;
};

std::size_t GroupSolution::DepthOf(const Point& point) {
    const auto layer = static_cast<std::size_t>(point.Layer - 1);
    for (std::size_t i = 0; i < depths_.size(); ++i) {
        if (depths_[i].Layer == layer && depths_[i].Z == point.Z) {
            return i;
        }
    }
    const bool first = layer == 0 && layers_.Count() > 1;
    depths_.push_back({layer, point.Z, first ? 2 * layers_.H[0].Hi - point.Z : point.Z, true, {}, {}});
    return depths_.size() - 1;
}

std::size_t GroupSolution::DistanceOf(Two r) {
    for (std::size_t i = 0; i < distances_.size(); ++i) {
        if (distances_[i].R.Hi == r.Hi && distances_[i].R.Lo == r.Lo) {
            return i;
        }
    }
    distances_.push_back({r, -1, {}});
    return distances_.size() - 1;
}

void GroupSolution::PlacePairs() {
    for (std::size_t l = 0; l < problem_.Loads.size(); ++l) {
        const Load& load = problem_.Loads[l];
        if (load.Radius != radius_) {
            continue;
        }
        shear_ = shear_ || load.Horizontal != 0;
        for (std::size_t p = 0; p < problem_.Points.size(); ++p) {
            const Point& point = problem_.Points[p];
            Pair pair;
            pair.Load = l;
            pair.Point = p;
            pair.Depth = DepthOf(point);
            const Two x = Two(point.X) - Two(load.X);
            const Two y = Two(point.Y) - Two(load.Y);
            pair.R = RootOfSquares(x, y);
            if (pair.R.Hi > 0) {
                pair.Cos = x / pair.R;
                pair.Sin = y / pair.R;
            }
            pair.Distance = DistanceOf(pair.R);
            const double gap = std::fabs((pair.R - Two(radius_)).Hi);
            const double ze = depths_[pair.Depth].Effective;
            if (2 * WindowCentre * WindowSigma / gap < EndedPhase / ze) {
                // Windows are shared by all pairs within a factor 1.5.
                pair.Window = std::pow(1.5, std::floor(std::log(gap) / std::log(1.5)));
                if (std::find(windows_.begin(), windows_.end(), pair.Window) == windows_.end()) {
                    windows_.push_back(pair.Window);
                }
            }
            pairs_.push_back(pair);
        }
    }
}

void GroupSolution::AddKernels(const Depth& depth, const Two* j, Two factor, Two inverse, bool shear, PairSums& sums) {
    const WaveValues& v = depth.OfPressure;
    sums.W0 += factor * v.W * inverse * j[0];
    sums.S0 += factor * v.S * j[0];
    sums.U0 += factor * v.U * j[0];
    sums.U1 += factor * v.U * inverse * j[1];
    sums.T1 += factor * v.T * j[1];
    sums.U2 += factor * v.U * j[2];
    if (!shear) {
        return;
    }
    const WaveValues& h = depth.OfShear;
    const Two half = factor * Two(0.5);
    sums.HW1 += factor * h.W * inverse * j[1];
    sums.HS1 += factor * h.S * j[1];
    sums.HU1 += factor * h.U * j[1];
    sums.HSum1 += half * (h.U + h.V) * j[1];
    sums.HSum0 += half * (h.U + h.V) * inverse * j[0];
    sums.HShear0 += half * (h.T + h.Q) * j[0];
    sums.HDiff2 += half * (h.U - h.V) * inverse * j[2];
    sums.HShear2 += half * (h.T - h.Q) * j[2];
    sums.HDiff3 += half * (h.U - h.V) * j[3];
}

void GroupSolution::AddNode(Two xi, Two weight) {
    const WaveField field(layers_, radius_, xi, shear_);
    for (Depth& depth : depths_) {
        if (depth.Wanted) {
            const bool own = depth.Layer > 0;
            const auto fields = field.At(depth.Layer, depth.Z, own);
            depth.OfPressure = fields[0];
            depth.OfShear = fields[1];
        }
    }
    Two load[4];
    BesselOrders(xi * Two(radius_), load);
    const Two common = weight * Two(radius_) * load[1];
    const Two inverse = Two(1) / xi;
    std::vector<Two> shares(windows_.size(), Two(1));
    for (std::size_t i = 0; i < windows_.size(); ++i) {
        // Rounded to a double, a place would show in what is left of far points: 5E-17 units of the load.
        const Two place = xi * Two(windows_[i] / WindowSigma) - Two(WindowCentre);
        if (place.Hi > -WindowCentre) {
            shares[i] = place.Hi < WindowCentre ? HalfErrorComplement(place) : Two(0);
        }
    }
    for (Pair& pair : pairs_) {
        if (pair.Done) {
            continue;
        }
        Two factor = common;
        if (pair.Window > 0) {
            const auto i = std::find(windows_.begin(), windows_.end(), pair.Window) - windows_.begin();
            factor *= shares[static_cast<std::size_t>(i)];
        }
        Distance& distance = distances_[pair.Distance];
        if (distance.Xi != xi.Hi) {
            distance.Xi = xi.Hi;
            BesselOrders(xi * pair.R, distance.J);
        }
        const Two* j = distance.J;
        const Depth& depth = depths_[pair.Depth];
        AddKernels(depth, j, factor, inverse, problem_.Loads[pair.Load].Horizontal != 0, pair.Sums);
        const double size = std::fabs(weight.Hi) * radius_ * std::min(1.0, xi.Hi * radius_) *
                            std::max({Size(depth.OfPressure.U), Size(depth.OfPressure.W), Size(depth.OfPressure.S),
                                      Size(depth.OfShear.U), Size(depth.OfShear.W), Size(depth.OfShear.V),
                                      Size(depth.OfShear.T), Size(depth.OfShear.Q)});
        pair.Largest = std::max(pair.Largest, size);
        pair.Last = std::max(pair.Last, size);
    }
}

/// True where all pairs have ended.
bool GroupSolution::EndPanel(double xi) {
    for (Depth& depth : depths_) {
        depth.Wanted = false;
    }
    reach_ = 0;
    bool all = true;
    for (Pair& pair : pairs_) {
        const bool decayed = xi * depths_[pair.Depth].Effective > EndedPhase && pair.Last <= EndedShare * pair.Largest;
        const bool cut = pair.Window > 0 && xi * pair.Window > 2 * WindowCentre * WindowSigma;
        pair.Done = pair.Done || decayed || cut;
        pair.Last = 0;
        if (!pair.Done) {
            depths_[pair.Depth].Wanted = true;
            reach_ = std::max(reach_, pair.R.Hi + radius_);
            all = false;
        }
    }
    return all;
}

bool GroupSolution::Sum() {
    if (layers_.Count() == 1) {
        return true;
    }
    double thickness = 0;
    double stiffest = 0;
    double softest = HUGE_VAL;
    for (std::size_t i = 0; i < layers_.Count(); ++i) {
        thickness += layers_.H[i].Hi;
        stiffest = std::max(stiffest, layers_.M2[i].Hi);
        softest = std::min(softest, layers_.M2[i].Hi);
    }
    EndPanel(0);
    double low = 0;
    double high = 1e-2 / std::max(thickness * stiffest / softest, reach_);
    long nodes = 0;
    for (;;) {
        for (std::size_t k = 0; k < GaussCount; ++k) {
            const Two width = Two(high) - Two(low);
            AddNode(Two(low) + Gauss().X[k] * width, Gauss().Weight[k] * width);
        }
        nodes += GaussCount;
        if (EndPanel(high)) {
            return true;
        }
        if (nodes > options_.MostNodes) {
            return false;
        }
        low = high;
        high = low + std::min((options_.Growth - 1) * low, options_.Phase / reach_);
    }
}

/// The closed form of layer 1's own half-space: kernels (c0 + c1 zeta) exp(-zeta).
void GroupSolution::AddOwnShare(const Pair& pair, PairSums& sums) const {
    const Depth& depth = depths_[pair.Depth];
    const Two z = depth.Z;
    const ReferenceIntegrals in = HalfSpaceIntegrals(radius_, pair.R, z);
    const Two m2 = layers_.M2[0];
    const auto sum = [&](Two c0, Two c1, std::size_t order, std::size_t power) {
        const Two first = c0 * in.I[order][power];
        return (z.Hi == 0 ? first : first + c1 * z * in.I[order][power + 1]) / m2;
    };
    const Two k1 = Two(2) - layers_.Nu[0] - layers_.Nu[0];
    const Two k2 = k1 - Two(1);
    sums.W0 += sum(k1, 1, 0, 0);
    sums.S0 += sum(-1, -1, 0, 1);
    sums.U0 += sum(k2, -1, 0, 1);
    sums.U1 += sum(k2, -1, 1, 0);
    sums.T1 += sum(0, 1, 1, 1);
    sums.U2 += sum(k2, -1, 2, 1);
    const Two half = 0.5;
    sums.HW1 += sum(k2, 1, 1, 0);
    sums.HS1 += sum(0, -1, 1, 1);
    sums.HU1 += sum(k1, -1, 1, 1);
    sums.HSum1 += sum(half * k1 + Two(1), -0.5, 1, 1);
    sums.HSum0 += sum(half * k1 + Two(1), -0.5, 0, 0);
    sums.HShear0 += sum(-1, 0.5, 0, 1);
    sums.HDiff2 += sum(half * k1 - Two(1), -0.5, 2, 0);
    sums.HShear2 += sum(0, 0.5, 2, 1);
    sums.HDiff3 += sum(half * k1 - Two(1), -0.5, 3, 1);
}

void GroupSolution::Superpose(const Pair& pair, PointTotals& t) const {
    const Load& load = problem_.Loads[pair.Load];
    const PairSums& s = pair.Sums;
    const Two area = Pi * Two(radius_) * Two(radius_);
    const Two c = pair.Cos;
    const Two n = pair.Sin;
    const bool surface = pair.Depth < depths_.size() && depths_[pair.Depth].Z == 0 && pair.R.Hi < radius_;
    const Two p = Two(load.Vertical) / area;
    t.U -= p * s.U1 * c;
    t.V -= p * s.U1 * n;
    t.W += p * s.W0;
    t.Normal += p * s.S0;
    t.ShearX -= p * s.T1 * c;
    t.ShearY -= p * s.T1 * n;
    t.Area -= p * s.U0;
    t.Difference += p * s.U2 * (c * c - n * n);
    t.Shear += p * s.U2 * Two(2) * c * n;
    const Two h = Two(load.Horizontal) / area;
    Two lc;
    Two ls;
    Direction(load.Angle, lc, ls);
    // Axes turned into the load's direction.
    const Two c1 = c * lc + n * ls;
    const Two s1 = n * lc - c * ls;
    const Two c2 = c1 * c1 - s1 * s1;
    const Two s2 = Two(2) * c1 * s1;
    const Two c3 = c1 * c2 - s1 * s2;
    const Two s3 = s1 * c2 + c1 * s2;
    const Two ux = s.HSum0 - s.HDiff2 * c2;
    const Two uy = -(s.HDiff2 * s2);
    const Two tx = s.HShear0 - s.HShear2 * c2;
    const Two ty = -(s.HShear2 * s2);
    const Two dx = s.HDiff3 * c3 - s.HSum1 * c1;
    const Two dy = s.HDiff3 * s3 - s.HSum1 * s1;
    const Two lc2 = lc * lc - ls * ls;
    const Two ls2 = Two(2) * lc * ls;
    t.U += h * (ux * lc - uy * ls);
    t.V += h * (ux * ls + uy * lc);
    t.W += h * c1 * s.HW1;
    t.Normal += h * c1 * s.HS1;
    t.ShearX += h * (tx * lc - ty * ls);
    t.ShearY += h * (tx * ls + ty * lc);
    t.Area -= h * c1 * s.HU1;
    t.Difference += h * (dx * lc2 - dy * ls2);
    t.Shear += h * (dx * ls2 + dy * lc2);
    if (surface) {
        t.SurfaceNormal -= p;
        t.SurfaceX -= h * lc;
        t.SurfaceY -= h * ls;
    }
}

void GroupSolution::AddTo(std::vector<PointTotals>& totals) {
    for (Pair& pair : pairs_) {
        if (depths_[pair.Depth].Layer == 0) {
            AddOwnShare(pair, pair.Sums);
        }
        Superpose(pair, totals[pair.Point]);
    }
}

std::array<Two, solver::ComponentCount> Compose(const PointTotals& t, Two m2, Two nu, bool surface) {
    using namespace solver;
    std::array<Two, ComponentCount> v;
    const Two normal = surface ? t.SurfaceNormal : t.Normal * m2;
    const Two shearX = surface ? t.SurfaceX : t.ShearX * m2;
    const Two shearY = surface ? t.SurfaceY : t.ShearY * m2;
    const Two side = nu / (Two(1) - nu);
    const Two half = 0.5;
    v[U] = t.U;
    v[V] = t.V;
    v[W] = t.W;
    v[EPSx] = half * (t.Area + t.Difference);
    v[EPSy] = half * (t.Area - t.Difference);
    v[EPSz] = (Two(1) - nu - nu) / (Two(1) - nu) * normal / m2 - side * t.Area;
    v[SIGx] = side * (normal + m2 * t.Area) + m2 * v[EPSx];
    v[SIGy] = side * (normal + m2 * t.Area) + m2 * v[EPSy];
    v[SIGz] = normal;
    v[GAMxy] = t.Shear;
    v[TAUxy] = half * m2 * t.Shear;
    v[TAUyz] = shearY;
    v[TAUzx] = shearX;
    v[GAMyz] = Two(2) * shearY / m2;
    v[GAMzx] = Two(2) * shearX / m2;
    return v;
}

}  // namespace

std::vector<std::array<Two, solver::ComponentCount>> ReferenceValues(const Problem& problem,
                                                                     const ReferenceOptions& options) {
    const ReferenceLayers layers(problem);
    std::map<double, bool> radii;
    for (const Load& load : problem.Loads) {
        radii[load.Radius] = true;
    }
    std::vector<PointTotals> totals(problem.Points.size());
    for (const auto& [radius, present] : radii) {
        GroupSolution group(problem, layers, radius, options);
        if (!group.Sum()) {
            return {};
        }
        group.AddTo(totals);
    }
    std::vector<std::array<Two, solver::ComponentCount>> values;
    for (std::size_t i = 0; i < totals.size(); ++i) {
        const auto layer = static_cast<std::size_t>(problem.Points[i].Layer - 1);
        values.push_back(Compose(totals[i], layers.M2[layer], layers.Nu[layer], problem.Points[i].Z == 0));
    }
    return values;
}

}  // namespace zirvo::attack
