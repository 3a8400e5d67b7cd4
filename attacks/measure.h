// What a comparison of the solver with the reference says, and its counts over many.
#pragma once
#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "families.h"
#include "solver/engine.h"

namespace zirvo::attack {

/// One group (displacements, stresses, strains) at one point. Both as shares of the group's largest true value plus
/// 1E-4 units of the load, as the solver's promise is meant.
struct GroupError {
    std::size_t Point = 0, Group = 0;
    double Error = 0, Bound = 0;

    double Ratio() const { return Error / (Bound + Nothing); }
    /// Below this an error is the last digit of a double: no bound needs to tell of it.
    static constexpr double Nothing = 1e-15;
};

/// Empty where the reference is too dear.
/// @param engine  the loops that the solver works with
/// @param crowd  further points that the solver is given too, so that it interpolates; they are not compared
std::vector<GroupError> Measure(const solver::Engine& engine, const solver::Problem& problem,
                                std::span<const solver::Point> crowd = {});

/// What is allowed: the promise of the family.
double PromiseOf(Family family);

/// True where a bound is below its error, or an error above the promise.
bool Broken(const GroupError& e, double promise);

class Tally {
public:
    void Add(const std::vector<GroupError>& errors, double promise);
    /// Lines of a table.
    std::string Report(Family family) const;
    /// Adds its pairs of errors and bounds, for the plot.
    void AddPairs(std::vector<std::pair<double, double>>& pairs) const;
    bool Clean() const { return broken_ == 0; }

private:
    std::size_t problems_ = 0, values_ = 0, groups_ = 0, beyond_ = 0, below_ = 0, broken_ = 0, alarms_ = 0, late_ = 0;
    double worstRatio_ = 0;
    std::vector<float> errors_, bounds_, slack_;  // slack: bound over error, of errors above 1E-14
};

}  // namespace zirvo::attack
