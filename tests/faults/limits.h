// Pavements at the limit: 100 layers, 100 loads, 10000 points. Callers: the tests of this folder.
#pragma once
#include <algorithm>
#include <string>

#include "pavement/analysis_input.h"
#include "pavement/graphics_input.h"

namespace zirvo::test {

/// @param columns  of loads, along X
template <class Model>
void FillToTheLimit(Model& model, int columns = 10) {
    model.LayerCount = MaximumLayers;
    model.LoadCount = MaximumLoads;
    for (int i = 1; i <= MaximumLayers; ++i) {
        model.Layers[i] = {.Modulus = 8050.0 - 80 * i, .PoissonRatio = 0.35, .Thickness = 2, .SlipRate = 0};
    }
    model.Layers[MaximumLayers].Thickness = 0;
    for (int i = 1; i <= MaximumLoads; ++i) {
        model.Loads[i] = {.VerticalLoad = 25,
                          .Radius = 10,
                          .LoadX = 60.0 * ((i - 1) % columns),
                          .LoadY = 60.0 * ((i - 1) / columns),
                          .HorizontalLoad = 5,
                          .AngleFromX = 3.0 * i};
    }
}

/// A hundred places, each at a hundred depths, in the middle of each layer.
inline PavementModel ModelAtTheLimit() {
    PavementModel model;
    FillToTheLimit(model);
    model.PointCount = MaximumPoints;
    for (int i = 1; i <= MaximumPoints; ++i) {
        const int place = (i - 1) / 100;
        const int level = (i - 1) % 100;
        model.Points[i] = {.LayerNumber = static_cast<Int16>(level + 1),
                           .PointX = 55.0 * (place % 10),
                           .PointY = 55.0 * (place / 10),
                           .PointZ = 2.0 * level + 1};
    }
    model.InputFileName = "limit.eva";
    model.ResultFileName = "limit.bre";
    model.PrincipalFileName = "limit.san";
    return model;
}

inline GraphicsInputData GraphicsAtTheLimit(int columns) {
    GraphicsInputData data;
    FillToTheLimit(data, columns);
    return data;
}

/// Rows between the second and the third marker of a report, without its two lines of headings.
inline int RowsOfReport(const std::string& report) {
    std::size_t at = 0;
    for (int marker = 0; marker < 2 && at != std::string::npos; ++marker) {
        at = report.find("\n   ===", at + 1);
    }
    const std::size_t end = at == std::string::npos ? at : report.find("\n   ===", at + 1);
    return end == std::string::npos
               ? -1
               : static_cast<int>(std::count(report.begin() + static_cast<std::ptrdiff_t>(at) + 1,
                                             report.begin() + static_cast<std::ptrdiff_t>(end), '\n')) -
                     2;
}

}  // namespace zirvo::test
