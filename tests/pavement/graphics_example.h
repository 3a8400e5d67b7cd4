// What several tests of the graphics path share: a pavement at hand and its file.
#pragma once
#include <string>
#include <vector>

#include "pavement/graphics_input.h"
#include "pavement/support.h"

namespace zirvo::test {

/// Two layers (35000, 0.35, 5, 0 and 1000, 0.4), 5000 kgf on radius 15 at the origin.
GraphicsInputData ExampleData();

/// The bytes of its file in English under UnitSystem 1, put together by hand.
std::string ExampleVen();

/// The lines of a text whose lines all end in CR LF; anything else fails the test.
std::vector<std::string> CrLfLines(const std::string& bytes);

}  // namespace zirvo::test
