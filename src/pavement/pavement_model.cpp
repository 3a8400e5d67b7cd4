// The pavement data of one analysis, see pavement_model.h.
#include "pavement/pavement_model.h"

namespace zirvo {

namespace {

/// The first of a pair of message numbers for the two systems that take kgf, the second for kN and MPa.
Int16 ByUnits(UnitSystem units, Int16 kgf, Int16 kiloNewton) {
    switch (units) {
        case UnitSystem::KgfToKgf:
        case UnitSystem::KgfToMPa:
            return kgf;
        case UnitSystem::KnToMPa:
            return kiloNewton;
        case UnitSystem::None:
            break;
    }
    return 0;
}

}  // namespace

UnitSystem UnitSystemOf(int number) {
    return number >= 1 && number <= 3 ? static_cast<UnitSystem>(number) : UnitSystem::None;
}

LayerTops ComputeLayerTops(std::span<const PavementLayer> layers) {
    LayerTops tops{};
    if (layers.size() > tops.size()) {
        throw RuntimeFault(fault::SubscriptOutOfRange);
    }
    for (std::size_t i = 2; i < layers.size(); ++i) {
        tops[i] = tops[i - 1] + layers[i - 1].Thickness;
    }
    return tops;
}

std::array<Int16, LayerColumns> LayerHeadings(UnitSystem units) {
    return {ByUnits(units, 37, 38), 39, 40, 41};
}

std::array<Int16, LoadColumns> LoadHeadings(UnitSystem units) {
    return {ByUnits(units, 42, 43), 44, 45, 46, ByUnits(units, 48, 49), 50};
}

std::array<Int16, PointColumns> PointHeadings() {
    return {51, 45, 46, 47};
}

Int16 LayerFileHeading(UnitSystem units) {
    return ByUnits(units, 69, 70);
}

Int16 LoadFileHeading(UnitSystem units) {
    return ByUnits(units, 72, 73);
}

}  // namespace zirvo
