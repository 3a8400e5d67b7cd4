// Layers and loads as the sums want them: moduli as 2 mu, interfaces as springs, loads by radius.
#pragma once
#include <vector>

#include "solver/depth_plan.h"
#include "solver/engine.h"
#include "solver/problem.h"

namespace zirvo::solver {

/// One load of a group.
struct GroupLoad {
    double X = 0, Y = 0;      ///< cm
    double Pressure = 0;      ///< vertical, positive down, in the unit of the moduli
    double Shear = 0;         ///< horizontal, in the unit of the moduli
    double Cos = 1, Sin = 0;  ///< of the direction of Shear from X
};

/// Loads of one radius share their sums: AK holds the radius, and so does the transform of the circle.
struct LoadGroup {
    double Radius = 0;  ///< cm
    bool Vertical = false;
    bool Horizontal = false;
    std::vector<GroupLoad> Loads;
};

/// The layers, prepared.
struct LayerTable {
    std::vector<double> M2, Nu, Thickness, Spring, Tops;
    std::vector<double> M2Low, SpringLow;  ///< what M2 and Spring lost to rounding
    std::vector<double> TopsLow;           ///< and the tops
    double TotalThickness = 0;
    /// 1E-4 of its reciprocal is a wavenumber below which all kernels are constant [cm]: a plate as stiff as the
    /// contrast turns the field over so much later.
    double LowScale = 0;
    double Contrast = 1;  ///< largest modulus over the smallest
    bool Slips = false;

    explicit LayerTable(const Problem& problem);
    LayeredSystem View() const;
};

/// A depth of a layer (0-based) from both ends of the layer, with what the distances lose to rounding.
KernelDepth KernelDepthOf(const LayerTable& layers, int layer, double z);
std::vector<KernelDepth> KernelDepthsOf(const LayerTable& layers, const std::vector<SourceDepth>& sources);

/// Area of a circle [cm2].
double CircleArea(double radius);

/// The loads by radius, ascending. Loads in one place are one load, so that what cancels leaves no error behind.
std::vector<LoadGroup> GroupLoads(const Problem& problem);

}  // namespace zirvo::solver
