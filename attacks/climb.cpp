#include "climb.h"

#include <algorithm>
#include <cmath>

namespace zirvo::attack {

namespace {

using solver::Layer;
using solver::Load;
using solver::Point;
using solver::Problem;

constexpr double Contrast = 1e8;

GroupError WorstOf(const std::vector<GroupError>& errors, Goal goal) {
    GroupError worst;
    for (const GroupError& e : errors) {
        const bool larger = goal == Goal::Error ? e.Error > worst.Error : e.Ratio() > worst.Ratio();
        worst = larger ? e : worst;
    }
    return worst;
}

double Height(const GroupError& e, Goal goal) {
    return goal == Goal::Error ? e.Error : e.Ratio();
}

/// The point where it was in its layer, after thicknesses have changed.
void KeepInLayer(const Problem& before, Problem& after) {
    Point& point = after.Points.front();
    double topBefore = 0;
    double top = 0;
    const auto layer = static_cast<std::size_t>(point.Layer - 1);
    for (std::size_t i = 0; i < layer; ++i) {
        topBefore += before.Layers[i].Thickness;
        top += after.Layers[i].Thickness;
    }
    const double share = layer + 1 < after.Layers.size() ? (point.Z - topBefore) / before.Layers[layer].Thickness : 0;
    const double inside =
        layer + 1 < after.Layers.size() ? share * after.Layers[layer].Thickness : std::max(0.0, point.Z - topBefore);
    point.Z = share >= 1 ? top + after.Layers[layer].Thickness : top + inside;
}

/// A change that lowers the number of layers, or of loads.
bool Drop(Problem& problem, Random& random) {
    const auto layers = problem.Layers.size();
    const auto loads = problem.Loads.size();
    if (loads > 1 && Between(random, 0, 1) < 0.5) {
        problem.Loads.erase(problem.Loads.begin() + static_cast<std::ptrdiff_t>(random() % loads));
        return true;
    }
    const auto drop = static_cast<std::size_t>(random() % layers);
    Point& point = problem.Points.front();
    const auto own = static_cast<std::size_t>(point.Layer - 1);
    if (layers < 3 || drop == own || drop + 1 == layers) {
        return false;
    }
    if (drop < own) {
        point.Z -= problem.Layers[drop].Thickness;
        --point.Layer;
    }
    problem.Layers.erase(problem.Layers.begin() + static_cast<std::ptrdiff_t>(drop));
    return true;
}

Problem Changed(const Problem& start, Random& random) {
    Problem problem = start;
    const double factor = LogBetween(random, 0.3, 3.3);
    const auto layer = static_cast<std::size_t>(random() % problem.Layers.size());
    Layer& at = problem.Layers[layer];
    Load& load = problem.Loads[static_cast<std::size_t>(random() % problem.Loads.size())];
    Point& point = problem.Points.front();
    switch (random() % 9) {
        case 0:
        case 1:
            at.Modulus = Rounded(at.Modulus * factor);
            break;
        case 2:
        case 3:
            at.Thickness = Rounded(std::clamp(at.Thickness * factor, 1e-3, 1e3));
            break;
        case 4:
            at.PoissonRatio = Between(random, 0, 1) < 0.5 ? 0.5 : Rounded(Between(random, 0.01, 0.5));
            break;
        case 5:
            at.SlipRate = Between(random, 0, 1) < 0.5 ? 0.99 : Rounded(Between(random, 0, 0.99));
            break;
        case 6:
            load.Vertical *= factor * factor;
            load.Radius = Rounded(std::clamp(load.Radius * factor, 0.1, 300.0));
            break;
        case 7:
            point.X = Rounded(point.X * factor);
            break;
        default:
            if (!Drop(problem, random)) {
                point.Y = Rounded(point.Y * factor);
            }
            return problem;
    }
    KeepInLayer(start, problem);
    return problem;
}

bool Legal(const Problem& problem, double contrast) {
    const auto [soft, stiff] =
        std::minmax_element(problem.Layers.begin(), problem.Layers.end(),
                            [](const Layer& a, const Layer& b) { return a.Modulus < b.Modulus; });
    return stiff->Modulus <= contrast * soft->Modulus && NodesFor(problem, problem.Points.front()) <= MostNodes &&
           std::fabs(problem.Points.front().X) < 1e5;
}

}  // namespace

Climbed Climb(const solver::Engine& engine, const Problem& start, std::size_t point, Goal goal, int changes,
              Random& random, Tally& tally, double promise) {
    Climbed best;
    best.Problem = start;
    best.Problem.Points = {start.Points[point]};
    best.Worst = WorstOf(Measure(engine, best.Problem), goal);
    for (int i = 0; i < changes; ++i) {
        const Problem next = Changed(best.Problem, random);
        if (!Legal(next, Contrast)) {
            continue;
        }
        const auto errors = Measure(engine, next);
        tally.Add(errors, promise);
        const GroupError worst = WorstOf(errors, goal);
        if (Height(worst, goal) > Height(best.Worst, goal)) {
            best.Problem = next;
            best.Worst = worst;
            ++best.Steps;
        }
    }
    return best;
}

}  // namespace zirvo::attack
