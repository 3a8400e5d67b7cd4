#include "finds.h"

#include <array>
#include <cstdio>

#include "reference.h"

namespace zirvo::attack {

namespace {

constexpr std::array<const char*, solver::ComponentCount> Names = {"U",    "V",     "W",     "SIGx",  "SIGy",
                                                                   "SIGz", "TAUxy", "TAUyz", "TAUzx", "EPSx",
                                                                   "EPSy", "EPSz",  "GAMxy", "GAMyz", "GAMzx"};

std::string Number(double x) {
    char text[40];
    std::snprintf(text, sizeof text, "%.17g", x);
    return text;
}

std::string Field(const char* name, double x, bool last = false) {
    return std::string("\"") + name + "\": " + Number(x) + (last ? "" : ", ");
}

template <class Items, class Row>
std::string List(const char* name, const Items& items, Row row) {
    std::string text = std::string(" \"") + name + "\": [\n";
    for (std::size_t i = 0; i < items.size(); ++i) {
        text += "  {" + row(items[i], i) + "}" + (i + 1 < items.size() ? ",\n" : "\n");
    }
    return text + " ]";
}

}  // namespace

std::string CaseText(const solver::Problem& problem, const std::string& name, const std::string& about) {
    const auto truth = ReferenceValues(problem);
    std::string text = "{\n \"name\": \"" + name + "\",\n \"about\": \"" + about +
                       "\",\n \"unit_system\": 1,\n \"units\": {\"length\": \"cm\", \"load\": \"kgf\", \"modulus\": "
                       "\"kgf/cm2\", \"displacement\": \"cm\", \"stress\": \"kgf/cm2\", \"strain\": \"microstrain\", "
                       "\"angle\": \"degree\"},\n";
    text += List("layers", problem.Layers,
                 [](const solver::Layer& layer, std::size_t) {
                     return Field("E", layer.Modulus) + Field("nu", layer.PoissonRatio) + Field("h", layer.Thickness) +
                            Field("alpha", layer.SlipRate, true);
                 }) +
            ",\n";
    text += List("loads", problem.Loads,
                 [](const solver::Load& load, std::size_t) {
                     return Field("P", load.Vertical) + Field("a", load.Radius) + Field("x", load.X) +
                            Field("y", load.Y) + Field("H", load.Horizontal) + Field("theta_deg", load.Angle, true);
                 }) +
            ",\n";
    text += List("points", problem.Points, [&](const solver::Point& point, std::size_t i) {
        std::string row = Field("layer", point.Layer) + Field("x", point.X) + Field("y", point.Y) + Field("z", point.Z);
        for (std::size_t c = 0; c < solver::ComponentCount; ++c) {
            const Two value = c >= solver::EPSx ? truth[i][c] * Two(1e6) : truth[i][c];
            row += Field(Names[c], value.Hi, c + 1 == solver::ComponentCount);
        }
        return row;
    });
    return text + "\n}\n";
}

}  // namespace zirvo::attack
