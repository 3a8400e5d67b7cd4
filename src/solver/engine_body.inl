// One engine: included by each engine_*.cpp with ZIRVO_ENGINE (its namespace) and ZIRVO_LANES set. Those files are
// compiled for different processors, so nothing here may use an inline function of the standard library: the linker
// would be free to keep the copy that an older processor cannot run.
#if !defined(__GNUC__) || defined(ZIRVO_PLAIN_VECTORS)
#include <cmath>
#endif

#include "solver/engine.h"

#if defined(__GNUC__)
#pragma GCC diagnostic ignored "-Wpsabi"
#endif

namespace zirvo::solver::ZIRVO_ENGINE {
namespace {
#include "solver/vectors.inl"
// The loops need the vectors above.
#include "solver/engine_bessel.inl"
#include "solver/engine_half_space.inl"
#include "solver/engine_plain.inl"
#include "solver/engine_sums.inl"
// Pairs need the layers of engine_plain.inl.
#include "solver/engine_pairs.inl"
}  // namespace

// In a file of its own (engine_precise.inl), compiled without contraction.
void PreciseKernels(const LayeredSystem& system, double radius, const double* xi, const double* xiLow, int nodes,
                    const KernelDepth* depths, int depthCount, bool vertical, bool horizontal, int& deepest,
                    double* out, double* low);

void MakeNodes(const NodeTable& table, const NodeMap& map, double first, int count, double* xi, double* xiLow,
               double* weight);

void PreciseFields(const LayeredSystem& system, const double* radii, int radiusCount, const double* xi,
                   const double* xiLow, int nodes, const int* slots, int deepestWanted, bool vertical, bool horizontal,
                   int& deepest, const FieldsPlace& out);

extern const Engine TheEngine;
const Engine TheEngine = {ZIRVO_ENGINE_NAME, Kernels,        PreciseKernels,   MakeNodes, Fields,
                          PreciseFields,     ThinFunctions,  DepthFunctions,   AddToPair, Components,
                          MissedByMixing,    AddMixedToPair, MixRow,           Weigh,     Bessel,
                          Accumulate,        Interpolate,    ChebyshevWeights, HalfSpace};
}  // namespace zirvo::solver::ZIRVO_ENGINE
