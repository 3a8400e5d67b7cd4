// Distributions, see sampling.h. Numbers: the finaliser of SplitMix64 (Steele, Lea, Flood, OOPSLA 2014) over seed, row
// and column; values by the inverse of the distribution function.
#include "study/sampling.h"

#include <algorithm>
#include <boost/math/special_functions/erf.hpp>
#include <cmath>
#include <limits>
#include <numbers>

#include "design/number_table.h"

namespace zirvo::study {
namespace {

using Kind = Distribution::Kind;
using DoublesOnly = boost::math::policies::policy<boost::math::policies::promote_double<false>>;

constexpr std::uint64_t Golden = 0x9E3779B97F4A7C15U;

std::uint64_t Mixed(std::uint64_t x) {
    x = (x ^ (x >> 30U)) * 0xBF58476D1CE4E5B9U;
    x = (x ^ (x >> 27U)) * 0x94D049BB133111EBU;
    return x ^ (x >> 31U);
}

double NormalShare(double z) {
    return std::erfc(-z / std::numbers::sqrt2) / 2;
}

/// Of a tail that is cut off near its end the sum of two shares may be rounded to the whole, which has no number.
double NormalQuantile(double share) {
    constexpr double least = std::numeric_limits<double>::min();
    constexpr double most = 1 - std::numeric_limits<double>::epsilon() / 2;
    return -std::numbers::sqrt2 * boost::math::erfc_inv(2 * std::clamp(share, least, most), DoublesOnly());
}

/// Mean and deviation of the normal number behind the value, and how the value becomes it.
struct Behind {
    double Mean, Deviation;
    bool Logarithm;

    explicit Behind(const Distribution& d)
        : Mean(d.Mean), Deviation(d.Deviation), Logarithm(d.What == Kind::Lognormal) {
        if (Logarithm) {
            const double variance = std::log1p(d.Deviation / d.Mean * (d.Deviation / d.Mean));
            Mean = std::log(d.Mean) - variance / 2;
            Deviation = std::sqrt(variance);
        }
    }

    double ShareBelow(double x) const {
        if (Logarithm) {
            return x > 0 ? NormalShare((std::log(x) - Mean) / Deviation) : 0;
        }
        return NormalShare((x - Mean) / Deviation);
    }

    double ValueAt(double share) const {
        const double x = Mean + Deviation * NormalQuantile(share);
        return Logarithm ? std::exp(x) : x;
    }
};

std::string Told(const char* name, double x, const char* reason) {
    return std::string(name).append(" ").append(design::ShortestText(x)).append(": ").append(reason);
}

}  // namespace

std::string ReasonAgainst(const Distribution& d) {
    if (d.What == Kind::Uniform || d.What == Kind::Triangular) {
        if (!(d.To > d.From)) {
            return Told("to", d.To, "is not above from");
        }
        const bool inside = d.What == Kind::Uniform || (d.Mode >= d.From && d.Mode <= d.To);
        return inside ? "" : Told("mode", d.Mode, "does not lie between from and to");
    }
    if (!(d.Deviation > 0)) {
        return Told("deviation", d.Deviation, "is not above 0");
    }
    if (d.What == Kind::Lognormal && !(d.Mean > 0)) {
        return Told("mean", d.Mean, "is not above 0, as that of a lognormal distribution must be");
    }
    const Behind behind(d);
    if (!(behind.ShareBelow(d.Upper) - behind.ShareBelow(d.Lower) > 1e-9)) {
        return "next to nothing of the distribution lies between lower and upper";
    }
    return "";
}

double Quantile(const Distribution& d, double share) {
    if (d.What == Kind::Uniform) {
        return d.From + share * (d.To - d.From);
    }
    if (d.What == Kind::Triangular) {
        const double whole = d.To - d.From;
        const double left = (d.Mode - d.From) / whole;
        return share <= left ? d.From + std::sqrt(share * whole * (d.Mode - d.From))
                             : d.To - std::sqrt((1 - share) * whole * (d.To - d.Mode));
    }
    const Behind behind(d);
    if (std::isinf(d.Lower) && std::isinf(d.Upper)) {
        return behind.ValueAt(share);
    }
    const double below = behind.ShareBelow(d.Lower);
    const double value = behind.ValueAt(below + share * (behind.ShareBelow(d.Upper) - below));
    return std::fmin(std::fmax(value, d.Lower), d.Upper);
}

double EvenNumber(std::uint64_t seed, std::uint64_t row, std::uint64_t column) {
    const std::uint64_t x = Mixed(Mixed(Mixed(seed + Golden) + Golden * (row + 1)) + Golden * (column + 1));
    return (static_cast<double>(x >> 11U) + 0.5) * 0x1p-53;
}

}  // namespace zirvo::study
