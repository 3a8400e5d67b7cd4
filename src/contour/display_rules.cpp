// The rules of what may be shown together and typed beside a map.
#include "contour/display_rules.h"

#include <algorithm>

namespace zirvo {

DisplayRuling JudgeDisplayItems(DisplayItems items) {
    DisplayRuling ruling;
    ruling.ItemsCorrected = items.AnalyticalResults && (!items.AnalyticalPoints || items.Legend);
    if (ruling.ItemsCorrected) {
        items.AnalyticalPoints = true;
        items.Legend = false;
    }
    ruling.Items = items;
    ruling.RedrawEnabled = items.ContourLines || items.Legend || items.AnalyticalPoints || items.AnalyticalResults;
    ruling.PanelEnabled = items.ContourLines;
    return ruling;
}

bool ValueRangeKeyPasses(int code) {
    const auto within = [code](int first, int last) { return first <= code && code <= last; };
    const bool dropped = code == 9 || code == 13 || code == 27 || within(33, 42) || code == ',' || code == '/' ||
                         within(58, 67) || within(70, 99) || within(102, 127);
    return !dropped;
}

Int16 AllowedContourLineCount(Int16 count) {
    return std::max(count, LeastContourLineCount);
}

}  // namespace zirvo
