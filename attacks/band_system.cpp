#include "band_system.h"

#include <algorithm>
#include <utility>

namespace zirvo::attack {

BandSystem::BandSystem(std::size_t size, std::size_t below, std::size_t above, std::size_t sides)
    : size_(size),
      below_(below),
      above_(above + below),  // rows that pivoting moves up bring their own width
      sides_(sides),
      width_(2 * below + above + 1),
      matrix_(size * width_),
      right_(size * sides) {}

void BandSystem::ScaleRows() {
    for (std::size_t row = 0; row < size_; ++row) {
        double largest = 0;
        for (std::size_t i = 0; i < width_; ++i) {
            largest = std::max(largest, Size(matrix_[row * width_ + i]));
        }
        const Two scale = std::ldexp(1.0, -std::ilogb(largest));
        for (std::size_t i = 0; i < width_; ++i) {
            matrix_[row * width_ + i] *= scale;
        }
        for (std::size_t i = 0; i < sides_; ++i) {
            Side(row, i) *= scale;
        }
    }
}

void BandSystem::Eliminate(std::size_t column) {
    const std::size_t lastRow = std::min(size_ - 1, column + below_);
    const std::size_t lastColumn = std::min(size_ - 1, column + above_);
    std::size_t pivot = column;
    for (std::size_t row = column + 1; row <= lastRow; ++row) {
        if (Size(At(row, column)) > Size(At(pivot, column))) {
            pivot = row;
        }
    }
    if (pivot != column) {
        for (std::size_t i = column; i <= lastColumn; ++i) {
            std::swap(At(column, i), At(pivot, i));
        }
        for (std::size_t i = 0; i < sides_; ++i) {
            std::swap(Side(column, i), Side(pivot, i));
        }
    }
    const Two inverse = Two(1) / At(column, column);
    for (std::size_t row = column + 1; row <= lastRow; ++row) {
        if (At(row, column).Hi == 0) {
            continue;
        }
        const Two factor = At(row, column) * inverse;
        for (std::size_t i = column + 1; i <= lastColumn; ++i) {
            if (At(column, i).Hi != 0) {
                At(row, i) -= factor * At(column, i);
            }
        }
        for (std::size_t i = 0; i < sides_; ++i) {
            Side(row, i) -= factor * Side(column, i);
        }
        At(row, column) = 0;
    }
}

void BandSystem::Solve() {
    ScaleRows();
    for (std::size_t column = 0; column < size_; ++column) {
        Eliminate(column);
    }
    for (std::size_t row = size_; row-- > 0;) {
        const std::size_t lastColumn = std::min(size_ - 1, row + above_);
        const Two inverse = Two(1) / At(row, row);
        for (std::size_t side = 0; side < sides_; ++side) {
            Two sum = Side(row, side);
            for (std::size_t i = row + 1; i <= lastColumn; ++i) {
                sum -= At(row, i) * Side(i, side);
            }
            Side(row, side) = sum * inverse;
        }
    }
}

}  // namespace zirvo::attack
