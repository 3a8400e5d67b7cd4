// What does a map cost? A field of 3000 by 3000 nodes on a picture of 1000 by 1000 pixels, smooth as strains are.
#include <benchmark/benchmark.h>

#include <cmath>

#include "contour/color_scale.h"
#include "contour/conrec.h"
#include "contour/recording_surface.h"

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

}  // namespace
