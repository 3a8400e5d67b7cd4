// One row, see row_work.h.
#include "study/row_work.h"

#include <algorithm>
#include <cmath>

#include "base/decimal15.h"
#include "solver/check_problem.h"
#include "solver/io/unit_systems.h"
#include "solver/solve.h"

namespace zirvo::study {
namespace {

/// A result that may be off by more than this share is none. Pavements stay below 2E-7 (docs/theory.md, 7); what lies
/// beyond is out of the solver's reach, like a film of 0.1 mm at the edge of a load of 1 km.
constexpr double LargestBound = 1e-6;

std::vector<double> TopsOf(const solver::Problem& problem) {
    std::vector<double> tops{0};
    for (std::size_t i = 0; i + 1 < problem.Layers.size(); ++i) {
        tops.push_back(tops.back() + problem.Layers[i].Thickness);
    }
    return tops;
}

bool AllFinite(const solver::Solution& solution) {
    return std::all_of(solution.Points.begin(), solution.Points.end(), [](const solver::PointResult& point) {
        return std::all_of(point.Values.begin(), point.Values.end(), [](double x) { return std::isfinite(x); });
    });
}

}  // namespace

RowWork::RowWork(const Study& study) : study_(study), base_(study.Base), solved_(study.Base.Points.size()) {
    std::vector<bool> wanted(study.Base.Points.size());
    for (const Kept& kept : study.Keep) {
        for (const std::size_t point : kept.Points) {
            wanted[point] = true;
        }
    }
    base_.Points.clear();
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        if (wanted[i]) {
            solved_[i] = base_.Points.size();
            base_.Points.push_back(study.Base.Points[i]);
        }
    }
    const std::vector<double> tops = TopsOf(base_);
    for (const solver::Point& point : base_.Points) {
        const auto layer = static_cast<std::size_t>(point.Layer) - 1;
        const double below = point.Z - tops[layer];
        const bool last = layer + 1 == tops.size();
        places_.push_back(last ? below : std::clamp(below / base_.Layers[layer].Thickness, 0.0, 1.0));
    }
}

void RowWork::PlacePoints() {
    const std::vector<double> tops = TopsOf(problem_);
    for (std::size_t i = 0; i < places_.size(); ++i) {
        const auto layer = static_cast<std::size_t>(problem_.Points[i].Layer) - 1;
        const double thickness = layer + 1 == tops.size() ? 1 : problem_.Layers[layer].Thickness;
        problem_.Points[i].Z = tops[layer] + places_[i] * thickness;
    }
}

double RowWork::ValueOf(const Kept& kept, const solver::Solution& solution) const {
    double found = 0;
    bool first = true;
    for (const std::size_t ofStudy : kept.Points) {
        const std::size_t point = solved_[ofStudy];
        const auto& values = solution.Points[point].Values;
        double value = values[static_cast<std::size_t>(kept.Component)];
        bool better = value > found;
        if (kept.What == Kept::Kind::ShortestLife) {
            const double typed =
                study_.Units == solver::UnitSystem::KnToMpa ? 1 : solver::MpaPerKgf;  // of the moduli in MPa
            const auto layer = static_cast<std::size_t>(problem_.Points[point].Layer) - 1;
            value = design::LifeOf(kept.Function, design::StrainOf(kept.Function.Kind, values) / solver::MicroPerStrain,
                                   problem_.Layers[layer].Modulus * typed, kept.MixFactor);
            better = value < found;
        } else if (kept.What == Kept::Kind::Smallest) {
            better = value < found;
        } else if (kept.What == Kept::Kind::LargestSize) {
            better = std::fabs(value) > std::fabs(found);
        }
        if (first || better) {
            found = value;
        }
        first = false;
    }
    return found;
}

void RowWork::Run(std::uint64_t row, RowResult& result) {
    result.Reason.clear();
    study_.ValuesOf(row, result.Values);
    problem_ = base_;
    for (std::size_t i = 0; i < study_.Vary.size(); ++i) {
        SetParameter(study_.Vary[i].What, result.Values[i], problem_);
    }
    PlacePoints();
    if (const auto faults = solver::CheckProblem(problem_); !faults.empty()) {
        result.Reason = faults.front().Text();
        return;
    }
    if (study_.Units == solver::UnitSystem::KnToMpa) {
        for (solver::Load& load : problem_.Loads) {
            load.Vertical *= solver::MpaCm2PerKn;
            load.Horizontal *= solver::MpaCm2PerKn;
        }
    }
    solver::Solution solution = solver::Solve(problem_, {.Threads = 1});
    if (!AllFinite(solution)) {
        result.Reason = "a result is no finite number: such numbers are no pavement";
        return;
    }
    if (!(solution.LargestEstimate <= LargestBound)) {
        result.Reason = "the bound of the relative error of a result is " +
                        ScientificText(solution.LargestEstimate, 1) + ": nothing is known of it";
        return;
    }
    for (solver::PointResult& point : solution.Points) {
        point.Values = solver::ToOutputUnits(point.Values, study_.Units);
    }
    for (const Kept& kept : study_.Keep) {
        result.Values.push_back(ValueOf(kept, solution));
    }
}

}  // namespace zirvo::study
