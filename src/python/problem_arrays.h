// Problems from arrays and results into arrays. Callers: the functions of the Python module.
#pragma once
#include <pybind11/numpy.h>

#include <string>
#include <vector>

#include "solver/io/unit_systems.h"
#include "solver/problem.h"

namespace zirvo::python {

/// Doubles in rows, converted from whatever numpy can make them of.
using Rows = pybind11::array_t<double, pybind11::array::c_style | pybind11::array::forcecast>;

/// What is wrong with arguments or files: zirvo.Error in Python, with the list of all that is wrong.
struct Refused {
    std::string Message;
    std::vector<std::string> Faults;
};

/// Layers of 4 columns (the last row's thickness and slip rate are not looked at), loads of 4 or 6, points of 4, with
/// the numbers as they are typed. Refused where an array has another shape or a layer number is no whole number.
solver::Problem ProblemOf(const Rows& layers, const Rows& loads, const Rows& points);

/// Judges the problem and brings its depths onto boundaries. Refused with the faults in the words of the check.
void RequireGood(solver::Problem& problem);

/// Brings the solution into the units of the output. Refused where a value is no finite number.
void Finish(solver::Solution& solution, solver::UnitSystem units);

/// (values[n, 15], estimates[n, 3], on_load_edge[n]).
pybind11::tuple ArraysOf(const solver::Solution& solution);

/// The unit system of the number 1, 2 or 3; refused otherwise.
solver::UnitSystem UnitsOf(int number);

}  // namespace zirvo::python
