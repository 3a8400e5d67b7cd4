// The radii for which the fields of layers are made, where loads have many.
//
// A field hangs on the radius a of the load through the springs of the interfaces alone, AK = const a. Bonded layers
// need one field for all loads. Springs are passive: as a function of complex a a field has its poles where a is
// negative, so it is analytic in ln a up to pi off the real axis, and Chebyshev nodes in ln a serve all radii between
// them: 16 of them from 8 to 18 cm, 24 over a decade, to 1E-17.
#pragma once
#include <array>
#include <cstddef>
#include <span>
#include <vector>

#include "solver/engine.h"
#include "solver/prepared_problem.h"

namespace zirvo::solver {

struct SpringNodes {
    /// How the fields of a group's radius are mixed of those of the nodes.
    struct Mix {
        std::array<double, MostMixed> Weights{};
        int SizeFirst = 0;     ///< sizes are mixed of this node's and the next one's
        double SizeShare = 0;  ///< of the next one
    };
    std::vector<double> Radii;  ///< cm
    std::vector<Mix> Mixes;     ///< of each group; none: the one field there is serves all
    std::vector<double> Tails;  ///< rows that give the two highest Chebyshev coefficients

    bool Mixed() const { return !Mixes.empty(); }
};

/// One radius alone; of bonded layers any.
SpringNodes OneSpringNode(double radius);

/// How many nodes the radii of the groups (ascending) want; more where `careful`. May be more than MostMixed.
int SpringNodesWanted(std::span<const LoadGroup> groups, bool careful);

/// So many nodes for the radii of the groups (ascending, at least two of them).
SpringNodes SpringNodesOf(std::span<const LoadGroup> groups, int count);

}  // namespace zirvo::solver
