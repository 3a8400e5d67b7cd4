// From the coarse values of the solver to the fine matrix that is drawn. Caller: the reader of a section's results,
// which has put each coarse value into its node.
#pragma once
#include <span>
#include <vector>

#include "contour/contour_map.h"

namespace zirvo {

/// The fine axis of coarse positions: each interval cut into RefineFactor equal parts, whatever its width; coarse
/// position i stands at index RefineFactor * (i - 1) + 1. 1-based: entry 0 is unused, here and there. One position or
/// none gives an empty axis.
std::vector<double> BuildFineAxis(std::span<const FixedPoint4> grid);

/// Fills the nodes between the coarse ones by bilinear interpolation, on an X-Y section, where both axes are evenly
/// numbered. Fault 9 if matrix or axes are smaller than the grid asks for.
void RefineMatrixXY(ContourField& field, const CoarseGrid& grid);

/// The same on an X-Z section, whose rows follow the gaps between the depth levels of each layer. Nothing is smoothed
/// across an interface: a jump of the strain stays a jump.
void RefineMatrixXZ(ContourField& field, const CoarseGrid& grid);

}  // namespace zirvo
