// The nodes of the sums over wavenumbers: a trapezoid in a mapped variable that goes to zero geometrically.
//
// xi = c ln(1 + exp t), t = s - exp(-(s - sL)): equal steps where the Bessel functions oscillate, geometric ones
// towards zero where the kernel turns over, and an end there that vanishes doubly exponentially. The step resolves
// phases up to xi * reach and K = 50 beyond, so that the error decays like that of a periodic integrand. Source of the
// principle: Takahasi and Mori (1974), Publ. RIMS 9, for the doubly exponential end.
#pragma once
#include <vector>

#include "solver/engine.h"

namespace zirvo::solver {

struct NodeRule {
    double C = 0;
    double LowEnd = 0;  ///< sL
    double Start = 0;
    double Step = 0;
    double WindowCentre = 0;  ///< 6 sigma [1/cm]; 0: no window
    double WindowWidth = 0;   ///< sigma [1/cm]
};

/// Where a sum may be windowed: for radii at least `gap` from the edge of the load by half erfc((xi - m sigma) /
/// sigma), m = 6 and sigma = 16 / gap; with a halved step m = 7 and sigma = 20 / gap. It leaves out a share erfc(m) / 2
/// at zero and exp(-(sigma gap / 2)^2) where it ends the sum; of a pole of the kernel at x + i y, whose waves decay
/// like exp(-y gap), exp(-(m - x / sigma)^2 + (y / sigma)^2 - y gap) of its size: at most 4E-15 for a plate on an
/// incompressible film, whose bending and squeezing make poles at xi^6 = -const, y = 0.58 x. With sigma = 13 / gap,
/// which does where layers are much alike, that would be 5E-13.
struct WaveRange {
    double Reach = 0;      ///< largest radius plus largest load radius [cm]
    double Largest = 0;    ///< wavenumber at which the sum may be expected to have ended [1/cm]
    double Gap = 0;        ///< distance of all radii from all load edges [cm]; 0: no window
    double Thickness = 0;  ///< sum of the thicknesses of the layers [cm]
    bool Mild = false;     ///< bonded layers that are not too different: a narrower window does (sigma = 13 / gap)
};

/// @param refinement  0, 1, 2: the step is halved so many times.
/// @param slips  springs bring the kernels' singularities nearer: a step that is somewhat finer spares halving it
NodeRule MakeNodeRule(const WaveRange& range, int refinement, bool slips = false);

/// Wavenumber at which a windowed sum has ended; infinity without a window.
double WindowEnd(const NodeRule& rule);

/// Nodes first .. first + count - 1 (a multiple of 8) in two parts, with their weights (window included).
void FillNodes(const Engine& engine, const NodeRule& rule, long first, int count, double* xi, double* xiLow,
               double* weight);

/// About how many nodes lie below `largest`; and rougher still, for plans.
double NodesBelow(const NodeRule& rule, double largest);
double RoughNodes(const NodeRule& rule, double largest);

}  // namespace zirvo::solver
