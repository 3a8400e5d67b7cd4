// What does a map cost? A field of 3000 by 3000 nodes on a picture of 1000 by 1000 pixels, smooth as strains are.
#include <benchmark/benchmark.h>

#include <cmath>

#include "contour/color_scale.h"
#include "contour/conrec.h"
#include "contour/draw_contour_map.h"
#include "contour/recording_surface.h"
#include "contour/refinement.h"

namespace {

using namespace zirvo;

constexpr int Nodes = 3000;
constexpr int PictureSize = 1000;

/// Counts what it is asked to draw.
class CountingSurface : public PixelSurface {
public:
    CountingSurface() : PixelSurface(PictureSize, PictureSize) {}
    void Line(float, float, float, float, Color) override { ++Drawn; }
    std::size_t Drawn = 0;
};

/// Four load-like humps on a slow slope, values between -1E-4 and 4E-4.
const ContourField& LargeField() {
    static const ContourField field = [] {
        ContourField made;
        made.Values = ValueMatrix(Nodes + 1, Nodes + 1);
        for (int n = 1; n <= Nodes; ++n) {
            made.FineAxis1.push_back(0.1 * n);
            made.FineAxis2.push_back(0.1 * n);
        }
        const double centres[4][2] = {{80, 90}, {115, 90}, {80, 225}, {115, 225}};
        for (int j = 1; j <= Nodes; ++j) {
            for (int i = 1; i <= Nodes; ++i) {
                double value = -1e-4;
                for (const auto& centre : centres) {
                    value += 4e-4 * std::exp(-std::hypot(0.1 * i - centre[0], 0.1 * j - centre[1]) / 30);
                }
                made.Values.At(i, j) = value;
            }
        }
        return made;
    }();
    return field;
}

void TraceLines(benchmark::State& state) {
    const ContourField& field = LargeField();
    CountingSurface surface;
    for (auto _ : state) {
        conrec(surface, -1e-4, 4e-4, field.Values, field.FineAxis1, field.FineAxis2, static_cast<Int16>(state.range(0)),
               1, Nodes, 1, Nodes, 0);
    }
    state.counters["lines"] =
        benchmark::Counter(static_cast<double>(surface.Drawn), benchmark::Counter::kAvgIterations);
}
BENCHMARK(TraceLines)->Arg(20)->Arg(200)->Unit(benchmark::kMillisecond);

void Fill(benchmark::State& state) {
    const ContourField& field = LargeField();
    CountingSurface surface;
    surface.Scale(-20, 320, 320, -20);
    for (auto _ : state) {
        FillContourCells(surface, -1e-4, 4e-4, field);
    }
}
BENCHMARK(Fill)->Unit(benchmark::kMillisecond);

/// Fill, 20 levels of lines, frame and legend, painted into memory; texts are not.
void WholeMap(benchmark::State& state) {
    ContourMap map;
    map.Field = LargeField();
    map.Extent = {0.1, 300, 0.1, 300};
    map.ValueMin = -1e-4;
    map.ValueMax = 4e-4;
    MapView view;
    view.Items.ContourLines = true;
    view.Plot = {0, 0, 15.0 * PictureSize, 15.0 * PictureSize};
    view.Title = MakeTitleText(SectionKind::XY, 1, "0", 1, "");
    PixelSurface surface(PictureSize, PictureSize);
    for (auto _ : state) {
        DrawContourMap(surface, map, view);
        benchmark::DoNotOptimize(surface.Pixels.data());
    }
}
BENCHMARK(WholeMap)->Unit(benchmark::kMillisecond);

/// 301 by 301 coarse nodes to 3001 by 3001 fine ones.
void Refine(benchmark::State& state) {
    CoarseGrid grid;
    for (int n = 0; n <= 300; ++n) {
        grid.GridX.push_back(FixedPoint4::FromUnits(10000 * n));
    }
    grid.GridY = grid.GridX;
    ContourField field;
    field.FineAxis1 = BuildFineAxis(grid.GridX);
    field.FineAxis2 = BuildFineAxis(grid.GridY);
    field.Values = ValueMatrix(3001, 3001);
    for (int j = 1; j <= 3001; j += RefineFactor) {
        for (int i = 1; i <= 3001; i += RefineFactor) {
            field.Values.At(i, j) = std::sin(0.01 * i) * std::cos(0.013 * j);
        }
    }
    for (auto _ : state) {
        RefineMatrixXY(field, grid);
        benchmark::DoNotOptimize(field.Values.Row(1).data());
    }
}
BENCHMARK(Refine)->Unit(benchmark::kMillisecond);

}  // namespace
