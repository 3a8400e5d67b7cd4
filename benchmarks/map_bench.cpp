// From a graphics input file to a picture: what does each stage of the road cost? The motorway's axle of four wheels,
// an X-Y section at the bottom of the asphalt, a picture of the design size; and the large map on a picture of 1000 by
// 1000 pixels. The solver is the program itself, started as the screen starts it.
#include <benchmark/benchmark.h>

#include <filesystem>

#include "contour/color_scale.h"
#include "contour/conrec.h"
#include "contour/refinement.h"
#include "graphics/section_plot.h"
#include "large_map.h"
#include "platform/files.h"
#include "qt/image_surface.h"
#include "qt/offscreen.h"
#include "qt/picture_files.h"
#include "text/catalogue.h"

namespace {

using namespace zirvo;

constexpr Int16 Levels = 20;
constexpr int Wide = 529;
constexpr int High = 540;
constexpr DisplayItems Nothing{false, false, false, false, false};

/// A folder for the work files, current until the program ends.
class WorkFolder {
public:
    WorkFolder() : path_(std::filesystem::temp_directory_path() / "zirvo-bench") {
        std::filesystem::create_directories(path_);
        ChangeFolder(path_.string());
    }
    ~WorkFolder() {
        ChangeFolder("/");
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    WorkFolder(const WorkFolder&) = delete;
    WorkFolder& operator=(const WorkFolder&) = delete;

private:
    std::filesystem::path path_;
};

void EnterWorkFolder() {
    static const WorkFolder folder;
}

void StartQt() {
    static const OffscreenQt qt;
}

GraphicsInputData Motorway() {
    return *ReadGraphicsInput(ZIRVO_SAMPLES "/motorway.ven");
}

SectionPlot NewPlot() {
    EnterWorkFolder();
    SectionPlot plot;
    plot.Units = UnitSystem::KnToMPa;
    plot.LanguageBase = EnglishBase;
    plot.Section = {ComponentEpsX, SectionKind::XY, 22, 3};
    plot.PositionText = "22";
    return plot;
}

void Solve(SectionPlot& plot) {
    SolveSection(plot, ZIRVO_BIN, *MakeProcessService(), {});
}

/// With its work files, and the report fresh from the solver.
SectionPlot SolvedPlot() {
    SectionPlot plot = NewPlot();
    StartSection(plot, Motorway());
    Solve(plot);
    return plot;
}

const SectionPlot& LoadedPlot() {
    static const SectionPlot plot = [] {
        SectionPlot made = SolvedPlot();
        ConvertSection(made);
        LoadSection(made);
        return made;
    }();
    return plot;
}

void Draw(PlotSurface& surface, const SectionPlot& plot, const DisplayItems& items) {
    DrawSection(surface, plot, items, Levels, GeometryOfPixels(Wide, High));
}

/// A surface on which the map has been drawn, so that its scale stands.
void Prepare(ImageSurface& surface) {
    StartQt();
    Draw(surface, LoadedPlot(), Nothing);
}

void Stage1_Grid(benchmark::State& state) {
    SectionPlot plot = NewPlot();
    const GraphicsInputData model = Motorway();
    for (auto _ : state) {
        StartSection(plot, model);
    }
    state.counters["points"] = plot.Input.PointCount;
}
BENCHMARK(Stage1_Grid)->Unit(benchmark::kMillisecond);

void Stage2_Solver(benchmark::State& state) {
    SectionPlot plot = SolvedPlot();
    for (auto _ : state) {
        Solve(plot);
    }
}
BENCHMARK(Stage2_Solver)->Unit(benchmark::kMillisecond)->UseRealTime();

void Stage3_Conversion(benchmark::State& state) {
    const SectionPlot plot = SolvedPlot();
    const std::string fresh = ReadFileBytes(SectionReportName);
    for (auto _ : state) {
        state.PauseTiming();
        WriteWholeFile(SectionReportName, fresh, Flush::ToSystem);
        state.ResumeTiming();
        ConvertSection(plot);
    }
}
BENCHMARK(Stage3_Conversion)->Unit(benchmark::kMillisecond)->UseRealTime();

/// With the refinement, whose share the next one tells.
void Stage4_Reading(benchmark::State& state) {
    SectionPlot plot = SolvedPlot();
    ConvertSection(plot);
    for (auto _ : state) {
        LoadSection(plot);
    }
}
BENCHMARK(Stage4_Reading)->Unit(benchmark::kMillisecond)->UseRealTime();

void Stage4_Refinement(benchmark::State& state) {
    ContourMap map = LoadedPlot().Data.Map;
    for (auto _ : state) {
        RefineMatrixXY(map.Field, map.Grid);
        benchmark::DoNotOptimize(map.Field.Values.Row(1).data());
    }
}
BENCHMARK(Stage4_Refinement)->Unit(benchmark::kMillisecond);

void Stage5_Fill(benchmark::State& state) {
    ImageSurface surface(Wide, High);
    Prepare(surface);
    const ContourMap& map = LoadedPlot().Data.Map;
    for (auto _ : state) {
        FillContourCells(surface, map.ValueMin, map.ValueMax, map.Field);
    }
}
BENCHMARK(Stage5_Fill)->Unit(benchmark::kMillisecond);

void TraceOn(PlotSurface& surface, const ContourMap& map) {
    const ContourField& field = map.Field;
    conrec(surface, map.ValueMin, map.ValueMax, field.Values, field.FineAxis1, field.FineAxis2, Levels, 1,
           field.FineCountX(), 1, field.FineCountY(), 0);
}

void Stage6_Lines(benchmark::State& state) {
    ImageSurface surface(Wide, High);
    Prepare(surface);
    for (auto _ : state) {
        TraceOn(surface, LoadedPlot().Data.Map);
    }
}
BENCHMARK(Stage6_Lines)->Unit(benchmark::kMillisecond);

/// Frame, axis numbers, title and legend.
void Stage7_Texts(benchmark::State& state) {
    ImageSurface surface(Wide, High);
    Prepare(surface);
    DisplayItems items = Nothing;
    items.Legend = true;
    for (auto _ : state) {
        Draw(surface, LoadedPlot(), items);
    }
}
BENCHMARK(Stage7_Texts)->Unit(benchmark::kMillisecond);

/// A mark and a number at each point, on a bare frame.
void Stage7_PointsAndValues(benchmark::State& state) {
    ImageSurface surface(Wide, High);
    Prepare(surface);
    DisplayItems items = Nothing;
    items.AnalyticalPoints = true;
    items.AnalyticalResults = true;
    for (auto _ : state) {
        Draw(surface, LoadedPlot(), items);
    }
}
BENCHMARK(Stage7_PointsAndValues)->Unit(benchmark::kMillisecond);

void Stage8_Bitmap(benchmark::State& state) {
    ImageSurface surface(Wide, High);
    Prepare(surface);
    for (auto _ : state) {
        benchmark::DoNotOptimize(BitmapBytes(surface.Image()).data());
    }
}
BENCHMARK(Stage8_Bitmap)->Unit(benchmark::kMillisecond);

/// All of it, with fill, lines and legend.
void WholeRoad(benchmark::State& state) {
    StartQt();
    DisplayItems items;
    items.ContourLines = true;
    for (auto _ : state) {
        SectionPlot plot = SolvedPlot();
        ConvertSection(plot);
        LoadSection(plot);
        ImageSurface surface(Wide, High);
        Draw(surface, plot, items);
        benchmark::DoNotOptimize(surface.Image().constBits());
    }
}
BENCHMARK(WholeRoad)->Unit(benchmark::kMillisecond)->UseRealTime();

void LargeFill(benchmark::State& state) {
    StartQt();
    const ContourMap map = bench::LargeMap();
    ImageSurface surface(bench::LargePictureSize, bench::LargePictureSize);
    DrawContourMap(surface, map, bench::LargeView());
    for (auto _ : state) {
        FillContourCells(surface, map.ValueMin, map.ValueMax, map.Field);
    }
}
BENCHMARK(LargeFill)->Unit(benchmark::kMillisecond);

void LargeLines(benchmark::State& state) {
    StartQt();
    const ContourMap map = bench::LargeMap();
    ImageSurface surface(bench::LargePictureSize, bench::LargePictureSize);
    DrawContourMap(surface, map, bench::LargeView());
    for (auto _ : state) {
        TraceOn(surface, map);
    }
}
BENCHMARK(LargeLines)->Unit(benchmark::kMillisecond);

void LargeWholeMap(benchmark::State& state) {
    StartQt();
    const ContourMap map = bench::LargeMap();
    const MapView view = bench::LargeView();
    ImageSurface surface(bench::LargePictureSize, bench::LargePictureSize);
    for (auto _ : state) {
        DrawContourMap(surface, map, view);
        benchmark::DoNotOptimize(surface.Image().constBits());
    }
}
BENCHMARK(LargeWholeMap)->Unit(benchmark::kMillisecond);

}  // namespace
