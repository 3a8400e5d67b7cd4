// Pavements of a fuzzer's bytes, and the changes of a pavement behind which the answer is known from the one before.
#pragma once
#include <array>
#include <cstddef>
#include <vector>

#include "solver/problem.h"
#include "support/byte_source.h"

namespace zirvo::fuzz {

enum class Sizes {
    Realistic,  ///< roads and runways
    Extreme,    ///< skins of 0.001 cm, moduli 1E8 apart, circles of 300 cm
    AnyLegal,   ///< whatever the rules of the data let through: the solver may say that it knows no answer
};

struct SomePavement {
    Sizes Kind = Sizes::Realistic;
    solver::Problem Problem;
};

/// 1 to 6 layers, 1 to 4 loads, 1 to 6 points: many of them on interfaces, at the surface, under load centres and on
/// load edges.
SomePavement PavementOf(ByteSource& source);

/// Depth of the top of a layer (from 0) [cm].
double TopOf(const solver::Problem& problem, std::size_t layer);

/// The same pavement with one layer cut in the middle into two of its material, in full bond.
solver::Problem WithLayerCut(const solver::Problem& problem, std::size_t layer);

/// The same loads and points in the opposite order.
solver::Problem Reversed(solver::Problem problem);

/// Each load as two of half its size.
solver::Problem WithLoadsHalved(solver::Problem problem);

/// The pavement turned by so many right angles round the Z axis, and mirrored at the plane y = 0 before that.
struct Turn {
    int RightAngles = 0;
    bool Mirrored = false;
};
solver::Problem Turned(solver::Problem problem, Turn turn);
/// The values of a point of the turned pavement, as the point has them before the turn.
std::array<double, solver::ComponentCount> TurnedBack(std::array<double, solver::ComponentCount> values, Turn turn);

}  // namespace zirvo::fuzz
