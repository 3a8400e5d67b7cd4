// The Python module's half in C++: what zirvo/__init__.py builds on.
#include <pybind11/functional.h>
#include <pybind11/pybind11.h>
#include <pybind11/stl.h>

#include <chrono>
#include <new>

#include "design/gears.h"
#include "design/lives.h"
#include "python/files.h"
#include "python/problem_arrays.h"
#include "python/solve_many.h"
#include "solver/solve.h"
#include "text/version_stamp.h"

namespace {

namespace py = pybind11;
using namespace zirvo;
using namespace zirvo::python;

py::tuple Solve(const Rows& layers, const Rows& loads, const Rows& points, int units, int threads) {
    solver::Problem problem = ProblemOf(layers, loads, points);
    const solver::UnitSystem system = UnitsOf(units);
    solver::Solution solution;
    {
        const py::gil_scoped_release others;
        RequireGood(problem);
        solution = solver::Solve(solver::ToConsistentUnits(std::move(problem), system), {.Threads = threads});
        Finish(solution, system);
    }
    return ArraysOf(solution);
}

/// How long the solver's own call takes, without anything of Python [s]: for benchmarks/python_overhead.py.
double SolverSeconds(const Rows& layers, const Rows& loads, const Rows& points, int units, int calls) {
    solver::Problem problem = ProblemOf(layers, loads, points);
    RequireGood(problem);
    problem = solver::ToConsistentUnits(std::move(problem), UnitsOf(units));
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < calls; ++i) {
        if (solver::Solve(problem, {.Threads = 1}).Points.size() != problem.Points.size()) {
            throw std::bad_alloc();
        }
    }
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count() / calls;
}

/// One entry for each pavement: the arrays of its solution, or the text of what is wrong.
py::list SolveAll(const py::list& pavements, int units, int threads, const py::object& progress) {
    const solver::UnitSystem system = UnitsOf(units);
    std::vector<solver::Problem> problems(pavements.size());
    std::vector<std::string> refused(pavements.size());
    for (std::size_t i = 0; i < pavements.size(); ++i) {
        const auto parts = pavements[i].cast<py::tuple>();
        try {
            problems[i] = ProblemOf(parts[0].cast<Rows>(), parts[1].cast<Rows>(), parts[2].cast<Rows>());
            RequireGood(problems[i]);
        } catch (const Refused& reason) {
            problems[i] = {};
            refused[i] = reason.Message;
        }
    }
    const auto tell = [&](std::size_t done) {
        const py::gil_scoped_acquire own;
        if (PyErr_CheckSignals() != 0) {  // Ctrl-C
            throw py::error_already_set();
        }
        if (!progress.is_none()) {
            progress(done, problems.size());
        }
    };
    std::vector<Solved> solved;
    {
        const py::gil_scoped_release others;
        solved = SolveMany(problems, system, threads, tell);
    }
    py::list results;
    for (std::size_t i = 0; i < solved.size(); ++i) {
        if (!refused[i].empty()) {
            results.append(refused[i]);
        } else if (const auto* reason = std::get_if<std::string>(&solved[i])) {
            results.append(*reason);
        } else {
            results.append(ArraysOf(std::get<solver::Solution>(solved[i])));
        }
    }
    return results;
}

design::TransferFunction FunctionOf(const std::string& name) {
    auto function = design::TransferFunctionOf(name);
    if (auto* reason = std::get_if<std::string>(&function)) {
        throw Refused{std::move(*reason), {}};
    }
    return std::get<design::TransferFunction>(std::move(function));
}

/// Repetitions for strains in micro and moduli in MPa, of one length or one of them alone.
py::array_t<double> LivesOf(const design::TransferFunction& function, const py::array_t<double>& strains,
                            const py::array_t<double>& moduli, double c) {
    const auto life = [&](double strain, double modulus) {
        return design::LifeOf(function, strain / solver::MicroPerStrain, modulus, c);
    };
    return py::cast<py::array_t<double>>(py::vectorize(life)(strains, moduli));
}

py::array_t<double> GearLoads(const std::string& name, int units, std::optional<double> load,
                              std::optional<double> pressure, std::optional<double> radius,
                              std::optional<double> spacing, std::optional<double> axleSpacing,
                              std::optional<double> track, double x, double y, double angle) {
    const design::StandardGear* gear = design::FindGear(name);
    if (gear == nullptr) {
        throw Refused{name + " is no gear; zirvo.gears() names those that there are", {}};
    }
    const design::GearFit fit{load, pressure, radius, spacing, axleSpacing, track, x, y, angle};
    const auto made = design::LoadsOfGear(*gear, fit, UnitsOf(units));
    if (const auto* reason = std::get_if<std::string>(&made)) {
        throw Refused{*reason, {}};
    }
    const auto& loads = std::get<std::vector<solver::Load>>(made);
    py::array_t<double> rows({static_cast<py::ssize_t>(loads.size()), py::ssize_t{6}});
    double* value = rows.mutable_data();
    for (const solver::Load& one : loads) {
        for (const double number : {one.Vertical, one.Radius, one.X, one.Y, one.Horizontal, one.Angle}) {
            *value++ = number;
        }
    }
    return rows;
}

py::dict NamedGears() {
    py::dict gears;
    for (const design::StandardGear& gear : design::GearCatalogue()) {
        gears[gear.Name] = py::make_tuple(gear.What, gear.Load, gear.Pressure, gear.Source);
    }
    return gears;
}

py::dict NamedFunctions() {
    py::dict functions;
    for (const design::TransferFunction& function : design::TransferFunctions()) {
        functions[py::str(function.Name)] = function.Source;
    }
    return functions;
}

void BindLives(py::module_& module) {
    py::class_<design::TransferFunction>(module, "TransferFunction")
        .def(py::init(&FunctionOf))
        .def_readonly("name", &design::TransferFunction::Name)
        .def_readonly("source", &design::TransferFunction::Source)
        .def_property_readonly("fatigue",
                               [](const design::TransferFunction& f) { return f.Kind == design::LifeKind::Fatigue; })
        .def("lives", &LivesOf);
    module.def("mix_factor", &design::MixFactor);
    module.def("functions", &NamedFunctions);
}

}  // namespace

PYBIND11_MODULE(_zirvo, module) {
    // The type lives as long as the interpreter, so it is let go of nowhere.
    static PyObject* const error = py::exception<Refused>(module, "Error", PyExc_ValueError).release().ptr();
    // The library asks for a function that takes it by value.
    py::register_exception_translator([](std::exception_ptr thrown) {  // NOLINT(performance-unnecessary-value-param)
        try {
            if (thrown) {
                std::rethrow_exception(thrown);
            }
        } catch (const Refused& refused) {
            const py::object raised = py::reinterpret_borrow<py::object>(error)(refused.Message);
            raised.attr("faults") = refused.Faults;
            PyErr_SetObject(error, raised.ptr());
        }
    });
    module.attr("Error").attr("__module__") = "zirvo";
    module.attr("Error").attr("faults") = py::make_tuple();
    module.attr("version") = MakeVersionStamp(0);
    module.attr("components") =
        py::tuple(py::cast(std::vector<std::string>(solver::ComponentNames.begin(), solver::ComponentNames.end())));
    module.def("solve", &Solve);
    module.def("solve_all", &SolveAll);
    module.def("solver_seconds", &SolverSeconds);
    module.def("read_eva", &ReadEva);
    module.def("read_ven", &ReadVen);
    module.def("write_eva", &WriteEva);
    module.def("write_ven", &WriteVen);
    module.def("gear", &GearLoads);
    module.def("gears", &NamedGears);
    BindLives(module);
}
