#include "solver/tables.h"

#include <boost/math/constants/constants.hpp>
#include <boost/math/quadrature/gauss.hpp>
#include <boost/math/special_functions/bessel.hpp>
#include <cmath>
#include <cstdlib>
#include <memory>

namespace zirvo::solver {

namespace {

constexpr double Pi = boost::math::constants::pi<double>();

/// J_0(x) .. J_n(x) for n = HighestOrder, from J0 and J1 of the library: backward recurrence from far above x, scaled
/// to the larger of the two.
constexpr int HighestOrder = BesselTable::Terms + 3;

std::array<double, HighestOrder + 1> BesselOrders(double x) {
    std::array<double, HighestOrder + 1> j{};
    if (x == 0) {
        j[0] = 1;
        return j;
    }
    const int start = HighestOrder + static_cast<int>(x) + 40;
    double above = 0;
    double here = 1e-280;
    for (int n = start; n > 0; --n) {
        const double below = 2 * n / x * here - above;
        above = here;
        here = below;
        if (n - 1 <= HighestOrder) {
            j[static_cast<std::size_t>(n - 1)] = here;
        }
        if (std::fabs(here) > 1e200) {
            above *= 1e-200;
            here *= 1e-200;
            for (double& value : j) {
                value *= 1e-200;
            }
        }
    }
    const double j0 = boost::math::cyl_bessel_j(0, x);
    const double j1 = boost::math::cyl_bessel_j(1, x);
    const double scale = std::fabs(j0) > std::fabs(j1) ? j0 / j[0] : j1 / j[1];
    for (double& value : j) {
        value *= scale;
    }
    return j;
}

/// Taylor coefficient k of J_order at the centre: 2^-k / k! sum (-1)^i binomial(k, i) J_(order - k + 2 i).
double TaylorCoefficient(const std::array<double, HighestOrder + 1>& j, int order, int k) {
    double sum = 0;
    double binomial = 1;
    for (int i = 0; i <= k; ++i) {
        const int n = order - k + 2 * i;
        const double value = j[static_cast<std::size_t>(std::abs(n))] * (n < 0 && n % 2 != 0 ? -1 : 1);
        sum += (i % 2 == 0 ? binomial : -binomial) * value;
        binomial = binomial * (k - i) / (i + 1);
    }
    for (int i = 1; i <= k; ++i) {
        sum /= 2.0 * i;
    }
    return sum;
}

/// P and Q of Hankel's series for one order: terms a_0, -a_2, a_4 .. and a_1, -a_3 .. in powers of 1 / x^2.
void AsymptoticTerms(int order, double* p, double* q) {
    double a = 1;
    for (int k = 0; k < 2 * BesselTable::AsymptoticTerms; ++k) {
        const double sign = k / 2 % 2 == 0 ? 1 : -1;
        (k % 2 == 0 ? p : q)[k / 2] = sign * a;
        a *= (4.0 * order * order - (2.0 * k + 1) * (2.0 * k + 1)) / (8.0 * (k + 1));
    }
}

void FillPanel(double low, double high, AngleTable::Panel& panel) {
    using Rule = boost::math::quadrature::gauss<double, AngleTable::Nodes>;
    const auto& nodes = Rule::abscissa();
    const auto& weights = Rule::weights();
    const double middle = 0.5 * (low + high);
    const double half = 0.5 * (high - low);
    for (int i = 0; i < AngleTable::Nodes; ++i) {
        const auto place = static_cast<std::size_t>(i / 2);
        const double psi = middle + (i % 2 == 0 ? half : -half) * nodes[place];
        const double sine = std::sin(0.5 * psi);
        panel.Cos[i] = std::cos(psi);
        panel.Sin[i] = std::sin(psi);
        panel.HalfSquared[i] = sine * sine;
        panel.Weight[i] = half * weights[place];
    }
}

}  // namespace

const BesselTable& Bessels() {
    static const std::unique_ptr<const BesselTable> made = [] {
        auto table = std::make_unique<BesselTable>();
        for (int c = 0; c < BesselTable::Centres; ++c) {
            const auto j = BesselOrders(static_cast<double>(c) / BesselTable::PerUnit);
            for (int k = 0; k < BesselTable::Terms; ++k) {
                for (int order = 0; order < 4; ++order) {
                    table->Taylor[c][k][order] = TaylorCoefficient(j, order, k);
                }
            }
        }
        AsymptoticTerms(0, table->P0, table->Q0);
        AsymptoticTerms(1, table->P1, table->Q1);
        return table;
    }();
    return *made;
}

const AngleTable& Angles() {
    static const std::unique_ptr<const AngleTable> made = [] {
        auto table = std::make_unique<AngleTable>();
        for (int p = 0; p <= AngleTable::MaxPanels; ++p) {
            FillPanel(0, std::ldexp(Pi, -p), table->Core[p]);
            if (p < AngleTable::MaxPanels) {
                FillPanel(std::ldexp(Pi, -p - 1), std::ldexp(Pi, -p), table->Ring[p]);
            }
        }
        return table;
    }();
    return *made;
}

std::array<double, ChebyshevCount> ChebyshevNodes(double low, double high) {
    std::array<double, ChebyshevCount> nodes{};
    for (std::size_t k = 0; k < ChebyshevCount; ++k) {
        nodes[k] =
            0.5 * (low + high) + 0.5 * (high - low) * std::cos((static_cast<double>(k) + 0.5) * Pi / ChebyshevCount);
    }
    return nodes;
}

const ChebyshevTable& Chebyshevs() {
    static const ChebyshevTable table = [] {
        ChebyshevTable made{};
        for (std::size_t k = 0; k < ChebyshevCount; ++k) {
            const double angle = (static_cast<double>(k) + 0.5) * Pi / ChebyshevCount;
            made.X[k] = std::cos(angle);
            made.Lambda[k] = (k % 2 == 0 ? 1 : -1) * std::sin(angle);
        }
        return made;
    }();
    return table;
}

std::array<double, ChebyshevCount> ChebyshevWeights(double low, double high, double x) {
    const ChebyshevTable& unit = Chebyshevs();
    std::array<double, ChebyshevCount> weights{};
    const double t = high > low ? (2 * x - low - high) / (high - low) : 0;
    double sum = 0;
    for (std::size_t k = 0; k < ChebyshevCount; ++k) {
        const double difference = t - unit.X[k];
        if (difference == 0) {
            weights.fill(0);
            weights[k] = 1;
            return weights;
        }
        weights[k] = unit.Lambda[k] / difference;
        sum += weights[k];
    }
    for (double& weight : weights) {
        weight /= sum;
    }
    return weights;
}

const std::array<std::array<double, ChebyshevCount>, 2>& ChebyshevTail() {
    static const std::array<std::array<double, ChebyshevCount>, 2> rows = [] {
        std::array<std::array<double, ChebyshevCount>, 2> r{};
        for (std::size_t k = 0; k < ChebyshevCount; ++k) {
            const double angle = (static_cast<double>(k) + 0.5) * Pi / ChebyshevCount;
            r[0][k] = 2.0 / ChebyshevCount * std::cos((ChebyshevCount - 2) * angle);
            r[1][k] = 2.0 / ChebyshevCount * std::cos((ChebyshevCount - 1) * angle);
        }
        return r;
    }();
    return rows;
}

const NodeTable& NodeParts() {
    static const NodeTable table = [] {
        NodeTable parts{};
        const auto split = [](long double x, double& high, double& low) {
            high = static_cast<double>(x);
            low = static_cast<double>(x - static_cast<long double>(high));
        };
        for (int i = 0; i <= NodeTable::Parts; ++i) {
            const int power = i - NodeTable::Parts / 2;
            split(std::exp2(static_cast<long double>(power) / NodeTable::Parts), parts.Power[i], parts.PowerLow[i]);
            constexpr double Digits = 4096;
            const double inverse = 1 / (1 + static_cast<double>(i) / NodeTable::Parts);
            parts.Inverse[i] = std::nearbyint(inverse * Digits) / Digits;
            split(-std::log(static_cast<long double>(parts.Inverse[i])), parts.Log[i], parts.LogLow[i]);
        }
        return parts;
    }();
    return table;
}

}  // namespace zirvo::solver
