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

/// The value below which a share of all values lies. @param share  above 0, below 1
double Quantile(const Distribution& distribution, double share);

/// A number above 0 and below 1, evenly spread. The same on every machine.
double EvenNumber(std::uint64_t seed, std::uint64_t row, std::uint64_t column);

}  // namespace zirvo::study
