// ".eva" and ".ven" for Python. Caller: the module.
#pragma once
#include <pybind11/pybind11.h>

#include <string>

#include "python/problem_arrays.h"

namespace zirvo::python {

/// (layers[n, 4], loads[m, 6], points[k, 4], result name, principal name). Refused with all findings of the check.
pybind11::tuple ReadEva(const std::string& path);

/// (layers, loads).
pybind11::tuple ReadVen(const std::string& path);

/// Writes the file as SAVE DATA does, whole or not at all. Refused where the data break a rule, do not fit the format's
/// columns, or the file cannot be written.
void WriteEva(const std::string& path, const Rows& layers, const Rows& loads, const Rows& points, int units,
              const std::string& language, const std::string& result, const std::string& principal);
void WriteVen(const std::string& path, const Rows& layers, const Rows& loads, int units, const std::string& language);

}  // namespace zirvo::python
