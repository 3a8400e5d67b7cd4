// The fixed works that the benchmarks take: pavements whose times can be compared from run to run.
#pragma once
#include "solver/solve.h"

namespace zirvo::bench {

/// (a) three layers, one wheel, 100 points: 20 places at 5 depths.
solver::Problem RoadWork();

/// (b) five layers, eight wheels, 1000 points: 100 places at 10 depths.
solver::Problem DualWheelWork();

/// One pavement of a study: three layers, one wheel, below its centre the bottom of layer 1 and the top of layer 3.
solver::Problem SmallStudyWork();

/// The same with the layers and wheels of (b): five places, at each the bottom of layer 2 and the top of layer 5.
solver::Problem WheelStudyWork();

/// (c) twenty layers, twenty wheels, 10000 points: 100 places at 100 depths.
solver::Problem GearWork();

/// The limit: 100 layers with slip below every third, 100 braking wheels of 20 radii, 10000 points: 100 places at 100
/// depths.
solver::Problem LimitWork();

/// The limit where nothing can be shared: a radius for each load, a place and a depth for each point.
solver::Problem HarshLimitWork();

/// A hundred layers, every second one a film 1E8 times as soft as the others, 100 braking wheels with a radius each,
/// and 100 points anywhere: kernels in two parts, with nothing to be shared but what loads of many radii have in
/// common.
/// @param slip  below every third layer
solver::Problem FilmsWork(double slip);

/// The harsh limit with such films.
solver::Problem HarshFilmsWork();

/// A pavement of `layers` layers, `loads` wheels and `points` points at `depths` depths; slip below every second layer
/// if wanted. Places are scattered with a fixed seed.
solver::Problem ScaledWork(int layers, int loads, int points, int depths, double slip);

/// Twenty braking wheels of four radii on four layers, 10000 points scattered in layer 1, each at a depth of its own.
solver::Problem ScatteredWork();

}  // namespace zirvo::bench
