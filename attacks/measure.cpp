#include "measure.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <numbers>

#include "reference.h"
#include "solver/solve_with.h"

namespace zirvo::attack {

namespace {

constexpr std::array<std::size_t, 4> First = {solver::U, solver::SIGx, solver::EPSx, solver::ComponentCount};
constexpr double Floor = 1e-4;

template <class Values>
double Quantile(Values values, double share) {
    if (values.empty()) {
        return 0;
    }
    const auto at = values.begin() + static_cast<std::ptrdiff_t>(share * static_cast<double>(values.size() - 1));
    std::nth_element(values.begin(), at, values.end());
    return *at;
}

}  // namespace

std::vector<GroupError> Measure(const solver::Engine& engine, const solver::Problem& problem,
                                std::span<const solver::Point> crowd) {
    const auto truth = ReferenceValues(problem);
    std::vector<GroupError> errors;
    if (truth.empty()) {
        return errors;
    }
    solver::Problem crowded = problem;
    crowded.Points.insert(crowded.Points.end(), crowd.begin(), crowd.end());
    const solver::Solution solution = solver::SolveWith(engine, crowded, {1});
    double pressure = 0;
    double radius = 0;
    for (const solver::Load& load : problem.Loads) {
        const double area = std::numbers::pi * load.Radius * load.Radius;
        pressure = std::max({pressure, std::fabs(load.Vertical) / area, std::fabs(load.Horizontal) / area});
        radius = std::max(radius, load.Radius);
    }
    for (std::size_t p = 0; p < truth.size(); ++p) {
        const double modulus = problem.Layers[static_cast<std::size_t>(problem.Points[p].Layer - 1)].Modulus;
        const std::array<double, 3> unit = {pressure * radius / modulus, pressure, pressure / modulus};
        for (std::size_t g = 0; g < 3; ++g) {
            double largest = 0;
            double off = 0;
            for (std::size_t c = First[g]; c < First[g + 1]; ++c) {
                largest = std::max(largest, Size(truth[p][c]));
                const double error = Size(Two(solution.Points[p].Values[c]) - truth[p][c]);
                off = error <= off ? off : error;  // NaN stays
            }
            errors.push_back({p, g, off / (largest + Floor * unit[g]), solution.Points[p].Estimates[g]});
        }
    }
    return errors;
}

double PromiseOf(Family family) {
    return family == Family::Realistic || family == Family::Difficult ? 1e-10 : 1e-9;
}

bool Broken(const GroupError& e, double promise) {
    return !(e.Ratio() <= 1) || !(e.Error <= promise);
}

void Tally::Add(const std::vector<GroupError>& errors, double promise) {
    constexpr std::array<std::size_t, 3> Sizes = {3, 6, 6};
    problems_ += errors.empty() ? 0 : 1;
    for (const GroupError& e : errors) {
        ++groups_;
        values_ += Sizes[e.Group];
        errors_.push_back(static_cast<float>(e.Error));
        bounds_.push_back(static_cast<float>(e.Bound));
        beyond_ += e.Error <= promise ? 0 : 1;
        broken_ += Broken(e, promise) ? 1 : 0;
        below_ += e.Ratio() <= 1 ? 0 : 1;
        late_ += e.Bound > promise ? 1 : 0;
        alarms_ += e.Bound > 1e-9 && e.Error < 1e-10 ? 1 : 0;
        worstRatio_ = std::max(worstRatio_, e.Ratio());
        if (e.Error > 1e-14) {
            slack_.push_back(static_cast<float>(e.Bound / e.Error));
        }
    }
}

std::string Tally::Report(Family family) const {
    char text[600];
    std::snprintf(text, sizeof text,
                  "%-10s %zu problems, %zu values; error: median %.1e, 99 %% %.1e, largest %.1e\n"
                  "           groups beyond %.0e: %zu; errors above the bound: %zu (worst %.2g of it)\n"
                  "           bound: median %.1e, largest %.1e, above the promise %zu; over errors above 1E-14: median "
                  "%.0f, least %.1f\n"
                  "           alarms (bound above 1E-9, error below 1E-10): %zu of %zu groups\n",
                  std::string(NameOf(family)).c_str(), problems_, values_, Quantile(errors_, 0.5),
                  Quantile(errors_, 0.99), Quantile(errors_, 1), PromiseOf(family), beyond_, below_, worstRatio_,
                  Quantile(bounds_, 0.5), Quantile(bounds_, 1), late_, Quantile(slack_, 0.5), Quantile(slack_, 0),
                  alarms_, groups_);
    return text;
}

void Tally::AddPairs(std::vector<std::pair<double, double>>& pairs) const {
    for (std::size_t i = 0; i < errors_.size(); ++i) {
        pairs.emplace_back(errors_[i], bounds_[i]);
    }
}

}  // namespace zirvo::attack
