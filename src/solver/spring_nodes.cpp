#include "solver/spring_nodes.h"

#include <algorithm>
#include <cmath>

namespace zirvo::solver {

namespace {

constexpr double PiValue = 3.14159265358979323846;
constexpr double Goal = 39;           // - ln of what interpolation may miss: 1E-17
constexpr double CarefulShare = 1.3;  // of the nodes, where they have not been enough

}  // namespace

SpringNodes OneSpringNode(double radius) {
    SpringNodes nodes;
    nodes.Radii = {radius};
    return nodes;
}

/// The error falls like rho^-count, rho the sum of the half axes of the ellipse round -1..1 that touches the poles.
int SpringNodesWanted(std::span<const LoadGroup> groups, bool careful) {
    const double half = 0.5 * std::log(groups.back().Radius / groups.front().Radius);
    const double axis = PiValue / half;
    const double count = 1 + Goal / std::log(axis + std::sqrt(1 + axis * axis));
    return static_cast<int>(std::ceil(careful ? CarefulShare * count : count));
}

SpringNodes SpringNodesOf(std::span<const LoadGroup> groups, int count) {
    SpringNodes nodes;
    const auto size = static_cast<std::size_t>(count);
    const long double low = std::log(static_cast<long double>(groups.front().Radius));
    const long double high = std::log(static_cast<long double>(groups.back().Radius));
    nodes.Tails.resize(std::size_t{2} * MostMixed);
    std::vector<long double> places;  // what the rounded radii stand for
    for (std::size_t i = 0; i < size; ++i) {
        const double angle = (static_cast<double>(i) + 0.5) * PiValue / count;
        const long double place = 0.5L * (low + high) + 0.5L * (high - low) * std::cos(angle);
        nodes.Radii.push_back(static_cast<double>(std::exp(place)));
        places.push_back(std::log(static_cast<long double>(nodes.Radii.back())));
        nodes.Tails[i] = 2.0 / count * std::cos((count - 2) * angle);
        nodes.Tails[MostMixed + i] = 2.0 / count * std::cos((count - 1) * angle);
    }
    for (const LoadGroup& group : groups) {
        SpringNodes::Mix mix;
        const long double at = std::log(static_cast<long double>(group.Radius));
        for (std::size_t i = 0; i < size; ++i) {
            long double weight = 1;
            for (std::size_t k = 0; k < size; ++k) {
                weight *= k == i ? 1 : (at - places[k]) / (places[i] - places[k]);
            }
            mix.Weights[i] = static_cast<double>(weight);
        }
        const auto next = std::find_if(places.begin(), places.end(), [&](long double place) { return place < at; });
        if (next == places.end()) {
            mix.SizeFirst = count - 1;
        } else if (next != places.begin()) {
            mix.SizeFirst = static_cast<int>(next - places.begin()) - 1;
            mix.SizeShare = static_cast<double>((*(next - 1) - at) / (*(next - 1) - *next));
        }
        nodes.Mixes.push_back(mix);
    }
    return nodes;
}

}  // namespace zirvo::solver
