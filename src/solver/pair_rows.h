// What one load does at one point, from the sums of its layered part: the closed form of layer 1, the point's sums and
// their errors.
#pragma once
#include "solver/depth_plan.h"
#include "solver/level_sum.h"
#include "solver/superposition.h"
#include "solver/work.h"

namespace zirvo::solver {

/// Adds the half-space of layer 1 to the rows of a point in that layer, and its rounding to their errors.
void AddHalfSpace(const Work& work, const PointDepth& depth, const GroupLoad& load, double radius, double gap,
                  double* rows, SumErrors& errors);

/// Adds one load's rows and their errors to a point of depth z.
/// @param rows  changed on the axis, where most of them vanish
void AddLoad(const GroupLoad& load, const PolarPosition& position, double radius, double gap, double z, double* rows,
             const SumErrors& errors, PointSums& sums);

/// The same, and how sharply the rows see the rounding of the point's place.
/// @param exactGap  the sums were made with `gap` as it is, not with the difference of two rounded radii
void AddToPoint(const Work& work, const PointDepth& depth, const GroupLoad& load, const PolarPosition& position,
                double radius, double gap, bool exactGap, double* rows, const SumErrors& errors, PointSums& sums);

}  // namespace zirvo::solver
