// Named distributions, and numbers drawn from them that depend on seed, row and column alone, so that any part of a
// sample can be made by itself. Caller: the study file, the work on a row.
#pragma once
#include <cstdint>
#include <string>

namespace zirvo::study {

struct Distribution {
    enum class Kind { Uniform, Triangular, Normal, Lognormal };

    Kind What = Kind::Uniform;
    double From = 0;       ///< uniform, triangular
    double Mode = 0;       ///< triangular
    double To = 0;         ///< uniform, triangular
    double Mean = 0;       ///< of the values themselves: normal, lognormal
    double Deviation = 0;  ///< standard, of the values themselves
    double Lower = 0;      ///< nothing below and above is drawn: normal, lognormal; infinite where not wanted
    double Upper = 0;
};

/// Why the numbers of a distribution do not go together: "deviation 0: is not above 0"; empty if they do.
std::string ReasonAgainst(const Distribution& distribution);

/// A distribution with all that does not change from value to value worked out.
class Sampler {
public:
    Sampler() = default;
    /// The numbers of the distribution go together.
    explicit Sampler(const Distribution& distribution);

    /// The value below which a share of all values lies. @param share  above 0, at most 1
    double At(double share) const;
    const Distribution& Of() const { return distribution_; }
    /// False where next to nothing lies between the ends.
    bool LeavesSomething() const;

private:
    Distribution distribution_;
    double mean_ = 0;  ///< of the normal number behind the value
    double deviation_ = 0;
    bool logarithm_ = false;
    double below_ = 0;   ///< share of the whole distribution below the lower end
    double within_ = 1;  ///< and between both ends

    double ShareBelow(double x) const;
};

/// The same of a distribution that is asked once.
double Quantile(const Distribution& distribution, double share);

/// A number above 0 and below 1, evenly spread. The same on every machine.
double EvenNumber(std::uint64_t seed, std::uint64_t row, std::uint64_t column);

}  // namespace zirvo::study
