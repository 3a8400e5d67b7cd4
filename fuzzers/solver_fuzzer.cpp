// The theory on legal pavements: finite answers, the same to the bit for one thread and two, the same within their own
// estimates where the pavement is told in another way, and tractions at the surface that are those of the loads.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <string>

#include "solver/check_problem.h"
#include "solver/solve.h"
#include "solver_pavement.h"
#include "support/fuzzing.h"

namespace zirvo::fuzz {
namespace {

using solver::PointResult;
using solver::Problem;
using solver::Solution;
using Values = std::array<double, solver::ComponentCount>;

constexpr double Pi = 3.14159265358979323846;
constexpr std::array<std::size_t, 4> GroupBegin{solver::U, solver::SIGx, solver::EPSx, solver::ComponentCount};

/// Rounding of a depth or of an angle in another telling of the same pavement is no error: a tenth of the promise.
constexpr double SameTelling = 1e-10;
/// Where nothing is told otherwise but the order, the last digits of sums.
constexpr double SameNumbers = 1e-14;

/// Share of the largest value of a group below which a value is told as zero.
constexpr double ToldAsZero = 1e-14;

/// The largest pressure and radius of the loads: what the floor of a promise is made of.
struct LoadUnits {
    double Pressure = 0;
    double Radius = 0;

    explicit LoadUnits(const Problem& problem) {
        for (const solver::Load& load : problem.Loads) {
            const double area = Pi * load.Radius * load.Radius;
            Pressure = std::max({Pressure, std::fabs(load.Vertical) / area, std::fabs(load.Horizontal) / area});
            Radius = std::max(Radius, load.Radius);
        }
    }
    /// Of displacements, stresses, strains in a material.
    double Of(std::size_t group, double modulus) const {
        return group == 0 ? Pressure * Radius / modulus : group == 1 ? Pressure : Pressure / modulus;
    }
};

std::string Told(const Problem& problem) {
    std::string text;
    char line[200];
    for (const solver::Layer& l : problem.Layers) {
        std::snprintf(line, sizeof line, "layer %.17g %.17g %.17g %.17g\n", l.Modulus, l.PoissonRatio, l.Thickness,
                      l.SlipRate);
        text += line;
    }
    for (const solver::Load& l : problem.Loads) {
        std::snprintf(line, sizeof line, "load %.17g %.17g %.17g %.17g %.17g %.17g\n", l.Vertical, l.Radius, l.X, l.Y,
                      l.Horizontal, l.Angle);
        text += line;
    }
    for (const solver::Point& p : problem.Points) {
        std::snprintf(line, sizeof line, "point %d %.17g %.17g %.17g\n", p.Layer, p.X, p.Y, p.Z);
        text += line;
    }
    return text;
}

void RequireOf(bool holds, const Problem& problem, const std::string& sentence) {
    if (!holds) {
        std::fprintf(stderr, "%s", Told(problem).c_str());
    }
    Require(holds, sentence);
}

bool IsFinite(const PointResult& result) {
    return std::all_of(result.Values.begin(), result.Values.end(), [](double value) { return std::isfinite(value); });
}

/// Both answers for one point of the problem agree, as far as they say that they can be trusted.
void RequireSame(const Problem& problem, std::size_t p, const PointResult& a, const Values& values,
                 const std::array<double, 3>& estimates, double slack, const std::string& sentence) {
    const LoadUnits units(problem);
    const double modulus = problem.Layers[static_cast<std::size_t>(problem.Points[p].Layer) - 1].Modulus;
    for (std::size_t group = 0; group < 3; ++group) {
        double largest = 0;
        double difference = 0;
        for (std::size_t c = GroupBegin[group]; c < GroupBegin[group + 1]; ++c) {
            largest = std::max({largest, std::fabs(a.Values[c]), std::fabs(values[c])});
            difference = std::max(difference, std::fabs(a.Values[c] - values[c]));
        }
        const double allowed =
            (a.Estimates[group] + estimates[group] + slack) * (largest + 1e-4 * units.Of(group, modulus));
        if (!(difference <= allowed)) {
            std::fprintf(stderr, "point %zu, group %zu: %.3e apart, largest %.3e, estimates %.3e and %.3e\n", p + 1,
                         group, difference, largest, a.Estimates[group], estimates[group]);
        }
        RequireOf(difference <= allowed, problem, sentence);
    }
}

void RequireSame(const Problem& problem, const Solution& a, const Solution& b, double slack,
                 const std::string& sentence) {
    for (std::size_t p = 0; p < problem.Points.size(); ++p) {
        RequireSame(problem, p, a.Points[p], b.Points[p].Values, b.Points[p].Estimates, slack, sentence);
    }
}

/// At the surface a point under a load has its pressure and its shear, a point outside none.
void RequireSurfaceTractions(const Problem& problem, const Solution& solution) {
    const LoadUnits units(problem);
    for (std::size_t p = 0; p < problem.Points.size(); ++p) {
        const solver::Point& point = problem.Points[p];
        if (point.Z != 0 || point.Layer != 1 || solution.Points[p].OnLoadEdge) {
            continue;
        }
        double normal = 0;
        double shearX = 0;
        double shearY = 0;
        double sizes = 0;
        bool nearEdge = false;
        for (const solver::Load& load : problem.Loads) {
            const double distance = std::hypot(point.X - load.X, point.Y - load.Y);
            const double area = Pi * load.Radius * load.Radius;
            nearEdge = nearEdge || std::fabs(distance - load.Radius) < 1e-5 * load.Radius;
            if (distance < load.Radius) {
                normal -= load.Vertical / area;
                shearX -= load.Horizontal / area * std::cos(load.Angle * Pi / 180);
                shearY -= load.Horizontal / area * std::sin(load.Angle * Pi / 180);
                sizes += (std::fabs(load.Vertical) + std::fabs(load.Horizontal)) / area;
            }
        }
        if (!nearEdge) {
            const Values& v = solution.Points[p].Values;
            double largest = 0;
            for (std::size_t c = GroupBegin[1]; c < GroupBegin[2]; ++c) {
                largest = std::max(largest, std::fabs(v[c]));
            }
            const double allowed = 1e-12 * sizes + 1e-13 * units.Pressure + ToldAsZero * largest;
            RequireOf(std::fabs(v[solver::SIGz] - normal) <= allowed &&
                          std::fabs(v[solver::TAUzx] - shearX) <= allowed &&
                          std::fabs(v[solver::TAUyz] - shearY) <= allowed,
                      problem, "at the surface the tractions are those of the loads");
        }
    }
}

/// Across an interface normal stress, deflection and both shear stresses go on.
void RequireContinuity(const Problem& problem, const Solution& solution) {
    Problem below = problem;
    below.Points.clear();
    std::vector<std::size_t> points;
    for (std::size_t p = 0; p < problem.Points.size(); ++p) {
        solver::Point point = problem.Points[p];
        const auto layer = static_cast<std::size_t>(point.Layer);
        if (layer < problem.Layers.size() && point.Z == TopOf(problem, layer)) {
            ++point.Layer;
            below.Points.push_back(point);
            points.push_back(p);
        }
    }
    if (points.empty()) {
        return;
    }
    const LoadUnits units(problem);
    const Solution other = solver::Solve(below, {1});
    for (std::size_t i = 0; i < points.size(); ++i) {
        const PointResult& a = solution.Points[points[i]];
        const PointResult& b = other.Points[i];
        const auto part = [&](const PointResult& result, int layer, std::size_t group) {
            double largest = 0;
            for (std::size_t c = GroupBegin[group]; c < GroupBegin[group + 1]; ++c) {
                largest = std::max(largest, std::fabs(result.Values[c]));
            }
            const double modulus = problem.Layers[static_cast<std::size_t>(layer) - 1].Modulus;
            return (result.Estimates[group] + SameNumbers) * (largest + 1e-4 * units.Of(group, modulus));
        };
        const int layer = problem.Points[points[i]].Layer;
        for (const std::size_t c :
             std::initializer_list<std::size_t>{solver::W, solver::SIGz, solver::TAUyz, solver::TAUzx}) {
            const std::size_t group = c == solver::W ? 0 : 1;
            const double allowed = part(a, layer, group) + part(b, layer + 1, group);
            if (!(std::fabs(a.Values[c] - b.Values[c]) <= allowed)) {
                std::fprintf(stderr, "component %zu: %.17g above, %.17g below, allowed %.3e\n", c, a.Values[c],
                             b.Values[c], allowed);
            }
            RequireOf(std::fabs(a.Values[c] - b.Values[c]) <= allowed, below, "nothing jumps at an interface");
        }
    }
}

/// One other telling of the pavement for each input, since each is solved anew.
void RequireSameInOtherWords(const Problem& problem, const Solution& solution, ByteSource& source) {
    switch (source.Below(5)) {
        case 0: {
            Solution answer = solver::Solve(Reversed(problem), {1});
            std::reverse(answer.Points.begin(), answer.Points.end());
            RequireSame(problem, solution, answer, SameNumbers, "the order of loads and points does not matter");
            break;
        }
        case 1:
            RequireSame(problem, solution, solver::Solve(WithLoadsHalved(problem), {1}), SameNumbers,
                        "two halves of a load are the load");
            break;
        case 2:
            if (problem.Layers.size() > 1) {
                const std::size_t layer = source.Below(problem.Layers.size() - 1);
                RequireSame(problem, solution, solver::Solve(WithLayerCut(problem, layer), {1}), SameTelling,
                            "a layer cut into two of its material is the layer");
            }
            break;
        case 3: {
            const Turn turn{.RightAngles = source.Between(0, 3), .Mirrored = source.Flag()};
            const Solution answer = solver::Solve(Turned(problem, turn), {1});
            for (std::size_t p = 0; p < problem.Points.size(); ++p) {
                RequireSame(problem, p, solution.Points[p], TurnedBack(answer.Points[p].Values, turn),
                            answer.Points[p].Estimates, SameNumbers,
                            "a pavement that is turned or mirrored is the same");
            }
            break;
        }
        default:
            RequireContinuity(problem, solution);
            break;
    }
}

}  // namespace

const int LongestRun = 20;

void RunInput(std::string_view bytes) {
    ByteSource source(bytes);
    const SomePavement some = PavementOf(source);
    const Problem& problem = some.Problem;
    Problem judged = problem;
    RequireOf(solver::CheckProblem(judged).empty(), problem, "the pavement is a legal one");
    const Solution solution = solver::Solve(problem, {1});
    const Solution threads = solver::Solve(problem, {2});
    bool finite = true;
    for (std::size_t p = 0; p < problem.Points.size(); ++p) {
        const PointResult& one = solution.Points[p];
        const bool known = IsFinite(one);
        finite = finite && known;
        RequireOf(!known || (one.Values == threads.Points[p].Values && one.Estimates == threads.Points[p].Estimates),
                  problem, "the number of threads does not change a bit");
        RequireOf(some.Kind != Sizes::Realistic ||
                      std::all_of(one.Estimates.begin(), one.Estimates.end(),
                                  [](double estimate) { return estimate <= solver::PromisedError; }),
                  problem, "the answer of a road is as good as promised");
        RequireOf(known || std::all_of(one.Estimates.begin(), one.Estimates.end(),
                                       [](double estimate) { return std::isinf(estimate); }),
                  problem, "where there is no number the estimate says so");
    }
    RequireOf(finite || some.Kind == Sizes::AnyLegal, problem, "each value of a pavement is a finite number");
    if (finite && some.Kind != Sizes::AnyLegal) {
        RequireSurfaceTractions(problem, solution);
        RequireSameInOtherWords(problem, solution, source);
    }
}

}  // namespace zirvo::fuzz
