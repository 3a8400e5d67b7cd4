// The three unit systems of the solver programs: what the numbers of an input mean, and in what the results are told.
// Callers: the solver run, zirvo-batch.
#pragma once
#include <array>
#include <optional>
#include <string_view>

#include "solver/problem.h"

namespace zirvo::solver {

/// The number of the control file's unit line. Lengths are cm in all of them.
enum class UnitSystem {
    KgfToKgf = 1,  ///< kgf, kgf/cm2 in; kgf/cm2 out
    KgfToMpa = 2,  ///< kgf, kgf/cm2 in; MPa out
    KnToMpa = 3,   ///< kN, MPa in; MPa out
};

/// The unit system of the number 1, 2 or 3.
std::optional<UnitSystem> UnitSystemOf(long long number);

/// "kgf" or "kN".
std::string_view ForceUnit(UnitSystem units);

/// "kgf/cm2" or "MPa": of the moduli that are typed.
std::string_view InputStressUnit(UnitSystem units);

/// "kgf/cm2" or "MPa": of the stresses that are reported.
std::string_view OutputStressUnit(UnitSystem units);

/// 1 kgf/cm2 in MPa: 9.80665 N on 1 cm2, 1 N/cm2 being 0.01 MPa.
inline constexpr double MpaPerKgf = 0.0980665;

/// 1 kN in MPa cm2: 1000 N, 1 N/cm2 being 0.01 MPa.
inline constexpr double MpaCm2PerKn = 10;

/// Plain strain in micro.
inline constexpr double MicroPerStrain = 1e6;

/// The problem in consistent units (stress unit of the moduli, cm) from one with the numbers as they were typed: the
/// forces of system 3 become MPa cm2, all else stays.
Problem ToConsistentUnits(Problem typed, UnitSystem units);

/// The 15 values of a result in the units of the output: cm, kgf/cm2 or MPa, micro. Shares of errors do not change.
std::array<double, ComponentCount> ToOutputUnits(const std::array<double, ComponentCount>& values, UnitSystem units);

/// The names of the components, in the order of Component: "U", "V", "W", "SIGx", ...
extern const std::array<std::string_view, ComponentCount> ComponentNames;

}  // namespace zirvo::solver
