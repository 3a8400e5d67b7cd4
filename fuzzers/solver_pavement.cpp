// Pavements of bytes, see solver_pavement.h.
#include "solver_pavement.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace zirvo::fuzz {
namespace {

/// Exponents of ten that each size lies between, by the kind of pavement.
struct Range {
    double Low;
    double High;
};
struct Ranges {
    Range Modulus, Thickness, Radius, Force, Distance;
};
constexpr std::array<Ranges, 3> RangesOf{
    Ranges{{1.5, 4.5}, {0, 2}, {0.7, 1.6}, {1, 3}, {0, 2.5}},
    Ranges{{-1, 7}, {-3, 4}, {-1, 2.5}, {-3, 6}, {-2, 5}},
    Ranges{{-30, 30}, {-30, 20}, {-20, 20}, {-30, 30}, {-30, 15}},
};

double Size(ByteSource& source, Range range) {
    return std::pow(10.0, range.Low + (range.High - range.Low) * source.Share());
}

double Signed(ByteSource& source, Range range) {
    const int kind = source.Between(0, 4);
    return kind == 0 ? 0 : kind < 3 ? Size(source, range) : -Size(source, range);
}

double PoissonRatio(ByteSource& source) {
    constexpr std::array common{0.5, 0.35, 0.4, 0.49999, 1e-6};
    const std::size_t choice = source.Below(common.size() + 2);
    return choice < common.size() ? common[choice] : 0.01 + 0.49 * source.Share();
}

double SlipRate(ByteSource& source) {
    constexpr std::array common{0.0, 0.0, 0.99, 0.5, 1e-9};
    const std::size_t choice = source.Below(common.size() + 1);
    return choice < common.size() ? common[choice] : 0.99 * source.Share();
}

solver::Load SomeLoad(ByteSource& source, const Ranges& ranges) {
    solver::Load load;
    load.Vertical = Signed(source, ranges.Force);
    load.Radius = Size(source, ranges.Radius);
    load.X = Signed(source, ranges.Distance);
    load.Y = Signed(source, ranges.Distance);
    load.Horizontal = Signed(source, ranges.Force);
    load.Angle = source.Between(-4, 8) * 45 + (source.Flag() ? 17.3 * source.Share() : 0);
    if (load.Vertical == 0 && load.Horizontal == 0) {
        load.Vertical = Size(source, ranges.Force);
    }
    return load;
}

solver::Point SomePoint(ByteSource& source, const solver::Problem& problem, const Ranges& ranges) {
    solver::Point point;
    const std::size_t layer = source.Below(problem.Layers.size());
    point.Layer = static_cast<int>(layer) + 1;
    const double top = TopOf(problem, layer);
    const bool last = layer + 1 == problem.Layers.size();
    const double height = last ? Size(source, ranges.Thickness) : problem.Layers[layer].Thickness;
    const int place = source.Between(0, 3);
    point.Z = place == 0 || (place == 1 && last) ? top : place == 1 ? top + height : top + height * source.Share();
    if (!last) {
        point.Z = std::min(point.Z, top + height);
    }
    const solver::Load& load = problem.Loads[source.Below(problem.Loads.size())];
    switch (source.Between(0, 3)) {
        case 0:
            point.X = load.X;
            point.Y = load.Y;
            break;
        case 1:
            point.X = load.X + load.Radius;
            point.Y = load.Y;
            break;
        case 2:
            point.X = load.X + 2 * load.Radius * source.Share();
            point.Y = load.Y - 2 * load.Radius * source.Share();
            break;
        default:
            point.X = Signed(source, ranges.Distance);
            point.Y = Signed(source, ranges.Distance);
            break;
    }
    return point;
}

}  // namespace

SomePavement PavementOf(ByteSource& source) {
    SomePavement some;
    some.Kind = static_cast<Sizes>(source.Below(3));
    const Ranges& ranges = RangesOf[static_cast<std::size_t>(some.Kind)];
    solver::Problem& problem = some.Problem;
    const int layers = source.Between(1, 6);
    for (int i = 1; i <= layers; ++i) {
        solver::Layer layer{Size(source, ranges.Modulus), PoissonRatio(source), 0, 0};
        if (i < layers) {
            layer.Thickness = Size(source, ranges.Thickness);
            layer.SlipRate = SlipRate(source);
        }
        problem.Layers.push_back(layer);
    }
    for (int i = source.Between(1, 4); i > 0; --i) {
        problem.Loads.push_back(SomeLoad(source, ranges));
    }
    for (int i = source.Between(1, 6); i > 0; --i) {
        problem.Points.push_back(SomePoint(source, problem, ranges));
    }
    return some;
}

double TopOf(const solver::Problem& problem, std::size_t layer) {
    double top = 0;
    for (std::size_t i = 0; i < layer; ++i) {
        top += problem.Layers[i].Thickness;
    }
    return top;
}

solver::Problem WithLayerCut(const solver::Problem& problem, std::size_t layer) {
    solver::Problem cut = problem;
    const double half = problem.Layers[layer].Thickness / 2;
    solver::Layer upper = problem.Layers[layer];
    upper.Thickness = half;
    upper.SlipRate = 0;
    cut.Layers[layer].Thickness = half;
    cut.Layers.insert(cut.Layers.begin() + static_cast<std::ptrdiff_t>(layer), upper);
    const double middle = TopOf(problem, layer) + half;
    for (solver::Point& point : cut.Points) {
        const auto index = static_cast<std::size_t>(point.Layer) - 1;
        if (index > layer || (index == layer && point.Z > middle)) {
            ++point.Layer;
            // The sum of the halves may be another double than the whole was.
            const double top = TopOf(cut, static_cast<std::size_t>(point.Layer) - 1);
            point.Z = std::max(point.Z, top);
            if (static_cast<std::size_t>(point.Layer) < cut.Layers.size()) {
                point.Z = std::min(point.Z, top + cut.Layers[static_cast<std::size_t>(point.Layer) - 1].Thickness);
            }
        }
    }
    return cut;
}

solver::Problem Reversed(solver::Problem problem) {
    std::reverse(problem.Loads.begin(), problem.Loads.end());
    std::reverse(problem.Points.begin(), problem.Points.end());
    return problem;
}

solver::Problem WithLoadsHalved(solver::Problem problem) {
    for (solver::Load& load : problem.Loads) {
        load.Vertical /= 2;
        load.Horizontal /= 2;
    }
    const std::vector<solver::Load> halves = problem.Loads;
    problem.Loads.insert(problem.Loads.end(), halves.begin(), halves.end());
    return problem;
}

solver::Problem Turned(solver::Problem problem, Turn turn) {
    const auto place = [turn](double& x, double& y) {
        y = turn.Mirrored ? -y : y;
        for (int i = 0; i < turn.RightAngles; ++i) {
            x = -std::exchange(y, x);
        }
    };
    for (solver::Load& load : problem.Loads) {
        place(load.X, load.Y);
        load.Angle = (turn.Mirrored ? -load.Angle : load.Angle) + 90 * turn.RightAngles;
    }
    for (solver::Point& point : problem.Points) {
        place(point.X, point.Y);
    }
    return problem;
}

std::array<double, solver::ComponentCount> TurnedBack(std::array<double, solver::ComponentCount> v, Turn turn) {
    using namespace solver;
    for (int i = 0; i < turn.RightAngles; ++i) {  // x of before is y of now, y of before is -x of now
        std::swap(v[SIGx], v[SIGy]);
        std::swap(v[EPSx], v[EPSy]);
        v[TAUxy] = -v[TAUxy];
        v[GAMxy] = -v[GAMxy];
        v[U] = std::exchange(v[V], -v[U]);
        v[TAUzx] = std::exchange(v[TAUyz], -v[TAUzx]);
        v[GAMzx] = std::exchange(v[GAMyz], -v[GAMzx]);
    }
    if (turn.Mirrored) {
        for (const std::size_t c : std::initializer_list<std::size_t>{V, TAUxy, TAUyz, GAMxy, GAMyz}) {
            v[c] = -v[c];
        }
    }
    return v;
}

}  // namespace zirvo::fuzz
