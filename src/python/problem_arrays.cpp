// Arrays of the Python module, see problem_arrays.h.
#include "python/problem_arrays.h"

#include <algorithm>
#include <cmath>

#include "solver/check_problem.h"

namespace zirvo::python {
namespace {

namespace py = pybind11;

void RequireShape(const Rows& rows, const char* name, py::ssize_t columns, py::ssize_t fewer, const char* meaning) {
    const bool good = rows.ndim() == 2 && (rows.shape(1) == columns || rows.shape(1) == fewer);
    if (good) {
        return;
    }
    std::string shape;
    for (py::ssize_t i = 0; i < rows.ndim(); ++i) {
        shape.append(i == 0 ? "" : ", ").append(std::to_string(rows.shape(i)));
    }
    throw Refused{std::string(name) + ": must be rows of " + meaning + ", not an array of shape (" + shape + ")", {}};
}

int LayerNumberOf(double number, py::ssize_t row) {
    if (!(std::floor(number) == number && std::fabs(number) <= 1e6)) {
        throw Refused{"point " + std::to_string(row + 1) + ", LayerNumber: is no whole number", {}};
    }
    return static_cast<int>(number);
}

}  // namespace

solver::Problem ProblemOf(const Rows& layers, const Rows& loads, const Rows& points) {
    RequireShape(layers, "layers", 4, 4, "modulus, Poisson ratio, thickness, slip rate");
    RequireShape(loads, "loads", 6, 4, "vertical, radius, x, y[, horizontal, angle]");
    RequireShape(points, "points", 4, 4, "layer, x, y, z");
    solver::Problem problem;
    problem.Layers.reserve(static_cast<std::size_t>(layers.shape(0)));
    const auto l = layers.unchecked<2>();
    for (py::ssize_t i = 0; i < l.shape(0); ++i) {
        const bool last = i + 1 == l.shape(0);
        problem.Layers.push_back({l(i, 0), l(i, 1), last ? 0 : l(i, 2), last ? 0 : l(i, 3)});
    }
    const auto w = loads.unchecked<2>();
    const bool horizontal = w.shape(1) == 6;
    for (py::ssize_t i = 0; i < w.shape(0); ++i) {
        problem.Loads.push_back(
            {w(i, 0), w(i, 1), w(i, 2), w(i, 3), horizontal ? w(i, 4) : 0, horizontal ? w(i, 5) : 0});
    }
    const auto p = points.unchecked<2>();
    problem.Points.reserve(static_cast<std::size_t>(p.shape(0)));
    for (py::ssize_t i = 0; i < p.shape(0); ++i) {
        problem.Points.push_back({LayerNumberOf(p(i, 0), i), p(i, 1), p(i, 2), p(i, 3)});
    }
    return problem;
}

void RequireGood(solver::Problem& problem) {
    const std::vector<solver::ProblemFault> faults = solver::CheckProblem(problem);
    if (faults.empty()) {
        return;
    }
    Refused refused;
    for (const solver::ProblemFault& fault : faults) {
        refused.Faults.push_back(fault.Text());
    }
    refused.Message = refused.Faults.front();
    if (faults.size() > 1) {
        refused.Message += " (and " + std::to_string(faults.size() - 1) + " more)";
    }
    throw refused;
}

void Finish(solver::Solution& solution, solver::UnitSystem units) {
    for (std::size_t i = 0; i < solution.Points.size(); ++i) {
        auto& values = solution.Points[i].Values;
        values = solver::ToOutputUnits(values, units);
        const auto bad = std::find_if_not(values.begin(), values.end(), [](double v) { return std::isfinite(v); });
        if (bad != values.end()) {
            throw Refused{"point " + std::to_string(i + 1) + ", " +
                              std::string(solver::ComponentNames[static_cast<std::size_t>(bad - values.begin())]) +
                              ": is no finite number: such numbers are no pavement",
                          {}};
        }
    }
}

py::tuple ArraysOf(const solver::Solution& solution) {
    const auto count = static_cast<py::ssize_t>(solution.Points.size());
    py::array_t<double> values({count, py::ssize_t{solver::ComponentCount}});
    py::array_t<double> estimates({count, py::ssize_t{3}});
    py::array_t<bool> edges(count);
    double* value = values.mutable_data();
    double* estimate = estimates.mutable_data();
    bool* edge = edges.mutable_data();
    for (const solver::PointResult& point : solution.Points) {
        value = std::transform(point.Values.begin(), point.Values.end(), value, [](double v) { return v + 0.0; });
        estimate = std::copy(point.Estimates.begin(), point.Estimates.end(), estimate);
        *edge++ = point.OnLoadEdge;
    }
    return py::make_tuple(std::move(values), std::move(estimates), std::move(edges));
}

solver::UnitSystem UnitsOf(int number) {
    const auto units = solver::UnitSystemOf(number);
    if (!units) {
        throw Refused{"units " + std::to_string(number) + ": must be 1, 2 or 3", {}};
    }
    return *units;
}

}  // namespace zirvo::python
