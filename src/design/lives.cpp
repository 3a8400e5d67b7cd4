// Transfer functions and damage, see lives.h.
#include "design/lives.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

namespace zirvo::design {
namespace {

constexpr double PsiPerMpa = 145.03773773;
constexpr std::size_t MostAxleLoads = 10000;

/// 10 to the power of x, for sources that give the logarithm.
double Power10(double x) {
    return std::pow(10.0, x);
}

/// The numbers between the slashes; nothing if one is none.
std::optional<std::vector<double>> Coefficients(std::string_view text) {
    std::vector<double> numbers;
    for (std::size_t from = 0; from <= text.size();) {
        const std::size_t end = std::min(text.find('/', from), text.size());
        const std::optional<double> number = NumberOfText(text.substr(from, end - from));
        if (!number) {
            return std::nullopt;
        }
        numbers.push_back(*number);
        from = end + 1;
    }
    return numbers;
}

std::string NamesOfAll() {
    std::string names;
    for (const TransferFunction& function : TransferFunctions()) {
        names += (names.empty() ? "" : ", ") + function.Name;
    }
    return names;
}

}  // namespace

const std::vector<TransferFunction>& TransferFunctions() {
    using enum LifeKind;
    // Those of the Japanese design guide for asphalt pavements are left to the user: we are not certain of their
    // coefficients.
    static const std::vector<TransferFunction> functions{
        // 18.4 brings the laboratory's life to one fifth of the road's area cracked. In MPa: 1.135E-3 e^-3.291
        // E^-0.854.
        {"ai-fatigue", Fatigue, 18.4 * 4.325e-3, 3.291, 0.854, PsiPerMpa,
         "Asphalt Institute, Research Report 82-2 (1982) and MS-1, 9th edition: 18.4 C 4.325E-3 e^-3.291 E^-0.854, E "
         "in "
         "psi"},
        // The same without the shift from the laboratory to the road. In MPa: 6.16E-5 e^-3.291 E^-0.854.
        {"ai-fatigue-lab", Fatigue, 0.00432, 3.291, 0.854, PsiPerMpa,
         "Asphalt Institute, Research Report 82-2 (1982): 0.00432 C e^-3.291 E^-0.854, E in psi, no shift to the "
         "field"},
        {"ai-rutting", Rutting, 1.365e-9, 4.477, 0, 1,
         "Asphalt Institute, Research Report 82-2 (1982) and MS-1, 9th edition: 1.365E-9 e^-4.477, rut of 12.7 mm"},
        {"irc37-fatigue-80", Fatigue, 1.6064e-4, 3.89, 0.854, 1,
         "IRC:37-2018: 1.6064E-4 C e^-3.89 E^-0.854, E in MPa, reliability 80 %"},
        {"irc37-fatigue-90", Fatigue, 0.5161e-4, 3.89, 0.854, 1,
         "IRC:37-2018: 0.5161E-4 C e^-3.89 E^-0.854, E in MPa, reliability 90 %"},
        {"irc37-rutting-80", Rutting, 4.1656e-8, 4.5337, 0, 1, "IRC:37-2018: 4.1656E-8 e^-4.5337, reliability 80 %"},
        {"irc37-rutting-90", Rutting, 1.41e-8, 4.5337, 0, 1, "IRC:37-2018: 1.41E-8 e^-4.5337, reliability 90 %"},
        {"lr1132-fatigue-dbm", Fatigue, Power10(-9.38), 4.16, 0, 1,
         "TRL Laboratory Report 1132 (1984), dense bitumen macadam: log N = -9.38 - 4.16 log e"},
        {"lr1132-fatigue-hra", Fatigue, Power10(-9.78), 4.32, 0, 1,
         "TRL Laboratory Report 1132 (1984), hot rolled asphalt: log N = -9.78 - 4.32 log e"},
        {"lr1132-deformation", Rutting, Power10(-7.21), 3.95, 0, 1,
         "TRL Laboratory Report 1132 (1984): log N = -7.21 - 3.95 log e"},
        {"austroads-subgrade", Rutting, std::pow(9150e-6, 7), 7, 0, 1,
         "Austroads AGPT02 (2017): (9150 / e in micro)^7"},
    };
    return functions;
}

std::variant<TransferFunction, std::string> TransferFunctionOf(std::string_view text) {
    for (const TransferFunction& function : TransferFunctions()) {
        if (function.Name == text) {
            return function;
        }
    }
    const std::size_t sign = text.find('=');
    const std::string_view kind = text.substr(0, sign);
    if (sign == std::string_view::npos || (kind != "fatigue" && kind != "rutting")) {
        return std::string(text) + " is no transfer function; there are " + NamesOfAll() +
               ", fatigue=K1/K2/K3 and rutting=K1/K2";
    }
    const bool fatigue = kind == "fatigue";
    const std::optional<std::vector<double>> k = Coefficients(text.substr(sign + 1));
    if (!k || k->size() != (fatigue ? 3U : 2U)) {
        return std::string(text) + " is not " + (fatigue ? "fatigue=K1/K2/K3" : "rutting=K1/K2") + " in numbers";
    }
    const bool positive = (*k)[0] > 0 && (*k)[1] > 0 && (!fatigue || (*k)[2] >= 0);
    if (!positive || !std::all_of(k->begin(), k->end(), [](double x) { return std::isfinite(x); })) {
        return std::string(text) + ": K1 and K2 must be above 0, K3 not below";
    }
    return TransferFunction{std::string(text),
                            fatigue ? LifeKind::Fatigue : LifeKind::Rutting,
                            (*k)[0],
                            (*k)[1],
                            fatigue ? (*k)[2] : 0,
                            1,
                            "coefficients of the user"};
}

double LifeOf(const TransferFunction& function, double strain, double modulus, double c) {
    if (std::isnan(strain)) {
        return strain;  // nobody knows what harm it does
    }
    if (strain <= 0) {
        return std::numeric_limits<double>::infinity();
    }
    const double ofModulus = function.K3 == 0 ? 1 : std::pow(modulus * function.UnitsPerMpa, -function.K3);
    const double ofMix = function.Kind == LifeKind::Fatigue ? c : 1;
    const double ofStrain = std::pow(strain, -function.K2);
    const double life = function.K1 * ofMix * ofStrain * ofModulus;
    if (std::isnormal(ofStrain) && std::isnormal(ofModulus) && std::isnormal(life)) {
        return life;
    }
    // Of powers that no double holds the product may be one. Exponents of 1E308 times logarithms stay below the
    // largest long double.
    const auto power = [](double base, double exponent) {
        return static_cast<long double>(exponent) * std::log(static_cast<long double>(base));
    };
    const long double logarithm = power(function.K1, 1) + power(ofMix, 1) + power(strain, -function.K2) +
                                  (function.K3 == 0 ? 0 : power(modulus * function.UnitsPerMpa, -function.K3));
    return static_cast<double>(std::exp(logarithm));
}

double MixFactor(double airVoids, double binder) {
    return Power10(4.84 * (binder / (airVoids + binder) - 0.69));
}

double StrainOf(LifeKind kind, const std::array<double, solver::ComponentCount>& values) {
    if (kind == LifeKind::Rutting) {
        return -values[solver::EPSz];
    }
    const double middle = (values[solver::EPSx] + values[solver::EPSy]) / 2;
    return middle + std::hypot((values[solver::EPSx] - values[solver::EPSy]) / 2, values[solver::GAMxy] / 2);
}

double MinerDamage(std::span<const double> repetitions, std::span<const double> lives) {
    double damage = 0;
    for (std::size_t i = 0; i < std::min(repetitions.size(), lives.size()); ++i) {
        damage += std::isinf(lives[i]) ? 0 : repetitions[i] / lives[i];
    }
    return damage;
}

std::variant<std::vector<AxleLoad>, FileError> ReadAxleLoads(const std::string& path) {
    const std::variant<NumberTable, FileError> read = ReadNumberTable(path);
    if (const auto* error = std::get_if<FileError>(&read)) {
        return *error;
    }
    const auto& table = std::get<NumberTable>(read);
    const auto load = table.Find("load");
    const auto repetitions = table.Find("repetitions");
    if (!load || !repetitions || table.Columns.size() != 2) {
        return FileError{path, 0, "the headings of a table of axle loads are load,repetitions"};
    }
    if (table.Rows() == 0 || table.Rows() > MostAxleLoads) {
        return FileError{path, 0, "holds " + std::to_string(table.Rows()) + " axle loads; 1 to 10000 are expected"};
    }
    std::vector<AxleLoad> loads;
    for (std::size_t row = 0; row < table.Rows(); ++row) {
        const AxleLoad axle{table.At(row, *load), table.At(row, *repetitions)};
        if (!(axle.Load > 0)) {
            return FileError{path, table.Lines[row], "load " + ShortestText(axle.Load) + ": is not above 0"};
        }
        if (!(axle.Repetitions >= 0)) {
            return FileError{path, table.Lines[row], "repetitions " + ShortestText(axle.Repetitions) + ": is below 0"};
        }
        loads.push_back(axle);
    }
    return loads;
}

}  // namespace zirvo::design
