// The rows of the fine matrix on an X-Z section. They are not evenly spread: they go by the gaps between the depth
// levels, and each layer has rows of its own, so that the two rows at an interface keep the values of either side.
// Callers: the reader of a section's results, the refinement, the overlays.
#pragma once
#include <cmath>

#include "contour/contour_map.h"

namespace zirvo {

/// Levels no farther apart than this have no rows between them [cm].
inline constexpr double LeastDepthGap = 0.001;

inline bool HasRoomForRows(const DepthGap& depths) {
    return std::fabs(depths.Bottom - depths.Top) > LeastDepthGap;
}

/// One gap between two levels of a layer, with its rows.
struct DepthBand {
    DepthGap Depths;
    bool HasRows = false;     ///< if not, the rows are those of the last gap above that had some
    bool OpensLayer = false;  ///< the first gap of a layer: its first row is shared with no gap above
    int FirstRow = 0;         ///< RefineFactor above the last one; 0 for both while there were none
    int LastRow = 0;
};

/// Visits the gaps of all layers from the top down.
/// @param hasRows  whether a DepthGap has rows
template <class HasRows, class Visit>
void VisitDepthBands(const CoarseGrid& grid, HasRows hasRows, Visit visit) {
    DepthBand band;
    for (int layer = 1; layer <= grid.LayerCount; ++layer) {
        for (int gap = 1; gap <= SubDivisionsY; ++gap) {
            band.Depths = DepthGapOf(grid, layer, gap);
            band.HasRows = hasRows(band.Depths);
            band.OpensLayer = gap == 1;
            if (band.HasRows) {
                band.LastRow += band.OpensLayer ? RefineFactor + 1 : RefineFactor;
                band.FirstRow = band.LastRow - RefineFactor;
            }
            visit(band);
        }
    }
}

}  // namespace zirvo
