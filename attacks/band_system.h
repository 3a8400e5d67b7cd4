// A banded system of linear equations in two-part numbers with partial pivoting.
#pragma once
#include <cstddef>
#include <vector>

#include "two_part.h"

namespace zirvo::attack {

class BandSystem {
public:
    /// @param below, above  diagonals below and above the main one; @param sides  right-hand sides
    BandSystem(std::size_t size, std::size_t below, std::size_t above, std::size_t sides);

    Two& At(std::size_t row, std::size_t column) { return matrix_[row * width_ + column + below_ - row]; }
    Two& Side(std::size_t row, std::size_t side) { return right_[row * sides_ + side]; }

    /// Solves; the solutions stand in Side. Rows are scaled to 1 first.
    void Solve();

private:
    void ScaleRows();
    void Eliminate(std::size_t column);

    std::size_t size_, below_, above_, sides_, width_;
    std::vector<Two> matrix_, right_;
};

}  // namespace zirvo::attack
