// The mechanical problem and its answer, in consistent units: what the readers hand to the theory and the theory hands
// to the reports. Installed as zirvo/problem.h; solve.h is what is done with it.
//
// Units: one unit of stress for all (MPa, or kgf/cm2), lengths in cm, so that forces are in that unit times cm2: 1 kN
// is 10 MPa cm2, 1 kgf is 1 kgf/cm2 cm2. X and Y lie in the surface, Z points down. What is positive: tension, a
// vertical load that presses down, a displacement along its axis.
#pragma once
#include <array>
#include <cstddef>
#include <vector>

namespace zirvo::solver {

/// One layer. Moduli are in the unit of stress of the problem; lengths in cm.
struct Layer {
    double Modulus = 0;
    double PoissonRatio = 0;
    double Thickness = 0;  ///< cm; unused in the last layer, which is semi-infinite
    double SlipRate = 0;   ///< of the interface below the layer, 0 to 0.99; unused in the last layer
};

/// One load: uniform over a circle. Forces are in (unit of stress of the problem) * cm2.
struct Load {
    double Vertical = 0;    ///< positive presses down
    double Radius = 0;      ///< cm
    double X = 0;           ///< cm
    double Y = 0;           ///< cm
    double Horizontal = 0;  ///< acts on the surface in the direction of Angle
    double Angle = 0;       ///< degrees from X towards Y
};

/// One point: the layer (1-based) decides the material on an interface. Depth within the layer, boundaries included.
struct Point {
    int Layer = 1;
    double X = 0;  ///< cm
    double Y = 0;  ///< cm
    double Z = 0;  ///< cm, down
};

struct Problem {
    std::vector<Layer> Layers;
    std::vector<Load> Loads;
    std::vector<Point> Points;
};

/// The 15 values of a point, in this order.
enum Component : int { U, V, W, SIGx, SIGy, SIGz, TAUxy, TAUyz, TAUzx, EPSx, EPSy, EPSz, GAMxy, GAMyz, GAMzx };
inline constexpr int ComponentCount = 15;

/// Displacements in cm, stresses in the unit of the moduli, strains as plain numbers (not micro), tension positive,
/// shear strains engineering. Estimates: bounds of the largest error in each group (displacements, stresses, strains),
/// as a share of the largest value of that group at the point, the floor of 1E-13 in units of the load included.
struct PointResult {
    std::array<double, ComponentCount> Values{};
    std::array<double, 3> Estimates{};
    bool OnLoadEdge = false;  ///< some values are means, because the true ones are infinite or jump here
};

struct SolveOptions {
    int Threads = 0;  ///< at most; 0: as many as the machine has. What is done before a thread has started takes one
};

struct Solution {
    std::vector<PointResult> Points;
    double LargestEstimate = 0;
};

/// What a bound should stay below; the report's tail names the points that do not.
inline constexpr double PromisedError = 1e-9;

}  // namespace zirvo::solver
