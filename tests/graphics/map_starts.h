// What the tests of a start button share: pavements at hand that lead to a question or a refusal, and how it ended.
#pragma once
#include <string>
#include <vector>

#include "graphics/screens.h"
#include "pavement/graphics_input.h"

namespace zirvo::test {

/// The fault that ended the program; 0 if none did.
int FaultOf(const Screens& screens);

/// The example with a second interface: 5 cm and 15 cm.
GraphicsInputData ThreeLayers();

/// A layer of 5.004 cm: its bottom, rounded to 2 decimals, lies in the layer above.
GraphicsInputData RoundedTop();

/// Loads side by side, each with three gaps of its own: 18 positions an axis for each, and 7 more.
GraphicsInputData LoadsSideBySide(Int16 count);

/// 100 of them: 1807 positions an axis.
GraphicsInputData ManyLoads();

/// The names of the buttons that can be pressed.
std::string EnabledButtons(const Form6& form);

}  // namespace zirvo::test
