// The sums over wavenumbers for one chunk of depths: all kernels at all its depths, for every group of loads and every
// radius or cell of radii, each with bounds of its errors.
#pragma once
#include <array>
#include <cstddef>
#include <vector>

#include "solver/crew.h"
#include "solver/depth_plan.h"
#include "solver/engine.h"
#include "solver/level_sum.h"
#include "solver/prepared_problem.h"
#include "solver/radius_plan.h"

namespace zirvo::solver {

/// How much work is put into a table.
struct TableCare {
    double Budget = 0;        ///< about how many nanoseconds it may take; what is cut off shows in the errors
    bool Precise = false;     ///< kernels in numbers of two parts
    int FirstRefinement = 0;  ///< the step of the nodes is halved so many times from the start
    Crew* Helpers = nullptr;  ///< of ShareWith
};

class SumTable {
public:
    /// Sums for all items at the chunk's sources. The items' Group is -1 for all or for none.
    SumTable(const LayerTable& layers, const std::vector<LoadGroup>& groups, const DepthChunk& chunk,
             std::vector<RadiusItem> items, const Engine& engine, const TableCare& care);

    const std::vector<RadiusItem>& Items() const { return items_; }

    /// Rows of the sums: [column][Stride(group)], ChebyshevCount columns in a cell (from its High to its Low), 1
    /// otherwise.
    const double* Rows(std::size_t group, std::size_t item, std::size_t source) const;
    int Stride(std::size_t group) const { return strides_[group]; }

    const SumErrors& Errors(std::size_t group, std::size_t item, std::size_t source) const;

    /// What interpolation in z adds to the errors, for a chunk on Chebyshev nodes in z.
    /// @param sizes  the largest sums, of the same kinds
    SumErrors DepthErrors(std::size_t group, std::size_t item, SumErrors& sizes) const;

    /// The largest errors of an item over the chunk's sources.
    SumErrors LargestErrors(std::size_t group, std::size_t item) const;

    /// All rows of a group at one depth between the Chebyshev nodes of the chunk, for `RowsIn`.
    void InterpolateDepth(std::size_t group, const std::array<double, ChebyshevCount>& weights,
                          std::vector<double>& rows) const;

    /// Rows of an item in what InterpolateDepth gave; as Rows.
    const double* RowsIn(const std::vector<double>& rows, std::size_t group, std::size_t item) const;

    /// False where interpolation in r misses its goal: the cells want to be narrower. Slip can bring the singularities
    /// nearer than the depth tells.
    bool Smooth() const { return smooth_; }

private:
    std::size_t SlotOf(std::size_t group, std::size_t item) const {
        return items_[item].Group < 0 ? group * items_.size() + item : item;
    }
    void Take(const LevelSum& sum, const RadiusLevel& level, const std::vector<LoadGroup>& groups, std::size_t index);

    struct Place {
        std::size_t Level = 0, Column = 0;
    };
    struct Block {
        std::size_t Columns = 0;
        std::vector<double> Rows;
    };
    std::vector<RadiusItem> items_;
    std::vector<Place> places_;
    std::vector<std::vector<Block>> blocks_;  // [level][group]
    std::vector<SumErrors> errors_;           // [slot of group and item][source]
    std::vector<int> strides_;                // [group]
    std::size_t sources_ = 0;
    bool smooth_ = true;
};

}  // namespace zirvo::solver
