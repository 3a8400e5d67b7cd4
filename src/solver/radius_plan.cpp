#include "solver/radius_plan.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

#include "solver/tables.h"

namespace zirvo::solver {

namespace {

constexpr double KernelRange = 42;   // xi * ze at which a kernel without slip has ended
constexpr double WindowRange = 192;  // xi * gap at which a windowed sum has ended
constexpr double MildWindowRange = 156;
constexpr double FarApart = 1.5;  // of the distances of two neighbours, where a level may begin

/// Distance of the interval low..high from the nearest edge.
double Distance(double low, double high, std::span<const double> edges) {
    const auto above = std::lower_bound(edges.begin(), edges.end(), low);
    double distance = std::numeric_limits<double>::infinity();
    if (above != edges.end()) {
        distance = std::max(0.0, *above - high);
    }
    if (above != edges.begin()) {
        distance = std::min(distance, low - *(above - 1));
    }
    return distance;
}

/// The widest cell from low on that is no wider than `share` of the distance of its singularities.
double WidestCell(double low, std::span<const double> edges, double ze, double share) {
    double narrow = share * ze;
    double wide = share * std::hypot(ze, Distance(low, low, edges));
    for (int i = 0; i < 12 && wide > 1.01 * narrow; ++i) {
        const double width = 0.5 * (narrow + wide);
        if (width <= share * std::hypot(ze, Distance(low, low + width, edges))) {
            narrow = width;
        } else {
            wide = width;
        }
    }
    return narrow;
}

}  // namespace

WaveRange RangeOf(double reach, double gap, double ze, double thickness, bool mild) {
    WaveRange range;
    range.Reach = reach;
    range.Gap = gap;
    range.Thickness = thickness;
    range.Mild = mild;
    range.Largest = KernelRange / ze;
    if (gap > 0) {
        range.Largest = std::min(range.Largest, (mild ? MildWindowRange : WindowRange) / gap);
    }
    return range;
}

std::vector<RadiusItem> MakeCells(double low, double high, std::span<const double> edges, double ze, double share) {
    std::vector<RadiusItem> cells;
    double from = low;
    for (;;) {
        RadiusItem cell;
        cell.Low = from;
        // A cell that is narrower than the radii are told apart would not get on.
        const double next = std::nextafter(from, std::numeric_limits<double>::infinity());
        cell.High = std::max(from + WidestCell(from, edges, ze, share), next);
        const bool last = cell.High >= high;
        if (last) {
            cell.High = std::max(high, from);
        }
        cell.Gap = Distance(cell.Low, cell.High, edges);
        cell.Reach = cell.High + edges.back();
        cells.push_back(cell);
        if (last) {
            return cells;
        }
        from = cell.High;
    }
}

std::vector<RadiusLevel> SplitIntoLevels(std::span<const RadiusItem> items, double ze, double thickness,
                                         const LevelCosts& costs) {
    const std::size_t count = items.size();
    std::vector<std::size_t> order(count);
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(), [&](auto a, auto b) { return items[a].Gap < items[b].Gap; });

    // best[j]: least cost of the first j items in this order; split[j]: where its last level begins. Where the items
    // are many, levels begin at every few of them only, and where the next distance is much more than the one before.
    const std::size_t stride = std::max<std::size_t>(1, count / 32);
    std::vector<bool> mayBegin(count + 1);
    for (std::size_t i = 0; i < count; ++i) {
        mayBegin[i] = i % stride == 0 || items[order[i]].Gap > FarApart * items[order[i - 1]].Gap;
    }
    mayBegin[count] = true;
    std::vector<double> best(count + 1, std::numeric_limits<double>::infinity());
    std::vector<std::size_t> split(count + 1, 0);
    best[0] = 0;
    for (std::size_t i = 0; i < count; ++i) {
        if (!mayBegin[i]) {
            continue;
        }
        double reach = 0;
        double columns = 0;
        for (std::size_t j = i; j < count; ++j) {
            const RadiusItem& item = items[order[j]];
            reach = std::max(reach, item.Reach);
            columns += item.Group < 0 ? ChebyshevCount : 1;
            if (!mayBegin[j + 1]) {
                continue;
            }
            const WaveRange range = RangeOf(reach, items[order[i]].Gap, ze, thickness, costs.Mild);
            const double nodes = RoughNodes(MakeNodeRule(range, 0), range.Largest);
            const double cost = best[i] + nodes * (costs.PerNode + costs.PerNodeAndColumn * columns);
            if (cost < best[j + 1]) {
                best[j + 1] = cost;
                split[j + 1] = i;
            }
        }
    }
    std::vector<RadiusLevel> levels;
    for (std::size_t end = count; end > 0; end = split[end]) {
        RadiusLevel level;
        double reach = 0;
        for (std::size_t j = split[end]; j < end; ++j) {
            level.Items.push_back(order[j]);
            reach = std::max(reach, items[order[j]].Reach);
        }
        std::sort(level.Items.begin(), level.Items.end());
        level.Range = RangeOf(reach, items[order[split[end]]].Gap, ze, thickness, costs.Mild);
        levels.push_back(std::move(level));
    }
    return levels;
}

}  // namespace zirvo::solver
