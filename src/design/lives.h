// Lives of pavements: how many repetitions of a strain an asphalt layer or a subgrade stands by a transfer function,
// and the damage of different loads together. Callers: `zirvo-batch lives`, studies, the Python module.
//
// Notation: N repetitions, e strain as a plain number (not micro, always positive here), E modulus of the layer,
//     N = K1 C e^-K2 E^-K3
// with E in the unit of the function's source. C is the mix factor, 1 if nothing is known of the mix.
// Sources: at the rows of the catalogue. Damage: Palmgren (1924) and Miner, Journal of Applied Mechanics 12 (1945).
#pragma once
#include <array>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "design/number_table.h"
#include "solver/problem.h"

namespace zirvo::design {

/// Which strain a life is of.
enum class LifeKind {
    Fatigue,  ///< the largest tensile strain in the plane of the layers
    Rutting,  ///< the vertical compressive strain
};

struct TransferFunction {
    std::string Name;
    LifeKind Kind = LifeKind::Fatigue;
    double K1 = 0;
    double K2 = 0;
    double K3 = 0;
    double UnitsPerMpa = 1;  ///< how many of the source's units of modulus are 1 MPa
    std::string Source;
};

const std::vector<TransferFunction>& TransferFunctions();

/// What to tell with the functions.
inline constexpr const char* FunctionCaution =
    "Hold these coefficients against the document that is named before you sign a design. The functions of the "
    "Japanese "
    "design guide for asphalt pavements are not here, since their coefficients could not be given with certainty. "
    "Those "
    "and any others are given by coefficients: fatigue=K1/K2/K3 is K1 C e^-K2 E^-K3 with E in MPa, rutting=K1/K2 is "
    "K1 e^-K2, with e as a plain number (200 micro are 2E-4); factors of a guide that multiply a coefficient are "
    "multiplied in.";

/// The function of a name, or by coefficients: "fatigue=K1/K2/K3" (modulus in MPa) or "rutting=K1/K2"; or why there is
/// none.
std::variant<TransferFunction, std::string> TransferFunctionOf(std::string_view text);

/// Repetitions that the strain is stood; infinity where the strain is not above 0, so does no harm; NaN of NaN.
/// @param strain   plain; of the kind of the function, see StrainOf
/// @param modulus  MPa, of the layer that the strain is in
/// @param c        mix factor
double LifeOf(const TransferFunction& function, double strain, double modulus, double c = 1);

/// The mix factor C = 10^(4.84 (b / (a + b) - 0.69)) of the Asphalt Institute's functions.
/// @param airVoids  a, in percent of the volume
/// @param binder    b, in percent of the volume
double MixFactor(double airVoids, double binder);

/// The strain of a kind from the 15 values of a point, positive where it does harm: the larger principal strain in the
/// plane of the layers, or the vertical strain with its sign changed.
double StrainOf(LifeKind kind, const std::array<double, solver::ComponentCount>& values);

/// So many repetitions of an axle whose loads sum up to Load.
struct AxleLoad {
    double Load = 0;
    double Repetitions = 0;
};

/// The sum of n / N, both of the same length. Damage of a life that never ends is 0.
double MinerDamage(std::span<const double> repetitions, std::span<const double> lives);

/// A table with the columns "load" and "repetitions": loads above 0, repetitions not below.
std::variant<std::vector<AxleLoad>, FileError> ReadAxleLoads(const std::string& path);

}  // namespace zirvo::design
