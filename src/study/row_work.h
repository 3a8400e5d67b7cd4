// The work on one row of a study: its pavement, its solution, what is kept. Caller: the run of a study.
#pragma once
#include <string>
#include <vector>

#include "solver/problem.h"
#include "study/study.h"

namespace zirvo::study {

/// What becomes of a row.
struct RowResult {
    std::vector<double> Values;  ///< of the parameters, then what is kept; only the first where the row is bad
    std::string Reason;          ///< why the row is bad; empty if it is not
};

/// Works row after row; each thread has one of its own. What does not change from row to row is made once.
///
/// Points follow their layers: one on the top or the bottom of a layer stays there, one between keeps its share of the
/// thickness; in the last layer it keeps its distance from the top.
class RowWork {
public:
    /// The study must outlive this object.
    explicit RowWork(const Study& study);

    void Run(std::uint64_t row, RowResult& result);

private:
    const Study& study_;
    solver::Problem base_;             // with the points alone that something is kept of
    std::vector<std::size_t> solved_;  // place among those of each point of the study
    std::vector<double> places_;       // of the points: share of the thickness, or cm below the top of the last layer
    solver::Problem problem_;

    void PlacePoints();
    double ValueOf(const Kept& kept, const solver::Solution& solution) const;
};

}  // namespace zirvo::study
