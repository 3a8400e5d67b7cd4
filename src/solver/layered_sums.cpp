#include "solver/layered_sums.h"

#include <algorithm>
#include <cmath>

#include "solver/sum_rules.h"
#include "solver/tables.h"

namespace zirvo::solver {

SumTable::SumTable(const LayerTable& layers, const std::vector<LoadGroup>& groups, const DepthChunk& chunk,
                   std::vector<RadiusItem> items, const Engine& engine, const TableCare& care)
    : items_(std::move(items)), places_(items_.size()), sources_(chunk.Sources.size()) {
    errors_.resize((items_.front().Group < 0 ? groups.size() : 1) * items_.size() * sources_);
    bool horizontal = false;
    for (const LoadGroup& group : groups) {
        horizontal = horizontal || group.Horizontal;
        strides_.push_back(group.Horizontal ? RowStride : VerticalStride);
    }
    double ze = chunk.Sources.front().Effective;
    for (const SourceDepth& source : chunk.Sources) {
        ze = std::min(ze, source.Effective);
    }
    // Nanoseconds a node, roughly: a layer's state, a depth's fields, the Bessel functions of a radius, a
    // multiplication.
    const double kernelSets = layers.Slips ? static_cast<double>(groups.size()) : 1;
    const double cases = horizontal ? 2.5 : 1;
    const auto sources = static_cast<double>(sources_);
    LevelCosts costs;
    costs.Mild = !layers.Slips && layers.Contrast <= MildContrast;
    costs.PerNode = (care.Precise ? PreciseCost : 1) * kernelSets *
                    (30 * static_cast<double>(std::min<std::size_t>(layers.M2.size(), 20)) + 8 * cases * sources);
    const double served = items_.front().Group < 0 ? static_cast<double>(groups.size()) : 1;
    costs.PerNodeAndColumn = 8 + 0.6 * cases * sources * served;
    const auto levels = SplitIntoLevels(items_, ze, layers.LowScale, costs);
    blocks_.resize(levels.size());
    std::vector<unsigned char> smooth(levels.size());
    ShareWith(care.Helpers, levels.size(), [&](std::size_t i) {
        double columns = 0;
        for (const std::size_t item : levels[i].Items) {
            columns += items_[item].Group < 0 ? ChebyshevCount : 1;
        }
        const double nodes =
            care.Budget / static_cast<double>(levels.size()) / (costs.PerNode + costs.PerNodeAndColumn * columns);
        const SumCare sumCare{care.Precise, care.FirstRefinement, std::clamp(nodes, FewestNodes, MostNodes)};
        LevelSum sum({layers, groups, chunk, items_, engine}, levels[i], sumCare);
        sum.Run();
        Take(sum, levels[i], groups, i);
        smooth[i] = sum.Smooth() ? 1 : 0;
    });
    smooth_ = std::find(smooth.begin(), smooth.end(), 0) == smooth.end();
}

/// The rows of a level, side by side for interpolation, and their errors.
void SumTable::Take(const LevelSum& sum, const RadiusLevel& level, const std::vector<LoadGroup>& groups,
                    std::size_t index) {
    blocks_[index].resize(groups.size());
    for (const std::size_t item : level.Items) {
        places_[item] = {index, sum.ColumnOf(item)};
    }
    for (std::size_t g = 0; g < groups.size(); ++g) {
        Block& block = blocks_[index][g];
        const auto stride = static_cast<std::size_t>(strides_[g]);
        block.Columns = sum.Columns(g);
        if (block.Columns == 0) {
            continue;  // all of the level's radii are other groups' alone
        }
        block.Rows.assign(sources_ * block.Columns * stride, 0);
        const int firstRow = groups[g].Vertical ? 0 : VerticalRows;
        const int lastRow = groups[g].Horizontal ? static_cast<int>(RowCount) : VerticalRows;
        for (int row = firstRow; row < lastRow; ++row) {
            for (std::size_t d = 0; d < sources_; ++d) {
                const double* from = sum.Row(g, row, d);
                double* to = block.Rows.data() + d * block.Columns * stride + static_cast<std::size_t>(row);
                for (std::size_t c = 0; c < block.Columns; ++c) {
                    to[c * stride] = from[c];
                }
            }
        }
        for (const std::size_t item : level.Items) {
            const int owner = items_[item].Group;
            for (std::size_t d = 0; d < sources_ && (owner < 0 || owner == static_cast<int>(g)); ++d) {
                errors_[SlotOf(g, item) * sources_ + d] = sum.Errors(g, item, d);
            }
        }
    }
}

const double* SumTable::Rows(std::size_t group, std::size_t item, std::size_t source) const {
    const Place& place = places_[item];
    const Block& block = blocks_[place.Level][group];
    return block.Rows.data() + (source * block.Columns + place.Column) * static_cast<std::size_t>(strides_[group]);
}

void SumTable::InterpolateDepth(std::size_t group, const std::array<double, ChebyshevCount>& weights,
                                std::vector<double>& rows) const {
    rows.clear();
    for (const auto& level : blocks_) {
        const std::size_t numbers = level[group].Columns * static_cast<std::size_t>(strides_[group]);
        const std::size_t first = rows.size();
        rows.resize(first + numbers);
        double* to = rows.data() + first;
        for (std::size_t source = 0; source < ChebyshevCount; ++source) {
            const double weight = weights[source];
            const double* from = level[group].Rows.data() + source * numbers;
            for (std::size_t i = 0; i < numbers; ++i) {
                to[i] += weight * from[i];
            }
        }
    }
}

const double* SumTable::RowsIn(const std::vector<double>& rows, std::size_t group, std::size_t item) const {
    std::size_t column = places_[item].Column;
    for (std::size_t level = 0; level < places_[item].Level; ++level) {
        column += blocks_[level][group].Columns;
    }
    return rows.data() + column * static_cast<std::size_t>(strides_[group]);
}

SumErrors SumTable::DepthErrors(std::size_t group, std::size_t item, SumErrors& sizes) const {
    SumErrors errors;
    const auto stride = static_cast<std::size_t>(Stride(group));
    const std::size_t numbers = (items_[item].Group < 0 ? ChebyshevCount : 1) * stride;
    for (std::size_t i = 0; i < numbers; ++i) {
        double high[2] = {};
        double largest = 0;
        for (std::size_t source = 0; source < ChebyshevCount; ++source) {
            // Sources run from the top down, the nodes of the table from high to low.
            const double value = Rows(group, item, ChebyshevCount - 1 - source)[i];
            high[0] += ChebyshevTail()[0][source] * value;
            high[1] += ChebyshevTail()[1][source] * value;
            largest = std::max(largest, std::fabs(value));
        }
        const std::size_t row = i % stride;
        if (row < RowCount) {
            const std::size_t load = row < VerticalRows ? 0 : 1;
            double& error = RowIsDisplacement[row] ? errors.Displacement[load] : errors.Strain[load];
            double& size = RowIsDisplacement[row] ? sizes.Displacement[load] : sizes.Strain[load];
            error = std::max(error, (std::fabs(high[0]) + std::fabs(high[1])) * TailShare);
            size = std::max(size, largest);
        }
    }
    return errors;
}

SumErrors SumTable::LargestErrors(std::size_t group, std::size_t item) const {
    SumErrors errors;
    for (std::size_t source = 0; source < sources_; ++source) {
        const SumErrors& at = Errors(group, item, source);
        for (std::size_t load = 0; load < 2; ++load) {
            errors.Displacement[load] = std::max(errors.Displacement[load], at.Displacement[load]);
            errors.Strain[load] = std::max(errors.Strain[load], at.Strain[load]);
        }
    }
    return errors;
}

const SumErrors& SumTable::Errors(std::size_t group, std::size_t item, std::size_t source) const {
    return errors_[SlotOf(group, item) * sources_ + source];
}

}  // namespace zirvo::solver
