// The data of one analysis: a layered pavement, the loads on its surface, the points at which results are wanted, the
// names of its files. Callers: the rules, the readers and writers of the input files, the data screens, the point grid
// of a section.
#pragma once
#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <vector>

#include "base/int16.h"
#include "base/runtime_fault.h"

namespace zirvo {

inline constexpr int MaximumLayers = 100;
inline constexpr int MaximumLoads = 100;
inline constexpr int MaximumPoints = 10000;

/// Two depths no farther apart than this are the same depth [cm].
inline constexpr double DepthTolerance = 1e-10;

/// The units that the user's numbers are in. No number is ever converted: the choice changes headings and what the
/// solver is told. None stands for a settings file whose choice is none of the three.
enum class UnitSystem : Int16 {
    None = 0,
    KgfToKgf = 1,  ///< kgf, kgf/cm2, cm in; kgf/cm2, cm out
    KgfToMPa = 2,  ///< kgf, kgf/cm2, cm in; MPa, cm out
    KnToMPa = 3,   ///< kN, MPa, cm in; MPa, cm out
};

/// The unit system of the number 1, 2 or 3; None for any other.
UnitSystem UnitSystemOf(int number);

/// One layer, in the units of the model.
struct PavementLayer {
    double Modulus = 0;       ///< kgf/cm2 or MPa
    double PoissonRatio = 0;  ///< dimensionless
    double Thickness = 0;     ///< cm; stays 0 in the last layer, which is semi-infinite
    double SlipRate = 0;      ///< of the interface below, dimensionless; stays 0 in the last layer

    bool operator==(const PavementLayer&) const = default;
};

/// One load, uniform over a circle on the surface.
struct SurfaceLoad {
    double VerticalLoad = 0;    ///< kgf or kN, any sign
    double Radius = 0;          ///< cm
    double LoadX = 0;           ///< centre of the circle [cm]
    double LoadY = 0;           ///< centre of the circle [cm]
    double HorizontalLoad = 0;  ///< kgf or kN, any sign
    double AngleFromX = 0;      ///< direction of the horizontal load against the X axis [degrees]

    bool operator==(const SurfaceLoad&) const = default;
};

/// One point of interest. On an interface the layer decides which of the two sets of results is meant.
struct InterestPoint {
    Int16 LayerNumber = 0;  ///< 1-based; 0 is let through where the depth is that of the surface
    double PointX = 0;      ///< cm
    double PointY = 0;      ///< cm
    double PointZ = 0;      ///< depth [cm, down]

    bool operator==(const InterestPoint&) const = default;
};

inline constexpr std::size_t LayerColumns = 4;
inline constexpr std::size_t LoadColumns = 6;
inline constexpr std::size_t PointColumns = 4;

/// The names of the values of a row, in the order of the grids' columns and of the files' fields.
inline constexpr std::array<const char*, LayerColumns> LayerValueNames{"Modulus", "PoissonRatio", "Thickness",
                                                                       "SlipRate"};
inline constexpr std::array<const char*, LoadColumns> LoadValueNames{"VerticalLoad", "Radius",         "LoadX",
                                                                     "LoadY",        "HorizontalLoad", "AngleFromX"};
inline constexpr std::array<const char*, PointColumns> PointValueNames{"LayerNumber", "PointX", "PointY", "PointZ"};

/// The values themselves, in the same order.
inline constexpr std::array<double PavementLayer::*, LayerColumns> LayerFields{
    &PavementLayer::Modulus, &PavementLayer::PoissonRatio, &PavementLayer::Thickness, &PavementLayer::SlipRate};
inline constexpr std::array<double SurfaceLoad::*, LoadColumns> LoadFields{
    &SurfaceLoad::VerticalLoad, &SurfaceLoad::Radius,         &SurfaceLoad::LoadX,
    &SurfaceLoad::LoadY,        &SurfaceLoad::HorizontalLoad, &SurfaceLoad::AngleFromX};

/// How many of its values count in the row of a layer: of the last layer only modulus and Poisson ratio.
constexpr std::size_t FieldsOfLayer(bool last) {
    return last ? 2 : LayerColumns;
}

/// Rows 1 to Highest, and a row 0 that exists and holds zeros. An index outside 0 to Highest is fault 9: the bounds are
/// part of the design, and passing one never resizes.
template <class Row, int Highest>
class BoundedRows {
public:
    BoundedRows() : rows_(static_cast<std::size_t>(Highest) + 1) {}

    Row& operator[](int index) { return rows_[Checked(index)]; }
    const Row& operator[](int index) const { return rows_[Checked(index)]; }

    /// The rows 0 to count, for the operations that take 1-based spans.
    std::span<const Row> UpTo(int count) const { return {rows_.data(), Checked(count) + 1}; }

    bool operator==(const BoundedRows&) const = default;

private:
    std::vector<Row> rows_;

    std::size_t Checked(int index) const {
        if (index < 0 || static_cast<std::size_t>(index) >= rows_.size()) {
            throw RuntimeFault(fault::SubscriptOutOfRange);
        }
        return static_cast<std::size_t>(index);
    }
};

/// A pavement and what stands on it: all the data of the graphics path, and what an analysis adds its points to.
struct LoadedPavement {
    Int16 LayerCount = 0;
    Int16 LoadCount = 0;
    BoundedRows<PavementLayer, MaximumLayers> Layers;  ///< 1 is the surface layer, the last one the subgrade
    BoundedRows<SurfaceLoad, MaximumLoads> Loads;

    bool operator==(const LoadedPavement&) const = default;
};

/// One analysis's data. It lives for the length of one operation; the screen's cells and the file are the store.
struct PavementModel : LoadedPavement {
    Int16 PointCount = 0;
    BoundedRows<InterestPoint, MaximumPoints> Points;
    std::string InputFileName;      ///< ".eva", no folder
    std::string ResultFileName;     ///< ".bre", no folder
    std::string PrincipalFileName;  ///< ".san", no folder

    bool operator==(const PavementModel&) const = default;
};

/// Depth of the top of each layer [cm, down], by layer number 0 to 100.
using LayerTops = std::array<double, static_cast<std::size_t>(MaximumLayers) + 1>;

/// Entries 0 and 1 are 0; entry i is entry i - 1 plus the thickness of layer i - 1, added from the top so that rounding
/// is the same everywhere. Entries beyond the last layer are 0.
/// @param layers  1-based: entry 0 is unused. More than 100 layers are fault 9.
LayerTops ComputeLayerTops(std::span<const PavementLayer> layers);

/// Message numbers of the grids' column headings, columns 1 onward. 0 where UnitSystem::None decides on neither of a
/// pair: that cell stays empty (0 is no message number: never ask the catalogue for it).
std::array<Int16, LayerColumns> LayerHeadings(UnitSystem units);
std::array<Int16, LoadColumns> LoadHeadings(UnitSystem units);
std::array<Int16, PointColumns> PointHeadings();

/// Message numbers of the column heading lines of the input files; 0 for UnitSystem::None.
Int16 LayerFileHeading(UnitSystem units);
Int16 LoadFileHeading(UnitSystem units);

}  // namespace zirvo
