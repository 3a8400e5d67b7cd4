// The rules of what may be shown together and typed beside a map, as operations on plain values. Caller: the map
// screen.
#pragma once
#include "base/int16.h"
#include "contour/contour_map.h"

namespace zirvo {

/// What a click of any display item leads to.
struct DisplayRuling {
    DisplayItems Items;           ///< as they are to stand
    bool ItemsCorrected = false;  ///< the user is told that results come with their points and without the legend
    bool RedrawEnabled = false;   ///< fill alone does not count, by design
    bool PanelEnabled = false;    ///< the panel of contour lines opens only while lines are asked for

    bool operator==(const DisplayRuling&) const = default;
};

/// The rule: analytical results stand with their points and never with the legend. Its answer satisfies it, so that a
/// screen whose boxes ask again while they are being set must ask with the answer and tells the user but once.
DisplayRuling JudgeDisplayItems(DisplayItems items);

/// True if a key typed into the boxes of the value range is let through: digits, signs, the point, blanks, "D", "E",
/// "d", "e", what lies above code 127, and the control keys but Tab, Enter and Escape. The number as a whole is not
/// checked.
bool ValueRangeKeyPasses(int code);

/// The least number of contour lines; enforced when the panel closes and when a map is drawn again. There is no most.
inline constexpr Int16 LeastContourLineCount = 5;

/// The count that is used for the count that was asked for.
Int16 AllowedContourLineCount(Int16 count);

}  // namespace zirvo
