// The last thing that a chunk tries for points whose bounds are not good enough, worst first: all loads in one sum.
#include <algorithm>

#include "solver/chunk_work.h"
#include "solver/joint_sum.h"
#include "solver/pair_rows.h"

namespace zirvo::solver {

namespace {

constexpr double JointShare = 0.3;  // of the budget
// For places that miss the promise: more than all that the sums with less care had, but no more than 2 s for 100
// points.
constexpr double AlarmShare = 40;
constexpr double AlarmCost = 2e7;  // nanoseconds for a point

}  // namespace

void ChunkWork::DoJointly() const {
    struct Place {
        double Worst = 0;
        std::size_t First = 0, Last = 0;
    };
    std::size_t loads = 0;
    for (const LoadGroup& group : work_.Groups) {
        loads += group.Loads.size();
    }
    if (loads < 2) {
        return;
    }
    std::vector<Place> places;
    for (std::size_t first = 0; first < chunk_.Points.size();) {
        Place place{0, first, first};
        while (place.Last < chunk_.Points.size() && chunk_.Points[place.Last].X == chunk_.Points[first].X &&
               chunk_.Points[place.Last].Y == chunk_.Points[first].Y) {
            place.Worst = std::max(place.Worst, WorstEstimate(work_.Results[chunk_.Points[place.Last].Point]));
            ++place.Last;
        }
        if (!(place.Worst <= RedoGoal)) {
            places.push_back(place);
        }
        first = place.Last;
    }
    std::stable_sort(places.begin(), places.end(), [](const Place& a, const Place& b) { return a.Worst > b.Worst; });
    double budget = JointShare * budget_;
    double alarmBudget = std::min(AlarmShare * budget_, AlarmCost * static_cast<double>(chunk_.Points.size()));
    alarmBudget = std::max(alarmBudget, budget);
    std::vector<JointPlace> joints;
    for (const Place& place : places) {
        JointPlace joint = JointAt(place.First, place.Last);
        double& left = place.Worst > PromisedError ? alarmBudget : budget;
        if (joint.Sum->Cost() <= left) {  // else nothing: too dear
            left -= joint.Sum->Cost();
            joints.push_back(std::move(joint));
        }
    }
    ShareWith(work_.Helpers, joints.size(), [&](std::size_t i) {
        JoinPlace(joints[i]);
        joints[i].Sum.reset();  // its kernels are large
    });
}

/// What points first .. last - 1, all of one place, want of a sum of all loads.
ChunkWork::JointPlace ChunkWork::JointAt(std::size_t first, std::size_t last) const {
    JointPlace place;
    for (std::size_t i = first; i < last; ++i) {
        const auto depth = static_cast<std::size_t>(chunk_.Points[i].Depth);
        if (!(WorstEstimate(work_.Results[chunk_.Points[i].Point]) <= RedoGoal)) {
            place.Sources.push_back(chunk_.Sources[depth]);
            place.Points.push_back(i);
        }
    }
    place.Sum = std::make_unique<JointSum>(work_.TheProblem, work_.Layers, work_.TheEngine, work_.Scale,
                                           chunk_.Points[first].X, chunk_.Points[first].Y, place.Sources);
    return place;
}

void ChunkWork::JoinPlace(const JointPlace& place) const {
    const auto& [sources, points, joint] = place;
    const double x = chunk_.Points[points.front()].X;
    const double y = chunk_.Points[points.front()].Y;
    std::vector<PointSums> sums = joint->Run();
    for (const LoadGroup& group : work_.Groups) {
        for (const GroupLoad& load : group.Loads) {
            const PolarPosition position = PositionFrom(load, x, y);
            const double gap = ExactGapFrom(load, group.Radius, position, x, y);
            for (std::size_t i = 0; i < points.size(); ++i) {
                if (sources[i].Layer > 0) {
                    continue;
                }
                alignas(64) double rows[RowStride] = {};
                SumErrors errors;
                const auto depth = static_cast<std::size_t>(chunk_.Points[points[i]].Depth);
                AddHalfSpace(work_, chunk_.Depths[depth], load, group.Radius, gap, rows, errors);
                AddLoad(load, position, group.Radius, gap, sources[i].Z, rows, errors, sums[i]);
            }
        }
    }
    for (std::size_t i = 0; i < points.size(); ++i) {
        const auto layer = static_cast<std::size_t>(sources[i].Layer);
        Keep(chunk_.Points[points[i]].Point, ComposeResult(sums[i], work_.Layers.M2[layer], work_.Layers.Nu[layer],
                                                           sources[i].Z == 0 && layer == 0, work_.Scale));
    }
}

}  // namespace zirvo::solver
