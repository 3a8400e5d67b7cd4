// The map that the contour benchmarks take: 3000 by 3000 nodes on 1000 by 1000 pixels.
#pragma once
#include "contour/draw_contour_map.h"

namespace zirvo::bench {

inline constexpr int LargeFieldNodes = 3000;
inline constexpr int LargePictureSize = 1000;

/// Four load-like humps on a flat ground, values between -1E-4 and 4E-4.
const ContourField& LargeField();

/// The field as an X-Y section.
ContourMap LargeMap();

/// Fill, 20 levels of lines, frame, title and legend.
MapView LargeView();

}  // namespace zirvo::bench
