// What does a map cost? A field of 3000 by 3000 nodes on a picture of 1000 by 1000 pixels, smooth as strains are.
#include <benchmark/benchmark.h>

#include <cmath>

#include "contour/color_scale.h"
#include "contour/conrec.h"
#include "contour/draw_contour_map.h"
#include "contour/recording_surface.h"
#include "contour/refinement.h"
#include "large_map.h"

namespace {

using namespace zirvo;

using bench::LargeField;
using bench::LargeMap;
using bench::LargeView;

constexpr int Nodes = bench::LargeFieldNodes;
constexpr int PictureSize = bench::LargePictureSize;

/// Counts what it is asked to draw.
class CountingSurface : public PixelSurface {
public:
    CountingSurface() : PixelSurface(PictureSize, PictureSize) {}
    void Line(float, float, float, float, Color) override { ++Drawn; }
    std::size_t Drawn = 0;
};

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
    const ContourMap map = LargeMap();
    const MapView view = LargeView();
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
