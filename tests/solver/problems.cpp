#include "solver/problems.h"

#include <algorithm>
#include <cmath>

namespace zirvo::solver {

namespace plain {
extern const Engine TheEngine;
}

Problem ClassicRoad(double slip) {
    Problem problem;
    problem.Layers = {{5000, 0.35, 15, slip}, {300, 0.35, 30, slip}, {50, 0.40, 0, 0}};
    return problem;
}

Load Wheel() {
    return {490, 15, 0, 0, 0, 0};
}

PointResult At(Problem problem, const Point& point) {
    problem.Points = {point};
    return Solve(problem, {1}).Points[0];
}

std::vector<const Engine*> AllEngines() {
    const Engine* runnable[4];
    const int count = RunnableEngines(runnable);
    std::vector<const Engine*> engines(runnable, runnable + count);
    engines.push_back(&plain::TheEngine);
    return engines;
}

double Disagreement(const Problem& problem, std::size_t point, const PointResult& a, const PointResult& b) {
    double pressure = 0;
    double radius = 0;
    for (const Load& load : problem.Loads) {
        const double area = 3.14159265358979323846 * load.Radius * load.Radius;
        pressure = std::max({pressure, std::fabs(load.Vertical) / area, std::fabs(load.Horizontal) / area});
        radius = std::max(radius, load.Radius);
    }
    const double modulus = problem.Layers[static_cast<std::size_t>(problem.Points[point].Layer - 1)].Modulus;
    const double unit[3] = {pressure * radius / modulus, pressure, pressure / modulus};
    constexpr std::size_t First[4] = {U, SIGx, EPSx, ComponentCount};
    double worst = 0;
    for (std::size_t g = 0; g < 3; ++g) {
        double largest = 0;
        double off = 0;
        for (std::size_t c = First[g]; c < First[g + 1]; ++c) {
            largest = std::max(largest, std::fabs(a.Values[c]));
            const double difference = std::fabs(a.Values[c] - b.Values[c]);
            off = difference <= off ? off : difference;  // NaN stays
        }
        const double share = off / (1e-9 * largest + 1e-13 * unit[g]);
        worst = share <= worst ? worst : share;
    }
    return worst;
}

}  // namespace zirvo::solver
