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

constexpr double LeastShare = 1e-9;  // of a distribution between its ends
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
    return Sampler(d).LeavesSomething() ? "" : "next to nothing of the distribution lies between lower and upper";
}

Sampler::Sampler(const Distribution& d)
    : distribution_(d), mean_(d.Mean), deviation_(d.Deviation), logarithm_(d.What == Kind::Lognormal) {
    if (d.What == Kind::Uniform || d.What == Kind::Triangular) {
        return;
    }
    if (logarithm_) {
        const double variance = std::log1p(d.Deviation / d.Mean * (d.Deviation / d.Mean));
        mean_ = std::log(d.Mean) - variance / 2;
        deviation_ = std::sqrt(variance);
    }
    below_ = ShareBelow(d.Lower);
    within_ = ShareBelow(d.Upper) - below_;
}

bool Sampler::LeavesSomething() const {
    return within_ > LeastShare;
}

double Sampler::ShareBelow(double x) const {
    if (std::isinf(x)) {
        return x > 0 ? 1 : 0;
    }
    if (logarithm_) {
        return x > 0 ? NormalShare((std::log(x) - mean_) / deviation_) : 0;
    }
    return NormalShare((x - mean_) / deviation_);
}

double Sampler::At(double share) const {
    const Distribution& d = distribution_;
    if (d.What == Kind::Uniform) {
        return d.From + share * (d.To - d.From);
    }
    if (d.What == Kind::Triangular) {
        const double whole = d.To - d.From;
        const double left = (d.Mode - d.From) / whole;
        return share <= left ? d.From + std::sqrt(share * whole * (d.Mode - d.From))
                             : d.To - std::sqrt((1 - share) * whole * (d.To - d.Mode));
    }
    const double x = mean_ + deviation_ * NormalQuantile(below_ + share * within_);
    return std::fmin(std::fmax(logarithm_ ? std::exp(x) : x, d.Lower), d.Upper);
}

double Quantile(const Distribution& distribution, double share) {
    return Sampler(distribution).At(share);
}

double EvenNumber(std::uint64_t seed, std::uint64_t row, std::uint64_t column) {
    const std::uint64_t x = Mixed(Mixed(Mixed(seed + Golden) + Golden * (row + 1)) + Golden * (column + 1));
    return (static_cast<double>(x >> 11U) + 0.5) * 0x1p-53;
}

}  // namespace zirvo::study
