// What of a pavement may vary, by name: "layer 1 thickness", "load 2 vertical", "load all radius", "loads total".
// Callers: the study file, the work on a row.
#pragma once
#include <string>
#include <string_view>
#include <variant>

#include "solver/io/unit_systems.h"
#include "solver/problem.h"

namespace zirvo::study {

struct Parameter {
    enum class Kind { OfLayer, OfLoad, TotalLoad };

    std::string Name;
    Kind What = Kind::OfLayer;
    int Row = 0;  ///< 1-based; 0: all loads
    double solver::Layer::*LayerField = nullptr;
    double solver::Load::*LoadField = nullptr;
    long long Line = 0;  ///< of the study file or of the table, for messages
};

/// The parameter of a name in the pavement, or why there is none: "names no layer: there are 3".
std::variant<Parameter, std::string> ParameterOf(std::string_view name, const solver::Problem& base);

/// Puts a value in its place. "loads total" scales all loads so that the vertical ones sum up to the value, on circles
/// that stay as they are.
void SetParameter(const Parameter& parameter, double value, solver::Problem& problem);

/// Why no pavement can have this value, whatever the others are: "is not above 0"; empty if one can.
std::string ReasonAgainst(const Parameter& parameter, double value);

/// The unit of its values: "MPa", "cm", "kN", "degrees"; empty for a plain number.
std::string UnitOf(const Parameter& parameter, solver::UnitSystem units);

}  // namespace zirvo::study
