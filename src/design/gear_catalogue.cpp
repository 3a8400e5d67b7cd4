// The gears that `zirvo-batch gear --list` names, see gears.h. Each row has the public document that its numbers are
// of; inches and pounds of a source are converted (2.54 cm, 4.4482216 N, 6.8947573 kPa). A gear of which one number is
// not certain is not here: it is less work to type a number than to find that one was wrong.
#include "design/gears.h"

namespace zirvo::design {
namespace {

/// One side of an axle: a pair of wheels.
constexpr GearPattern Dual(double spacing) {
    return {.Wheels = 2, .Spacing = spacing};
}

/// A whole axle of two pairs.
constexpr GearPattern DualAxle(double spacing, double track, int axles = 1, double axleSpacing = 0) {
    return {2, track, 2, spacing, axles, axleSpacing};
}

/// One leg of an aircraft's main gear.
constexpr GearPattern Leg(int wheels, double spacing, int axles = 1, double axleSpacing = 0) {
    return {.Wheels = wheels, .Spacing = spacing, .Axles = axles, .AxleSpacing = axleSpacing};
}

// The FAA's circular takes 95 % of an aircraft's mass on its main gears; loads of legs here follow it.
constexpr double OnMainGears = 0.95;
constexpr double KnPerPound = 4.4482216152605e-3;
constexpr double MpaPerPsi = 6.894757293168e-3;

/// Load of one leg of `legs` [kN].
constexpr double LegLoad(double grossPounds, int legs) {
    return OnMainGears * grossPounds * KnPerPound / legs;
}

constexpr const char* CircularGears =
    "FAA AC 150/5320-6D, chapter 3: dual spacing 34 in, of dual tandems 30 in with axles 55 in apart; 75 to 200 psi, "
    "more with the mass; 95 % of the mass on the main gears";
constexpr const char* MechanisticGuide =
    "NCHRP 1-37A guide (2004): dual spacing 12 in, axle spacing 51.6 in (tandem) and 49.2 in (tridem), 120 psi; load "
    "of "
    "23 CFR 658.17; track of 6 ft as the design truck of AASHTO LRFD";

}  // namespace

const std::vector<StandardGear>& GearCatalogue() {
    static const std::vector<StandardGear> catalogue{
        {"ms1-80", "one end of the 80 kN single axle of the Asphalt Institute: two wheels of 20 kN", Dual(34.5), 40,
         0.483, "Asphalt Institute MS-1, 9th edition (1981): 70 psi, radius 4.52 in, spacing 13.57 in"},
        {"austroads-80", "Australian standard axle: 80 kN on two pairs of wheels", DualAxle(33, 180), 80, 0.75,
         "Austroads AGPT02: 750 kPa, wheels at 0, 33, 180 and 213 cm"},
        {"france-65", "one end of the French standard axle of 130 kN: two wheels of 32.5 kN", Dual(37.5), 65, 0.662,
         "LCPC-SETRA, Conception et dimensionnement des structures de chaussees (1994); NF P98-086"},
        {"china-bzz100", "one end of the Chinese standard axle BZZ-100: two wheels of 25 kN", Dual(31.95), 50, 0.7,
         "JTG D50-2017: 100 kN, 0.70 MPa, circles of 21.30 cm, 31.95 cm apart"},
        {"india-80", "one end of the Indian standard axle of 80 kN: two wheels of 20 kN", Dual(31), 40, 0.56,
         "IRC:37-2018: 80 kN, 0.56 MPa, 310 mm between the wheels of a pair"},
        {"japan-49", "the Japanese wheel of 49 kN as a pair", Dual(32), 49, 0.6107,
         "Japan Road Association, pavement design handbook (2006): 49 kN, radius 11.3 cm, 32 cm apart"},
        {"south-africa-80", "one end of the South African standard axle of 80 kN: two wheels of 20 kN", Dual(35), 40,
         0.52, "Theyse, de Beer, Rust, Transportation Research Record 1539 (1996): 520 kPa, 350 mm apart"},
        {"lr1132-40", "the British wheel of 40 kN as one circle", Leg(1, 0), 40, 0.5584,
         "TRL Laboratory Report 1132 (1984): 40 kN, contact radius 0.151 m"},
        {"us-single", "American single axle of 20 000 lb on two pairs of wheels", DualAxle(30.48, 182.88), 88.964,
         120 * MpaPerPsi, MechanisticGuide},
        {"us-tandem", "American tandem axle of 34 000 lb", DualAxle(30.48, 182.88, 2, 131.064), 151.24, 120 * MpaPerPsi,
         MechanisticGuide},
        {"us-tridem", "American tridem axle of 42 000 lb", DualAxle(30.48, 182.88, 3, 124.968), 186.825,
         120 * MpaPerPsi, MechanisticGuide},
        {"faa-single-30", "aircraft of 30 000 lb, one leg with one wheel", Leg(1, 0), LegLoad(30000, 2), 75 * MpaPerPsi,
         CircularGears},
        {"faa-dual-200", "aircraft of 200 000 lb, one leg with two wheels", Leg(2, 86.36), LegLoad(200000, 2),
         200 * MpaPerPsi, CircularGears},
        {"faa-dual-tandem-400", "aircraft of 400 000 lb, one leg with four wheels", Leg(2, 76.2, 2, 139.7),
         LegLoad(400000, 2), 200 * MpaPerPsi, CircularGears},
        {"b737-800", "737-800 of 174 700 lb, one leg with two wheels", Leg(2, 86.36), LegLoad(174700, 2),
         205 * MpaPerPsi,
         "Airplane Characteristics for Airport Planning, D6-58325-6: wheels 34 in apart, 205 psi; 95 % as FAA AC "
         "150/5320-6D"},
        {"b747-400", "747-400 of 875 000 lb, one of four legs with four wheels", Leg(2, 111.76, 2, 147.32),
         LegLoad(875000, 4), 200 * MpaPerPsi,
         "Airplane Characteristics for Airport Planning, D6-58326-1: wheels 44 in, axles 58 in apart, 200 psi; 95 % as "
         "FAA AC 150/5320-6D"},
    };
    return catalogue;
}

}  // namespace zirvo::design
