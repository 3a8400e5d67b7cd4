#include "families.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <numbers>

namespace zirvo::attack {

namespace {

using solver::Layer;
using solver::Load;
using solver::Point;
using solver::Problem;

bool Chance(Random& random, double share) {
    return Between(random, 0, 1) < share;
}

int Count(Random& random, int low, int high) {
    return std::uniform_int_distribution<int>(low, high)(random);
}

template <std::size_t N>
double OneOf(Random& random, const std::array<double, N>& values) {
    return values[std::uniform_int_distribution<std::size_t>(0, N - 1)(random)];
}

void AddRoad(Problem& problem, Random& random) {
    const int layers = Count(random, 2, 8);
    double modulus = LogBetween(random, 2000, 40000);
    for (int i = 0; i < layers; ++i) {
        const double slip = Chance(random, 0.3) ? Between(random, 0, 0.9) : 0;
        problem.Layers.push_back(
            {Rounded(modulus), Rounded(Between(random, 0.15, 0.5)), Rounded(LogBetween(random, 2, 60)), Rounded(slip)});
        modulus = Chance(random, 0.2) ? LogBetween(random, 20, 40000) : modulus * LogBetween(random, 0.08, 1);
        modulus = std::max(modulus, 10.0);
    }
}

void AddStack(Problem& problem, Random& random) {
    const int layers = Chance(random, 0.05) ? Count(random, 30, 100) : Count(random, 1, 12);
    for (int i = 0; i < layers; ++i) {
        problem.Layers.push_back({Rounded(LogBetween(random, 1, 1e5)),
                                  Chance(random, 0.4) ? 0.5 : Rounded(Between(random, 0.01, 0.5)),
                                  Rounded(LogBetween(random, 0.1, layers > 20 ? 10 : 200)),
                                  OneOf(random, std::array{0.0, 0.0, 0.5, 0.9, 0.99})});
    }
}

void AddExtremes(Problem& problem, Random& random) {
    const int layers = Count(random, 2, 6);
    for (int i = 0; i < layers; ++i) {
        problem.Layers.push_back(
            {Rounded(LogBetween(random, 1e-2, 1e6)), Chance(random, 0.5) ? 0.5 : Rounded(Between(random, 0.001, 0.5)),
             Rounded(LogBetween(random, 0.001, 300)), OneOf(random, std::array{0.0, 0.3, 0.99, 0.99})});
    }
}

/// Stiff plates with a soft film or a soft layer between them.
void AddFilms(Problem& problem, Random& random) {
    const double stiff = LogBetween(random, 1e3, 1e5);
    const int films = Count(random, 1, 3);
    for (int i = 0; i < films; ++i) {
        const double slip = Chance(random, 0.5) ? 0 : 0.99;
        problem.Layers.push_back({Rounded(stiff * LogBetween(random, 0.3, 3)), Rounded(Between(random, 0.1, 0.5)),
                                  Rounded(LogBetween(random, 1, 100)), Chance(random, 0.7) ? 0 : slip});
        const bool film = Chance(random, 0.7);
        problem.Layers.push_back({Rounded(stiff * LogBetween(random, 1e-8, 1e-2)), Chance(random, 0.8) ? 0.5 : 0.35,
                                  Rounded(film ? LogBetween(random, 0.005, 1) : LogBetween(random, 1, 30)), slip});
    }
    problem.Layers.push_back({Rounded(stiff * LogBetween(random, 0.01, 3)), 0.35, 0, 0});
}

void AddLoads(Family family, Problem& problem, Random& random) {
    const int loads = Chance(random, 0.5) ? 1 : Count(random, 2, 4);
    const bool large = family == Family::Extreme || family == Family::Films;
    const double first = Rounded(large ? LogBetween(random, 1, 300) : LogBetween(random, 5, 30));
    for (int i = 0; i < loads; ++i) {
        const double radius = i > 0 && Chance(random, 0.3) ? Rounded(first * Between(random, 0.5, 1.5)) : first;
        const double pressure = Rounded(LogBetween(random, 0.1, 2)) * std::numbers::pi * radius * radius;
        Load load{pressure,
                  radius,
                  i == 0 ? 0 : Rounded(Between(random, -150, 150)),
                  i == 0 ? 0 : Rounded(Between(random, -150, 150)),
                  0,
                  0};
        if (Chance(random, 0.4)) {
            load.Horizontal = pressure * Rounded(Between(random, -0.8, 0.8));
            load.Angle = Rounded(Between(random, -180, 180));
        }
        if (family == Family::Extreme && i > 0 && Chance(random, 0.5)) {
            load = problem.Loads.front();
            load.Vertical = -load.Vertical;
            load.X += 0.01;
        }
        problem.Loads.push_back(load);
    }
}

double TopOf(const Problem& problem, int layer) {
    double top = 0;
    for (int i = 0; i + 1 < layer; ++i) {
        top += problem.Layers[static_cast<std::size_t>(i)].Thickness;
    }
    return top;
}

Point RandomPoint(const Problem& problem, Random& random) {
    const auto count = static_cast<int>(problem.Layers.size());
    const Load& load =
        problem.Loads[static_cast<std::size_t>(Count(random, 0, static_cast<int>(problem.Loads.size()) - 1))];
    Point point;
    point.Layer = Count(random, 1, count);
    const double top = TopOf(problem, point.Layer);
    const double bottom = point.Layer == count ? top + LogBetween(random, 0.1, 300) : TopOf(problem, point.Layer + 1);
    switch (Count(random, 0, 3)) {
        case 0:
            point.Z = top;
            break;
        case 1:
            point.Z = bottom;
            break;
        case 2:
            point.Z = top + (bottom - top) * Between(random, 0, 1);
            break;
        default:
            point.Layer = 1;
            point.Z = Chance(random, 0.5) ? 0 : std::min(TopOf(problem, 2), LogBetween(random, 1e-3, 1));
            point.Z = count == 1 ? LogBetween(random, 1e-3, 100) : point.Z;
            break;
    }
    double r = 0;
    switch (Count(random, 0, 4)) {
        case 0:
            break;
        case 1:
            r = load.Radius * (1 + Between(random, -0.02, 0.02));
            break;
        case 2:
            r = load.Radius * Between(random, 0, 3);
            break;
        case 3:
            r = LogBetween(random, 0.1, 300);
            break;
        default:
            r = LogBetween(random, 300, 2000);
            break;
    }
    const double angle = Count(random, 0, 1) == 0 ? 0 : Between(random, -std::numbers::pi, std::numbers::pi);
    point.X = load.X + Rounded(r * std::cos(angle));
    point.Y = load.Y + Rounded(r * std::sin(angle));
    return point;
}

}  // namespace

std::string_view NameOf(Family family) {
    constexpr std::array<std::string_view, FamilyCount> Names = {"realistic", "difficult", "extreme", "films"};
    return Names[static_cast<std::size_t>(family)];
}

double Between(Random& random, double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(random);
}

double LogBetween(Random& random, double low, double high) {
    return std::exp(Between(random, std::log(low), std::log(high)));
}

double Rounded(double x) {
    char text[32];
    std::snprintf(text, sizeof text, "%.3g", x);
    return std::atof(text);
}

double NodesFor(const Problem& problem, const Point& point) {
    double most = 0;
    for (const Load& load : problem.Loads) {
        const double r = std::hypot(point.X - load.X, point.Y - load.Y);
        const double gap = std::fabs(r - load.Radius);
        if (point.Z == 0 && gap < 1e-5 * load.Radius) {
            return HUGE_VAL;
        }
        const bool one = problem.Layers.size() == 1;
        const double ze = point.Layer == 1 ? 2 * problem.Layers[0].Thickness - point.Z : point.Z;
        const double end = std::min(70 / ze, 408 / std::max(gap, 1e-9) * 1.5);
        most = std::max(most, one ? 0 : end * (r + load.Radius) * 20 / 16);
    }
    return most + 700;
}

Problem RandomProblem(Family family, Random& random) {
    Problem problem;
    switch (family) {
        case Family::Realistic:
            AddRoad(problem, random);
            break;
        case Family::Difficult:
            AddStack(problem, random);
            break;
        case Family::Extreme:
            AddExtremes(problem, random);
            break;
        case Family::Films:
            AddFilms(problem, random);
            break;
    }
    AddLoads(family, problem, random);
    const int points = Count(random, 20, 60);
    for (int tries = 0; tries < 4 * points && static_cast<int>(problem.Points.size()) < points; ++tries) {
        Point point = RandomPoint(problem, random);
        if (!problem.Points.empty() &&
            Chance(random, 0.85)) {  // below one that is there: the reference shares its work
            point.X = problem.Points.back().X;
            point.Y = problem.Points.back().Y;
        }
        if (NodesFor(problem, point) <= MostNodes) {
            problem.Points.push_back(point);
        }
    }
    return problem;
}

void AddWheels(Problem& problem, Random& random) {
    constexpr std::size_t PointsLeft = 10;
    const int wheels = Count(random, 30, 60);
    const double spread = LogBetween(random, 1.05, 3);
    const Load first = problem.Loads.front();
    for (int i = 0; i < wheels; ++i) {
        Load load = first;
        load.Radius = Rounded(first.Radius * LogBetween(random, 1, spread)) + 1e-3 * i;  // never two alike
        load.X = Rounded(Between(random, -300, 300));
        load.Y = Rounded(Between(random, -300, 300));
        load.Vertical = first.Vertical * Between(random, 0.5, 1.5);
        if (Chance(random, 0.4)) {
            load.Horizontal = load.Vertical * Rounded(Between(random, -0.8, 0.8));
            load.Angle = Rounded(Between(random, -180, 180));
        }
        problem.Loads.push_back(load);
    }
    std::erase_if(problem.Points, [&](const Point& point) { return NodesFor(problem, point) > MostNodes; });
    problem.Points.resize(std::min(problem.Points.size(), PointsLeft));
}

void SetEdgePoints(Problem& problem, Random& random) {
    problem.Loads.resize(std::min<std::size_t>(problem.Loads.size(), 2));
    double& skin = problem.Layers.front().Thickness;
    skin = Rounded(problem.Loads.front().Radius * LogBetween(random, 0.0015, 0.02));
    if (problem.Layers.size() == 1) {
        problem.Layers.push_back(problem.Layers.front());
    }
    problem.Points.clear();
    for (int place = 0; place < 2; ++place) {
        const Load& load = problem.Loads[random() % problem.Loads.size()];
        const double share = Chance(random, 0.4) ? 0 : LogBetween(random, 1e-9, 0.09);
        const double r = load.Radius * (Chance(random, 0.5) ? 1 + share : 1 - share);
        const bool turned = Chance(random, 0.5);
        const double x = load.X + (turned ? 0.6 * r : r);
        const double y = load.Y + (turned ? 0.8 * r : 0);
        for (const Point& point :
             {Point{1, x, y, skin}, Point{2, x, y, skin}, Point{1, x, y, skin * Between(random, 0.3, 1)},
              Point{2, x, y, skin * (1 + Between(random, 0, 1))}}) {
            const double bottom = problem.Layers.size() == 2 ? HUGE_VAL : TopOf(problem, 3);
            if (point.Z <= bottom && NodesFor(problem, point) <= MostEdgeNodes) {
                problem.Points.push_back(point);
            }
        }
    }
}

std::vector<Point> CrowdFor(const Problem& problem, Random& random) {
    constexpr int LinePoints = 700;
    constexpr int DepthPoints = 60;
    std::vector<Point> crowd;
    const auto count = static_cast<int>(problem.Points.size());
    for (int line = 0; line < 2; ++line) {
        const Point& at = problem.Points[static_cast<std::size_t>(Count(random, 0, count - 1))];
        for (int i = 0; i < LinePoints; ++i) {
            crowd.push_back({at.Layer, at.X + Between(random, -100, 100), at.Y, at.Z});
        }
    }
    const Point& first = problem.Points[static_cast<std::size_t>(Count(random, 0, count - 1))];
    for (const Point& other : problem.Points) {
        if (other.Layer != first.Layer || other.Z == first.Z) {
            continue;
        }
        for (int i = 0; i < DepthPoints; ++i) {
            crowd.push_back({first.Layer, first.X, first.Y, first.Z + (other.Z - first.Z) * Between(random, 0, 1)});
        }
        break;
    }
    return crowd;
}

}  // namespace zirvo::attack
