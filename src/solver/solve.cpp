// The whole solution: chunks of depths, shared among threads. What is shared, here and within a chunk, hangs on the
// problem alone and needs nothing of its neighbours, so that the answer does not depend on the number of threads.
#include "solver/solve.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <thread>

#include "solver/chunk_work.h"
#include "solver/crew.h"
#include "solver/direct_plan.h"
#include "solver/direct_sum.h"
#include "solver/direct_work.h"
#include "solver/half_space.h"
#include "solver/solve_with.h"

namespace zirvo::solver {

namespace {

constexpr std::size_t SmallWork = 1000;  // pairs of points and loads
constexpr double SmallKernels = 1e5;     // of all nodes of a sum [ns, roughly]
constexpr double Nodes = 220;            // of a sum, roughly
constexpr double Budget = 6e10;  // of all sums [ns, roughly]: no pavement comes near it, absurd numbers must end too

LoadScale ScaleOf(const Problem& problem) {
    LoadScale scale;
    for (const Load& load : problem.Loads) {
        const double area = CircleArea(load.Radius);
        scale.Radius = std::max(scale.Radius, load.Radius);
        scale.Pressure = std::max({scale.Pressure, std::fabs(load.Vertical) / area, std::fabs(load.Horizontal) / area});
    }
    return scale;
}

/// A road's few hundred pairs of points and loads are done before a second thread has started.
bool IsSmall(const Work& work) {
    const double sets = work.Layers.Slips ? static_cast<double>(work.Groups.size()) : 1;
    return work.TheProblem.Points.size() * work.TheProblem.Loads.size() <= SmallWork &&
           Nodes * sets * FieldCost(work.Layers, true, true) <= SmallKernels;
}

/// True where all numbers are such that the sums are finite in size and in time. Beyond lie numbers that are no
/// pavement.
bool WithinReach(const Problem& problem) {
    constexpr double Largest = 1e12;
    constexpr double Smallest = 1e-12;
    constexpr double LargestModulus = 1e30;
    constexpr double LargestContrast = 1e15;  // beyond, a double holds nothing of the soft layer beside the stiff one
    constexpr double LargestForce = 1e100;
    const auto length = [](double x) { return std::fabs(x) <= Largest; };
    const auto size = [](double x) { return x >= Smallest && x <= Largest; };
    const auto force = [](double x) { return std::fabs(x) <= LargestForce; };
    for (std::size_t i = 0; i < problem.Layers.size(); ++i) {
        const Layer& layer = problem.Layers[i];
        const bool last = i + 1 == problem.Layers.size();
        if (!(layer.Modulus >= 1 / LargestModulus && layer.Modulus <= LargestModulus) ||
            !(last || size(layer.Thickness))) {
            return false;
        }
    }
    const auto [softest, stiffest] =
        std::minmax_element(problem.Layers.begin(), problem.Layers.end(),
                            [](const Layer& a, const Layer& b) { return a.Modulus < b.Modulus; });
    if (stiffest->Modulus > LargestContrast * softest->Modulus) {
        return false;
    }
    const bool loads = std::all_of(problem.Loads.begin(), problem.Loads.end(), [&](const Load& load) {
        return size(load.Radius) && length(load.X) && length(load.Y) && force(load.Vertical) &&
               force(load.Horizontal) && force(load.Angle);
    });
    return loads && std::all_of(problem.Points.begin(), problem.Points.end(), [&](const Point& point) {
               return length(point.X) && length(point.Y) && length(point.Z);
           });
}

/// Asking the machine opens files: a tenth of a small problem's time.
std::size_t ThreadsOf(const SolveOptions& options) {
    return options.Threads > 0 ? static_cast<std::size_t>(options.Threads)
                               : std::max(1U, std::thread::hardware_concurrency());
}

}  // namespace

Solution SolveWith(const Engine& engine, const Problem& problem, const SolveOptions& options) {
    Solution solution;
    solution.Points.resize(problem.Points.size());
    if (!WithinReach(problem)) {
        for (PointResult& point : solution.Points) {
            point.Values.fill(std::numeric_limits<double>::quiet_NaN());
            point.Estimates.fill(std::numeric_limits<double>::infinity());
        }
        solution.LargestEstimate = std::numeric_limits<double>::infinity();
        return solution;
    }
    std::vector<LoadGroup> groups = GroupLoads(problem);
    const LoadScale scale = ScaleOf(problem);
    Work work{problem, LayerTable(problem), std::move(groups), engine, scale, solution.Points};
    Crew crew(IsSmall(work) ? 1 : std::min(ThreadsOf(options), problem.Points.size()));
    work.Helpers = &crew;
    auto chunks = WithEdgeChunks(work, WithDirectChunks(work, PlanDepths(problem, MostSources, &crew)));
    // The largest first, so that little is left for one thread alone.
    std::stable_sort(chunks.begin(), chunks.end(),
                     [](const DepthChunk& a, const DepthChunk& b) { return a.Points.size() > b.Points.size(); });
    const double budget = Budget / static_cast<double>(chunks.size());
    crew.Share(chunks.size(), [&](std::size_t i) {
        if (chunks[i].Direct) {
            DirectWork(work, chunks[i], budget).Run();
        } else {
            ChunkWork(work, chunks[i], budget, false).Run();
        }
    });
    for (const PointResult& point : solution.Points) {
        for (const double estimate : point.Estimates) {
            solution.LargestEstimate = std::max(solution.LargestEstimate, estimate);
        }
    }
    return solution;
}

Solution Solve(const Problem& problem, const SolveOptions& options) {
    return SolveWith(BestEngine(), problem, options);
}

}  // namespace zirvo::solver
