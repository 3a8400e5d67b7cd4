// Units in and out. Called by the solver run and zirvo-batch.
#include "solver/io/unit_systems.h"

namespace zirvo::solver {

const std::array<std::string_view, ComponentCount> ComponentNames{"U",    "V",     "W",     "SIGx",  "SIGy",
                                                                  "SIGz", "TAUxy", "TAUyz", "TAUzx", "EPSx",
                                                                  "EPSy", "EPSz",  "GAMxy", "GAMyz", "GAMzx"};

std::optional<UnitSystem> UnitSystemOf(long long number) {
    if (number < 1 || number > 3) {
        return std::nullopt;
    }
    return static_cast<UnitSystem>(number);
}

std::string_view ForceUnit(UnitSystem units) {
    return units == UnitSystem::KnToMpa ? "kN" : "kgf";
}

std::string_view InputStressUnit(UnitSystem units) {
    return units == UnitSystem::KnToMpa ? "MPa" : "kgf/cm2";
}

std::string_view OutputStressUnit(UnitSystem units) {
    return units == UnitSystem::KgfToKgf ? "kgf/cm2" : "MPa";
}

Problem ToConsistentUnits(Problem typed, UnitSystem units) {
    if (units == UnitSystem::KnToMpa) {
        for (Load& load : typed.Loads) {
            load.Vertical *= MpaCm2PerKn;
            load.Horizontal *= MpaCm2PerKn;
        }
    }
    return typed;
}

std::array<double, ComponentCount> ToOutputUnits(const std::array<double, ComponentCount>& values, UnitSystem units) {
    const double stress = units == UnitSystem::KgfToMpa ? MpaPerKgf : 1;
    std::array<double, ComponentCount> converted = values;
    for (std::size_t i = SIGx; i <= TAUzx; ++i) {
        converted[i] *= stress;
    }
    for (std::size_t i = EPSx; i <= GAMzx; ++i) {
        converted[i] *= MicroPerStrain;
    }
    return converted;
}

}  // namespace zirvo::solver
