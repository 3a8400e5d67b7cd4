#include "solver/prepared_problem.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>

#include "solver/depth_plan.h"
#include "solver/two_part.h"

namespace zirvo::solver {

LayerTable::LayerTable(const Problem& problem) : Tops(LayerTopsOf(problem)) {
    for (const Layer& layer : problem.Layers) {
        const bool last = M2.size() + 1 == problem.Layers.size();
        const auto more = 1 + static_cast<long double>(layer.PoissonRatio);
        const auto slip = static_cast<long double>(layer.SlipRate);
        M2.push_back(layer.Modulus / (1 + layer.PoissonRatio));
        M2Low.push_back(static_cast<double>(layer.Modulus / more - M2.back()));
        Nu.push_back(layer.PoissonRatio);
        Thickness.push_back(last ? 0 : layer.Thickness);
        Spring.push_back(last ? 0 : layer.SlipRate / (1 - layer.SlipRate) * (1 + layer.PoissonRatio) / layer.Modulus);
        SpringLow.push_back(last ? 0 : static_cast<double>(slip / (1 - slip) * more / layer.Modulus - Spring.back()));
        Slips = Slips || (!last && layer.SlipRate > 0);
    }
    long double top = 0;
    for (std::size_t i = 0; i < Tops.size(); ++i) {
        TopsLow.push_back(static_cast<double>(top - Tops[i]));
        top += Thickness[i];
    }
    TotalThickness = Tops.back();
    Contrast = *std::max_element(M2.begin(), M2.end()) / *std::min_element(M2.begin(), M2.end());
    LowScale = TotalThickness * std::max(1.0, Contrast / 160);
}

LayeredSystem LayerTable::View() const {
    return {static_cast<int>(M2.size()),
            M2.data(),
            Nu.data(),
            Thickness.data(),
            Spring.data(),
            M2Low.data(),
            SpringLow.data()};
}

namespace {

/// z - top, with what the difference loses; exactly 0 on the top as it is known.
void DistanceBelow(double z, double top, double topLow, double& distance, double& low) {
    distance = z - top;
    if (distance == 0) {
        low = 0;
        return;
    }
    const double part = distance - z;
    low = (z - (distance - part)) + (-top - part) - topLow;
}

}  // namespace

KernelDepth KernelDepthOf(const LayerTable& layers, int layer, double z) {
    const auto at = static_cast<std::size_t>(layer);
    KernelDepth depth;
    depth.Layer = layer;
    DistanceBelow(z, layers.Tops[at], layers.TopsLow[at], depth.FromTop, depth.FromTopLow);
    if (at + 1 < layers.M2.size()) {
        DistanceBelow(z, layers.Tops[at + 1], layers.TopsLow[at + 1], depth.FromBottom, depth.FromBottomLow);
        depth.FromBottom = -depth.FromBottom;
        depth.FromBottomLow = -depth.FromBottomLow;
        // A depth that is the rounded sum of thicknesses is the interface, seen from both ends of the layer: in a soft
        // one the difference shows.
        if (depth.FromBottom == 0) {
            depth.FromTop = layers.Thickness[at];
            depth.FromTopLow = 0;
        } else if (depth.FromTop == 0) {
            depth.FromBottom = layers.Thickness[at];
            depth.FromBottomLow = 0;
        }
    }
    return depth;
}

std::vector<KernelDepth> KernelDepthsOf(const LayerTable& layers, const std::vector<SourceDepth>& sources) {
    std::vector<KernelDepth> depths;
    depths.reserve(sources.size());
    for (const SourceDepth& source : sources) {
        depths.push_back(KernelDepthOf(layers, source.Layer, source.Z));
    }
    return depths;
}

namespace {

constexpr double PiValue = 3.14159265358979323846;

/// Cosine and sine of an angle in degrees; of multiples of a right angle exactly, so that a braking load along an axis
/// has no part across it.
std::array<double, 2> DirectionOf(double degrees) {
    const double turn = std::remainder(degrees, 360.0);
    const double quarter = std::nearbyint(turn / 90);
    const double rest = (turn - 90 * quarter) * (PiValue / 180);
    std::array<double, 2> direction{std::cos(rest), std::sin(rest)};
    for (int i = (static_cast<int>(quarter) + 4) % 4; i > 0; --i) {
        direction = {-direction[1], direction[0]};
    }
    return direction;
}

/// Loads of one radius at one place.
using Stack = std::vector<const Load*>;

/// They act as one. Their forces are added up in two parts: what is left of opposite ones may be a millionth of them.
GroupLoad Together(const Stack& stack) {
    const Load& first = *stack.front();
    const double area = CircleArea(first.Radius);
    if (stack.size() == 1) {
        const auto [cosine, sine] = DirectionOf(first.Angle);
        return {first.X, first.Y, first.Vertical / area, first.Horizontal / area, cosine, sine};
    }
    TwoPart vertical, x, y;
    for (const Load* load : stack) {
        vertical += load->Vertical;
        if (load->Horizontal != 0) {
            TwoPart cosine, sine;
            Direction(load->Angle, cosine, sine);
            x += cosine * TwoPart(load->Horizontal);
            y += sine * TwoPart(load->Horizontal);
        }
    }
    const double horizontal = std::hypot(x.High, y.High);
    const bool any = horizontal > 0;
    return {first.X,
            first.Y,
            vertical.High / area,
            horizontal / area,
            any ? x.High / horizontal : 1,
            any ? y.High / horizontal : 0};
}

void AddTo(std::vector<Stack>& stacks, const Load& load) {
    for (Stack& stack : stacks) {
        if (stack.front()->X == load.X && stack.front()->Y == load.Y) {
            stack.push_back(&load);
            return;
        }
    }
    stacks.push_back({&load});
}

}  // namespace

double CircleArea(double radius) {
    return PiValue * radius * radius;
}

std::vector<LoadGroup> GroupLoads(const Problem& problem) {
    std::map<double, std::vector<Stack>> byRadius;
    for (const Load& load : problem.Loads) {
        AddTo(byRadius[load.Radius], load);
    }
    std::vector<LoadGroup> groups;
    for (const auto& [radius, stacks] : byRadius) {
        LoadGroup group;
        group.Radius = radius;
        for (const Stack& stack : stacks) {
            const GroupLoad load = Together(stack);
            group.Vertical = group.Vertical || load.Pressure != 0;
            group.Horizontal = group.Horizontal || load.Shear != 0;
            group.Loads.push_back(load);
        }
        groups.push_back(std::move(group));
    }
    return groups;
}

}  // namespace zirvo::solver
