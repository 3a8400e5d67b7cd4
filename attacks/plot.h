// The plot of docs/theory.md: errors against bounds, both in powers of ten.
#pragma once
#include <string>
#include <utility>
#include <vector>

namespace zirvo::attack {

/// An SVG picture: each square of a quarter of a power holds the darker the more pairs (error, bound) lie in it; below
/// the diagonal a bound would be broken.
std::string PlotText(const std::vector<std::pair<double, double>>& errorsAndBounds);

}  // namespace zirvo::attack
