#include "solver/layered_sums.h"

#include <algorithm>
#include <cmath>

#include "solver/tables.h"
#include "solver/wavenumbers.h"

namespace zirvo::solver {

namespace {

constexpr double EndedKernel = 1e-15;  // share of its peak below which a kernel has ended
constexpr double EndedPhase = 40;      // and xi * ze above which it may
constexpr int TailNodes = 4;           // nodes over which that is judged
constexpr int ExtraNodes = 64;         // block beyond the expected end
constexpr double MostNodes = 3e6;      // of one level
constexpr double FewestNodes = 2e4;    // that it may have whatever the budget says
constexpr int MostRefinements = 2;
constexpr double Rounding = 2e-16;         // of the sum of magnitudes, where the layers are alike
constexpr double ContrastRounding = 0.05;  // more of it, times the root of the ratio of the moduli
constexpr double AbsoluteGoal = 1e-14;     // error that needs no refinement, in units of the load
constexpr double RelativeGoal = 2e-11;     // or as a share of the value
constexpr double TailShare = 0.5;          // of the last two Chebyshev coefficients: what follows them at most

/// Size of J1(x) without its oscillation.
double Envelope(double x) {
    return std::min(0.5 * x, 0.8 / std::sqrt(x));
}

int RowsFrom(const LoadGroup& group) {
    return group.Vertical ? 0 : VerticalRows;
}
int RowsTo(const LoadGroup& group) {
    return group.Horizontal ? static_cast<int>(RowCount) : VerticalRows;
}

}  // namespace

/// One level: its nodes in blocks, kernels and Bessel functions at them, and the sums.
class LevelSum {
public:
    LevelSum(const LayerTable& layers, const std::vector<LoadGroup>& groups, const DepthChunk& chunk,
             const RadiusLevel& level, const Engine& engine, SumTable& table, std::size_t levelIndex, double mostNodes)
        : layers_(layers),
          groups_(groups),
          chunk_(chunk),
          level_(level),
          engine_(engine),
          table_(table),
          levelIndex_(levelIndex),
          mostNodes_(mostNodes),
          rounding_(Rounding * (1 + ContrastRounding * std::sqrt(layers.Contrast))),
          sources_(static_cast<int>(chunk.Sources.size())) {
        for (const SourceDepth& source : chunk.Sources) {
            const auto layer = static_cast<std::size_t>(source.Layer);
            const bool last = layer + 1 == layers.M2.size();
            depths_.push_back(
                {source.Layer, source.Z - layers.Tops[layer], last ? 0 : layers.Tops[layer + 1] - source.Z});
        }
        PlaceColumns();
    }

    void Run() {
        for (int refinement = 0;; ++refinement) {
            Sum(refinement);
            // A finer step must not cut a sum short that had ended.
            if (Finish() || refinement == MostRefinements || 2 * static_cast<double>(nodes_) > mostNodes_) {
                return;
            }
        }
    }

private:
    /// Sums and the measures of their errors for one group. Maxima and magnitudes are per depth and row, per unit load.
    struct GroupSum {
        int FirstTile = 0, Tiles = 0;
        std::vector<double> Total, Difference, Peak, Tail, Magnitude;
        int Deepest = 0;
    };

    void PlaceColumns();
    void Sum(int refinement);
    void SumBlock(const double* weight, int nodes);
    void Weigh(std::size_t g, const double* weight, int nodes);
    bool Ended(double xi) const;
    bool Finish();
    bool FinishItem(std::size_t g, std::size_t item);

    const LayerTable& layers_;
    const std::vector<LoadGroup>& groups_;
    const DepthChunk& chunk_;
    const RadiusLevel& level_;
    const Engine& engine_;
    SumTable& table_;
    std::size_t levelIndex_;
    double mostNodes_;
    double rounding_;
    int sources_;
    NodeRule rule_;
    long nodes_ = 0;  // of the last pass
    std::vector<KernelDepth> depths_;
    std::vector<double> radii_;      // of all tiles
    std::vector<double> loadRadii_;  // of the groups, in tiles
    std::vector<GroupSum> sums_;
    std::vector<double> bessel_[4];
    std::vector<double> loadBessel_;
    std::vector<double> raw_, weighted_;
    alignas(64) double xi_[NodeBlock] = {};
};

void LevelSum::PlaceColumns() {
    const auto& items = table_.items_;
    auto& blocks = table_.blocks_[levelIndex_];
    blocks.resize(groups_.size());
    sums_.resize(groups_.size());
    const bool shared = items[level_.Items.front()].Group < 0;
    for (std::size_t g = 0; g < groups_.size(); ++g) {
        GroupSum& sum = sums_[g];
        if (shared && g > 0) {
            sum.FirstTile = sums_[0].FirstTile;
            sum.Tiles = sums_[0].Tiles;
        } else {
            const std::size_t first = radii_.size();
            for (const std::size_t i : level_.Items) {
                if (!shared && items[i].Group != static_cast<int>(g)) {
                    continue;
                }
                table_.places_[i] = {levelIndex_, radii_.size() - first};
                if (shared) {
                    const auto nodes = ChebyshevNodes(items[i].Low, items[i].High);
                    radii_.insert(radii_.end(), nodes.begin(), nodes.end());
                } else {
                    radii_.push_back(items[i].Low);
                }
            }
            while (radii_.size() % TileWidth != 0) {
                radii_.push_back(radii_.back());
            }
            sum.FirstTile = static_cast<int>(first / TileWidth);
            sum.Tiles = static_cast<int>((radii_.size() - first) / TileWidth);
        }
        blocks[g].Columns = static_cast<std::size_t>(sum.Tiles) * TileWidth;
        blocks[g].Rows.assign(
            static_cast<std::size_t>(sources_) * blocks[g].Columns * static_cast<std::size_t>(table_.strides_[g]), 0);
        loadRadii_.push_back(groups_[g].Radius);
    }
    while (loadRadii_.size() % TileWidth != 0) {
        loadRadii_.push_back(loadRadii_.back());
    }
}

void LevelSum::Sum(int refinement) {
    rule_ = MakeNodeRule(level_.Range, refinement);
    bool horizontal = false;
    for (std::size_t g = 0; g < groups_.size(); ++g) {
        GroupSum& sum = sums_[g];
        const auto rows = static_cast<std::size_t>(sources_) * RowCount;
        sum.Total.assign(rows * static_cast<std::size_t>(sum.Tiles) * TileWidth, 0);
        sum.Difference.assign(sum.Total.size(), 0);
        sum.Peak.assign(rows, 0);
        sum.Tail.assign(rows, 0);
        sum.Magnitude.assign(rows, 0);
        sum.Deepest = static_cast<int>(layers_.M2.size()) - 1;
        horizontal = horizontal || groups_[g].Horizontal;
    }
    const std::size_t tiles = radii_.size() / TileWidth;
    for (std::size_t order = 0; order < (horizontal ? 4U : 3U); ++order) {
        bessel_[order].resize(tiles * TileWidth * NodeBlock);
    }
    loadBessel_.resize(loadRadii_.size() * NodeBlock);
    raw_.resize(static_cast<std::size_t>(sources_) * RowCount * NodeBlock);
    weighted_.resize(raw_.size());

    alignas(64) double weight[NodeBlock];
    const double expected = NodesBelow(rule_, level_.Range.Largest);
    for (long first = 0;;) {
        const double left = std::max(expected - static_cast<double>(first), static_cast<double>(ExtraNodes));
        const int nodes = left >= NodeBlock ? NodeBlock : (static_cast<int>(left) + 15) / 16 * 16;
        FillNodes(rule_, first, nodes, xi_, weight);
        SumBlock(weight, nodes);
        first += nodes;
        nodes_ = first;
        const double xi = xi_[nodes - 1];
        if (xi > WindowEnd(rule_) || static_cast<double>(first) >= mostNodes_ || Ended(xi)) {
            return;
        }
    }
}

void LevelSum::SumBlock(const double* weight, int nodes) {
    double* bessel[4] = {};
    for (int order = 0; order < 4; ++order) {
        bessel[order] = bessel_[order].empty() ? nullptr : bessel_[order].data();
    }
    engine_.Bessel(Bessels(), xi_, nodes, radii_.data(), static_cast<int>(radii_.size() / TileWidth), bessel);
    double* const loadBessel[4] = {nullptr, loadBessel_.data(), nullptr, nullptr};
    engine_.Bessel(Bessels(), xi_, nodes, loadRadii_.data(), static_cast<int>(loadRadii_.size() / TileWidth),
                   loadBessel);
    bool anyVertical = false;
    bool anyHorizontal = false;
    for (const LoadGroup& group : groups_) {
        anyVertical = anyVertical || group.Vertical;
        anyHorizontal = anyHorizontal || group.Horizontal;
    }
    for (std::size_t g = 0; g < groups_.size(); ++g) {
        const LoadGroup& group = groups_[g];
        if (layers_.Slips && sums_[g].Tiles > 0) {
            engine_.Kernels(layers_.View(), group.Radius, xi_, nodes, depths_.data(), sources_, group.Vertical,
                            group.Horizontal, sums_[g].Deepest, raw_.data());
        } else if (!layers_.Slips && g == 0) {
            engine_.Kernels(layers_.View(), 0, xi_, nodes, depths_.data(), sources_, anyVertical, anyHorizontal,
                            sums_[0].Deepest, raw_.data());
        }
        if (sums_[g].Tiles == 0) {
            continue;
        }
        Weigh(g, weight, nodes);
        engine_.Accumulate(weighted_.data(), sources_, nodes, bessel, sums_[g].FirstTile, sums_[g].Tiles,
                           RowsFrom(group), RowsTo(group), sums_[g].Total.data(), sums_[g].Difference.data());
    }
}

void LevelSum::Weigh(std::size_t g, const double* weight, int nodes) {
    const LoadGroup& group = groups_[g];
    GroupSum& sum = sums_[g];
    alignas(64) double factor[NodeBlock];
    alignas(64) double size[NodeBlock];
    const double* j1 = loadBessel_.data() + g / TileWidth * NodeBlock * TileWidth + g % TileWidth;
    for (int k = 0; k < nodes; ++k) {
        factor[k] = weight[k] * group.Radius * j1[static_cast<std::ptrdiff_t>(k) * TileWidth];
        size[k] = weight[k] * group.Radius * Envelope(xi_[k] * group.Radius);
    }
    for (int d = 0; d < sources_; ++d) {
        for (int row = RowsFrom(group); row < RowsTo(group); ++row) {
            const int index = d * RowCount + row;
            const double* raw = raw_.data() + static_cast<std::ptrdiff_t>(index) * NodeBlock;
            double* out = weighted_.data() + static_cast<std::ptrdiff_t>(index) * NodeBlock;
            const auto place = static_cast<std::size_t>(index);
            engine_.Weigh(raw, factor, size, nodes, out, sum.Magnitude[place], sum.Peak[place]);
            double tail = 0;
            for (int k = std::max(0, nodes - TailNodes); k < nodes; ++k) {
                tail = std::max(tail, std::fabs(raw[k]) * size[k]);
            }
            sum.Tail[place] = tail;
        }
    }
}

bool LevelSum::Ended(double xi) const {
    for (std::size_t g = 0; g < groups_.size(); ++g) {
        for (int d = 0; d < sources_; ++d) {
            if (xi * chunk_.Sources[static_cast<std::size_t>(d)].Effective < EndedPhase) {
                return false;
            }
            double peak[2] = {};
            double tail[2] = {};
            for (int row = RowsFrom(groups_[g]); row < RowsTo(groups_[g]); ++row) {
                const int index = d * RowCount + row;
                const auto place = static_cast<std::size_t>(index);
                const int kind = RowIsDisplacement[row] ? 1 : 0;
                peak[kind] = std::max(peak[kind], sums_[g].Peak[place]);
                tail[kind] = std::max(tail[kind], sums_[g].Tail[place]);
            }
            if (tail[0] > EndedKernel * peak[0] || tail[1] > EndedKernel * peak[1]) {
                return false;
            }
        }
    }
    return true;
}

bool LevelSum::Finish() {
    bool good = true;
    for (std::size_t g = 0; g < groups_.size(); ++g) {
        const GroupSum& sum = sums_[g];
        SumTable::Block& block = table_.blocks_[levelIndex_][g];
        const auto stride = static_cast<std::size_t>(table_.strides_[g]);
        for (int row = RowsFrom(groups_[g]); row < RowsTo(groups_[g]); ++row) {
            for (std::size_t d = 0; d < static_cast<std::size_t>(sources_); ++d) {
                const double* from = sum.Total.data() + (static_cast<std::size_t>(row * sources_) + d) * block.Columns;
                double* to = block.Rows.data() + d * block.Columns * stride + static_cast<std::size_t>(row);
                for (std::size_t c = 0; c < block.Columns; ++c) {
                    to[c * stride] = from[c];
                }
            }
        }
        for (const std::size_t item : level_.Items) {
            const int owner = table_.items_[item].Group;
            if (owner < 0 || owner == static_cast<int>(g)) {
                good = FinishItem(g, item) && good;
            }
        }
    }
    return good;
}

/// Errors of one item: of the rule (the square of the half rule's error, in units of the load), of interpolation, of
/// the cut, of rounding. True if the rule's needs no finer step.
bool LevelSum::FinishItem(std::size_t g, std::size_t item) {
    const GroupSum& sum = sums_[g];
    const bool cell = table_.items_[item].Group < 0;
    const std::size_t count = cell ? ChebyshevCount : 1;
    const std::size_t columns = static_cast<std::size_t>(sum.Tiles) * TileWidth;
    const std::size_t first = table_.places_[item].Column;
    const double radius = groups_[g].Radius;
    const double step = rule_.C * rule_.Step;
    bool good = true;
    for (std::size_t d = 0; d < static_cast<std::size_t>(sources_); ++d) {
        const double m2 = layers_.M2[static_cast<std::size_t>(chunk_.Sources[d].Layer)];
        SumErrors errors;
        double ruleError[2][2] = {};
        double value[2][2] = {};
        double interpolationError[2][2] = {};
        for (int row = RowsFrom(groups_[g]); row < RowsTo(groups_[g]); ++row) {
            const int load = row < VerticalRows ? 0 : 1;
            const int kind = RowIsDisplacement[row] ? 1 : 0;
            const double unit = kind == 1 ? radius / m2 : 1 / m2;
            const std::size_t start = (static_cast<std::size_t>(row * sources_) + d) * columns + first;
            const double* total = sum.Total.data() + start;
            const double* difference = sum.Difference.data() + start;
            double half = 0;
            double largest = 0;
            double high[2] = {};
            for (std::size_t c = 0; c < count; ++c) {
                half = std::max(half, std::fabs(difference[c]));
                largest = std::max(largest, std::fabs(total[c]));
                if (cell) {
                    high[0] += ChebyshevTail()[0][c] * total[c];
                    high[1] += ChebyshevTail()[1][c] * total[c];
                }
            }
            const int index = static_cast<int>(d) * RowCount + row;
            const auto place = static_cast<std::size_t>(index);
            ruleError[load][kind] = std::max(ruleError[load][kind], half * half / unit);
            value[load][kind] = std::max(value[load][kind], largest);
            const double ended = sum.Tail[place] / -std::expm1(-step * chunk_.Sources[d].Effective);
            const double interpolation = (std::fabs(high[0]) + std::fabs(high[1])) * TailShare;
            interpolationError[load][kind] = std::max(interpolationError[load][kind], interpolation);
            double& error = kind == 1 ? errors.Displacement[static_cast<std::size_t>(load)]
                                      : errors.Strain[static_cast<std::size_t>(load)];
            error = std::max(error, interpolation + rounding_ * sum.Magnitude[place] + ended);
        }
        for (std::size_t load = 0; load < 2; ++load) {
            errors.Strain[load] += ruleError[load][0];
            errors.Displacement[load] += ruleError[load][1];
            for (std::size_t kind = 0; kind < 2; ++kind) {
                const double unit = kind == 1 ? radius / m2 : 1 / m2;
                const double goal = std::max(AbsoluteGoal * unit, RelativeGoal * value[load][kind]);
                good = good && ruleError[load][kind] <= goal;
                table_.smooth_ = table_.smooth_ && interpolationError[load][kind] <= goal;
            }
        }
        table_.errors_[(g * table_.items_.size() + item) * table_.sources_ + d] = errors;
    }
    return good;
}

SumTable::SumTable(const LayerTable& layers, const std::vector<LoadGroup>& groups, const DepthChunk& chunk,
                   std::vector<RadiusItem> items, const Engine& engine, double budget)
    : items_(std::move(items)), places_(items_.size()), sources_(chunk.Sources.size()) {
    errors_.resize(groups.size() * items_.size() * sources_);
    std::vector<double> edges;
    bool horizontal = false;
    for (const LoadGroup& group : groups) {
        edges.push_back(group.Radius);
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
    costs.PerNode =
        kernelSets * (30 * static_cast<double>(std::min<std::size_t>(layers.M2.size(), 20)) + 8 * cases * sources);
    const double served = items_.front().Group < 0 ? static_cast<double>(groups.size()) : 1;
    costs.PerNodeAndColumn = 8 + 0.6 * cases * sources * served;
    const auto levels = SplitIntoLevels(items_, edges, ze, layers.TotalThickness, costs);
    blocks_.resize(levels.size());
    for (std::size_t i = 0; i < levels.size(); ++i) {
        double columns = 0;
        for (const std::size_t item : levels[i].Items) {
            columns += items_[item].Group < 0 ? ChebyshevCount : 1;
        }
        const double nodes =
            budget / static_cast<double>(levels.size()) / (costs.PerNode + costs.PerNodeAndColumn * columns);
        LevelSum(layers, groups, chunk, levels[i], engine, *this, i, std::clamp(nodes, FewestNodes, MostNodes)).Run();
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
    return errors_[(group * items_.size() + item) * sources_ + source];
}

}  // namespace zirvo::solver
