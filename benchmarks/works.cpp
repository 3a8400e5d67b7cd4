#include "works.h"

#include <cmath>
#include <random>

namespace zirvo::bench {

namespace {

/// The layer in which a depth lies; an interface belongs to the layer above it.
int LayerAt(const solver::Problem& problem, double z) {
    double bottom = 0;
    for (std::size_t i = 0; i + 1 < problem.Layers.size(); ++i) {
        bottom += problem.Layers[i].Thickness;
        if (z <= bottom + 1e-9) {
            return static_cast<int>(i) + 1;
        }
    }
    return static_cast<int>(problem.Layers.size());
}

void AddPoint(solver::Problem& problem, double x, double y, double z) {
    problem.Points.push_back({LayerAt(problem, z), x, y, z});
}

}  // namespace

solver::Problem RoadWork() {
    solver::Problem problem;
    problem.Layers = {{5000, 0.35, 15, 0}, {300, 0.35, 30, 0}, {50, 0.40, 0, 0}};
    problem.Loads = {{490, 15, 0, 0, 0, 0}};
    for (const double z : {0.0, 7.5, 15.0, 30.0, 45.0}) {
        for (int i = 0; i < 20; ++i) {
            AddPoint(problem, 5.0 * i, 0, z);
        }
    }
    return problem;
}

solver::Problem DualWheelWork() {
    solver::Problem problem;
    problem.Layers = {
        {5000, 0.35, 5, 0}, {3000, 0.35, 10, 0}, {600, 0.35, 20, 0}, {250, 0.35, 30, 0}, {60, 0.40, 0, 0}};
    for (const double x : {-106.0, -74.0, 74.0, 106.0}) {
        for (const double y : {-66.0, 66.0}) {
            problem.Loads.push_back({245, 11, x, y, 0, 0});
        }
    }
    for (int k = 0; k < 10; ++k) {
        for (int i = 0; i < 100; ++i) {
            AddPoint(problem, -160 + 320.0 * i / 99, 66, 10.0 * k);
        }
    }
    return problem;
}

solver::Problem SmallStudyWork() {
    solver::Problem problem;
    problem.Layers = {{5000, 0.35, 15, 0}, {300, 0.35, 30, 0}, {50, 0.40, 0, 0}};
    problem.Loads = {{490, 15, 0, 0, 0, 0}};
    problem.Points = {{1, 0, 0, 15}, {3, 0, 0, 45}};
    return problem;
}

solver::Problem WheelStudyWork() {
    solver::Problem problem = DualWheelWork();
    problem.Points.clear();
    for (const double x : {-106.0, -90.0, -74.0, 0.0, 90.0}) {
        problem.Points.push_back({2, x, 66, 15});
        problem.Points.push_back({5, x, 66, 65});
    }
    return problem;
}

solver::Problem GearWork() {
    solver::Problem problem;
    for (int i = 0; i < 19; ++i) {
        problem.Layers.push_back({5000 * std::pow(0.01, i / 19.0), 0.35, 5, 0});
    }
    problem.Layers.push_back({50, 0.35, 0, 0});
    for (const double x : {-120.0, -40.0, 40.0, 120.0}) {
        for (const double y : {-240.0, -120.0, 0.0, 120.0, 240.0}) {
            problem.Loads.push_back({245, 11, x, y, 0, 0});
        }
    }
    for (int k = 0; k < 100; ++k) {
        for (int i = 0; i < 100; ++i) {
            AddPoint(problem, -200 + 400.0 * i / 99, 0, 1.5 * k);
        }
    }
    return problem;
}

solver::Problem LimitWork() {
    solver::Problem problem;
    for (int i = 0; i < 99; ++i) {
        problem.Layers.push_back({8000 * std::pow(0.01, i / 99.0), 0.35, 2, i % 3 == 2 ? 0.5 : 0.0});
    }
    problem.Layers.push_back({50, 0.35, 0, 0});
    for (int i = 0; i < 100; ++i) {
        problem.Loads.push_back(
            {250, 8 + 0.5 * (i % 20), -300 + 600 * (i % 10) / 9.0, -300 + 600 * (i / 10) / 9.0, 50, 3.6 * i});
    }
    for (int j = 0; j < 100; ++j) {
        for (int k = 0; k < 100; ++k) {
            AddPoint(problem, -290 + 580 * (j % 10) / 9.0, -290 + 580 * (j / 10) / 9.0, 2.0 * k);
        }
    }
    return problem;
}

solver::Problem HarshLimitWork() {
    solver::Problem problem = LimitWork();
    std::mt19937 random(20261122);
    std::uniform_real_distribution<double> plane(-290, 290);
    std::uniform_real_distribution<double> depth(0, 198);
    for (std::size_t i = 0; i < problem.Loads.size(); ++i) {
        problem.Loads[i].Radius = 8 + 0.1 * static_cast<double>(i);
    }
    problem.Points.clear();
    for (int i = 0; i < 10000; ++i) {
        const double x = plane(random);
        const double y = plane(random);
        AddPoint(problem, x, y, depth(random));
    }
    return problem;
}

solver::Problem FilmsWork(double slip) {
    solver::Problem problem;
    std::mt19937 random(20261122);
    std::uniform_real_distribution<double> share(0, 1);
    std::uniform_real_distribution<double> plane(-290, 290);
    double bottom = 0;
    for (int i = 0; i < 99; ++i) {
        const bool film = i % 2 == 1;
        const double modulus = film ? 1e-3 * (1 + share(random)) : 1e5 * (1 - 0.5 * share(random));
        problem.Layers.push_back({modulus, film ? 0.5 : 0.35, film ? 0.2 : 2.0, i % 3 == 2 ? slip : 0});
        bottom += problem.Layers.back().Thickness;
    }
    problem.Layers.push_back({50, 0.35, 0, 0});
    for (int i = 0; i < 100; ++i) {
        problem.Loads.push_back(
            {250, 8 + 0.1 * i, -300 + 600 * (i % 10) / 9.0, -300 + 600 * (i / 10) / 9.0, 50, 3.6 * i});
    }
    for (int i = 0; i < 100; ++i) {
        const double x = plane(random);
        const double y = plane(random);
        AddPoint(problem, x, y, bottom * share(random));
    }
    return problem;
}

solver::Problem HarshFilmsWork() {
    solver::Problem problem = HarshLimitWork();
    for (std::size_t i = 0; i + 1 < problem.Layers.size(); ++i) {
        problem.Layers[i].Modulus = i % 2 == 1 ? 1e-3 : 1e5;
    }
    return problem;
}

solver::Problem ScaledWork(int layers, int loads, int points, int depths, double slip) {
    solver::Problem problem;
    for (int i = 0; i + 1 < layers; ++i) {
        problem.Layers.push_back(
            {5000 * std::pow(0.01, static_cast<double>(i) / layers), 0.35, 90.0 / layers, i % 2 == 0 ? slip : 0});
    }
    problem.Layers.push_back({50, 0.35, 0, 0});
    std::mt19937 random(20261121);
    std::uniform_real_distribution<double> plane(-200, 200);
    for (int i = 0; i < loads; ++i) {
        problem.Loads.push_back({245, 11, plane(random), plane(random), 0, 0});
    }
    for (int i = 0; i < points; ++i) {
        AddPoint(problem, plane(random), plane(random), 120.0 * (i % depths) / depths);
    }
    return problem;
}

solver::Problem ScatteredWork() {
    solver::Problem problem;
    problem.Layers = {{5000, 0.35, 1, 0}, {1000, 0.35, 20, 0}, {200, 0.35, 30, 0}, {50, 0.4, 0, 0}};
    std::mt19937 random(20261121);
    std::uniform_real_distribution<double> plane(-50, 50);
    std::uniform_real_distribution<double> depth(0, 1);
    for (int i = 0; i < 20; ++i) {
        problem.Loads.push_back({245, 10.0 + i % 4, plane(random), plane(random), 25, 18.0 * i});
    }
    for (int i = 0; i < 10000; ++i) {
        problem.Points.push_back({1, plane(random), plane(random), depth(random)});
    }
    return problem;
}

}  // namespace zirvo::bench
