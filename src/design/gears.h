// Standard axles and aircraft gears as loads: wheels in a pattern, each a circle under uniform pressure. Callers:
// `zirvo-batch gear`, the Python module.
//
// The axle lies along X, so that what travels goes along Y; the middle of all wheels is the position of the gear.
#pragma once
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "design/number_table.h"
#include "solver/io/unit_systems.h"
#include "solver/problem.h"

namespace zirvo::design {

/// One wheel of a gear.
struct Wheel {
    double X = 0;      ///< cm, from the middle of the gear
    double Y = 0;      ///< cm
    double Share = 1;  ///< of the gear's load, in any unit: the sum over the wheels is the whole
};

/// A gear as a pattern: `Sides` of `Wheels` beside one another, on `Axles` behind one another.
struct GearPattern {
    int Sides = 1;           ///< 2: both ends of an axle, Track apart
    double Track = 0;        ///< cm, between the middles of both sides
    int Wheels = 1;          ///< on one side of one axle
    double Spacing = 0;      ///< cm, between the centres of neighbouring wheels
    int Axles = 1;           ///< behind one another
    double AxleSpacing = 0;  ///< cm
};

/// A gear of the catalogue.
struct StandardGear {
    const char* Name;
    const char* What;
    GearPattern Pattern;
    double Load;         ///< kN, of all its wheels together
    double Pressure;     ///< MPa, between wheel and pavement
    const char* Source;  ///< of pattern, load and pressure
};

const std::vector<StandardGear>& GearCatalogue();

/// What to tell with the catalogue.
inline constexpr const char* GearCaution =
    "Hold these numbers against the document that is named before you sign a design. Any of them gives way to --load, "
    "--pressure, --radius, --spacing, --axle-spacing and --track; --file takes wheels of your own.";

/// The gear of that name, or nothing.
const StandardGear* FindGear(std::string_view name);

/// What the user wants otherwise. Of load, pressure and radius two decide the third; where fewer are given load and
/// pressure are those of the gear.
struct GearFit {
    std::optional<double> Load{};         ///< of all wheels together, in kgf or kN
    std::optional<double> Pressure{};     ///< kgf/cm2 or MPa
    std::optional<double> Radius{};       ///< cm, of each wheel
    std::optional<double> Spacing{};      ///< cm
    std::optional<double> AxleSpacing{};  ///< cm
    std::optional<double> Track{};        ///< cm
    double X = 0;                         ///< cm, position of the gear
    double Y = 0;
    double Angle = 0;  ///< degrees, turns the gear from X towards Y
};

/// The loads of a gear with the numbers as they are typed in the unit system, rounded to 1E-6 so that they stand in the
/// columns of a file; or why the wishes do not go together ("--spacing: ...").
std::variant<std::vector<solver::Load>, std::string> LoadsOfGear(const StandardGear& gear, const GearFit& fit,
                                                                 solver::UnitSystem units);

/// The same for wheels of one's own, which have no load and no pressure of theirs.
std::variant<std::vector<solver::Load>, std::string> LoadsOfWheels(const std::vector<Wheel>& wheels, const GearFit& fit,
                                                                   solver::UnitSystem units);

/// The wheels of a file: a table with the columns "x" and "y" [cm] and, if wanted, "share".
std::variant<std::vector<Wheel>, FileError> ReadGearFile(const std::string& path);

}  // namespace zirvo::design
