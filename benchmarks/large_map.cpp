// The large map, see large_map.h.
#include "large_map.h"

#include <cmath>

namespace zirvo::bench {

const ContourField& LargeField() {
    static const ContourField field = [] {
        ContourField made;
        made.Values = ValueMatrix(LargeFieldNodes + 1, LargeFieldNodes + 1);
        for (int n = 1; n <= LargeFieldNodes; ++n) {
            made.FineAxis1.push_back(0.1 * n);
            made.FineAxis2.push_back(0.1 * n);
        }
        const double centres[4][2] = {{80, 90}, {115, 90}, {80, 225}, {115, 225}};
        for (int j = 1; j <= LargeFieldNodes; ++j) {
            for (int i = 1; i <= LargeFieldNodes; ++i) {
                double value = -1e-4;
                for (const auto& centre : centres) {
                    value += 4e-4 * std::exp(-std::hypot(0.1 * i - centre[0], 0.1 * j - centre[1]) / 30);
                }
                made.Values.At(i, j) = value;
            }
        }
        return made;
    }();
    return field;
}

ContourMap LargeMap() {
    ContourMap map;
    map.Field = LargeField();
    map.Extent = {0.1, 300, 0.1, 300};
    map.ValueMin = -1e-4;
    map.ValueMax = 4e-4;
    return map;
}

MapView LargeView() {
    MapView view;
    view.Items.ContourLines = true;
    view.Plot = GeometryOfPixels(LargePictureSize, LargePictureSize);
    view.Title = MakeTitleText(SectionKind::XY, 1, "0", 1, "");
    return view;
}

}  // namespace zirvo::bench
