// What does a user of the map screen wait for? With the real windows on a platform without a display, each step with
// the painting that follows it; the shares of the stages are told by map_bench:
//   - StartToMap: the start button to the finished map, the motorway's axle of 4 wheels, X-Y (at most 0.3 s)
//   - OtherComponent: RE-DRAW that takes the other strain out of the report
//   - RedrawLargest: RE-DRAW of the largest matrix that a section gives (17 loads, 97969 points, 3121 by 3121 nodes)
//     with fill, 20 levels of lines and legend on 1000 by 1000 pixels (at most 0.6 s)
#include <benchmark/benchmark.h>

#include <QApplication>
#include <filesystem>
#include <memory>

#include "answering_desktop.h"
#include "graphics/form5.h"
#include "graphics/form6.h"
#include "platform/files.h"
#include "qt/widgets/screen_fonts.h"
#include "shell/form1.h"
#include "shell/form2.h"
#include "text/catalogue.h"

namespace zirvo {
namespace {

GraphicsInputData Motorway() {
    return *ReadGraphicsInput(ZIRVO_SAMPLES "/motorway.ven");
}

/// As many loads as give an X-Y section just under its largest number of points, none in line with another.
GraphicsInputData LargestSection() {
    GraphicsInputData data = Motorway();
    data.LoadCount = 17;
    for (int i = 1; i <= data.LoadCount; ++i) {
        data.Loads[i] = {49, 15, 31.0 * i, 37.0 * (i * 7 % 17), 0, 0};
    }
    return data;
}

/// A screen of 1531 by 1185 pixels has a map of 1000 by 1000.
constexpr forms::ScreenSize LargeScreen{.Width = 1531 * 15, .Height = 1185 * 15, .TwipsPerPixel = 15};

/// The map screen over a pavement that has been imported, in a folder of its own.
class MapScreen {
public:
    explicit MapScreen(const GraphicsInputData& data, std::optional<forms::ScreenSize> size = std::nullopt)
        : folder_(std::filesystem::temp_directory_path() / "zirvo-map-screen-bench") {
        std::filesystem::remove_all(folder_);
        std::filesystem::create_directories(folder_);
        ChangeFolder(folder_.string());
        WriteWholeFile("bench.ven", WriteGraphicsInput(data, UnitSystem::KnToMPa, EnglishBase));
        desktop_.Path = (folder_ / "bench.ven").string();
        desktop_.Size = size;
        App.Register("Form1", [](auto& app) { return std::make_unique<Form1>(app); });
        App.Register("Form2", [this](auto& app) { return std::make_unique<Form2>(app, folder_.string()); });
        App.Register("Form5", [](auto& app) { return std::make_unique<Form5>(app); });
        App.Register("Form6",
                     [this](auto& app) { return std::make_unique<Form6>(app, desktop_.MapPictureMaker(), ZIRVO_BIN); });
        App.Dispatch([this] {
            App.Get<Form1>().Option2.Value = true;
            App.Get<Form2>().Label2.Caption = folder_.string();
            App.Get<Form2>().Option3.Value = true;
        });
        App.Show("Form5");
        App.Get<Form5>().Option2.UserClick();
        App.Get<Form5>().Command1.UserClick();
        App.Show("Form6");
        Form().Combo1.UserChoose(0);
        Form().Option3.UserClick();
    }
    ~MapScreen() {
        desktop_.Release();
        ChangeFolder("/");
        std::filesystem::remove_all(folder_);
    }
    MapScreen(const MapScreen&) = delete;
    MapScreen& operator=(const MapScreen&) = delete;

    Form6& Form() { return App.Get<Form6>(); }
    void Paint() { desktop_.PaintNow(Form()); }
    void Position(const std::string& depth) {
        App.Dispatch([&] { Form().Text1.Text = depth; });
    }

private:
    std::filesystem::path folder_;
    bench::AnsweringDesktop desktop_;

public:
    forms::Application App{desktop_};
};

void StartToMap(benchmark::State& state) {
    MapScreen screen(Motorway());
    bool upper = true;
    for (auto step : state) {
        state.PauseTiming();
        screen.Position(upper ? "20" : "21");
        screen.Paint();
        upper = !upper;
        state.ResumeTiming();
        screen.Form().Command1.UserClick();
        screen.Paint();
    }
    state.counters["points"] = screen.Form().Plot.Data.Count();
}
BENCHMARK(StartToMap)->Unit(benchmark::kMillisecond)->UseRealTime();

void OtherComponent(benchmark::State& state) {
    MapScreen screen(Motorway());
    screen.Position("20");
    screen.Form().Command1.UserClick();
    int component = 0;
    for (auto step : state) {
        state.PauseTiming();
        component = 1 - component;
        screen.Form().Combo1.UserChoose(component);
        screen.Paint();
        state.ResumeTiming();
        screen.Form().Command5.UserClick();
        screen.Paint();
    }
}
BENCHMARK(OtherComponent)->Unit(benchmark::kMillisecond)->UseRealTime();

void RedrawLargest(benchmark::State& state) {
    MapScreen screen(LargestSection(), LargeScreen);
    screen.Position("20");
    Form6& form = screen.Form();
    form.Command1.UserClick();
    form.Check1(1).UserClick();
    bool narrow = false;
    for (auto step : state) {
        state.PauseTiming();
        narrow = !narrow;
        screen.App.Dispatch([&] { form.Text4.Text = narrow ? "50" : "60"; });
        screen.Paint();
        state.ResumeTiming();
        form.Command5.UserClick();
        screen.Paint();
    }
    state.counters["nodes"] = form.Plot.Data.Map.Field.FineCountX();
}
BENCHMARK(RedrawLargest)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace zirvo

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication::setDesktopSettingsAware(false);
    QApplication::setStyle(QStringLiteral("Fusion"));
    const QApplication application(argc, argv);
    QApplication::setFont(zirvo::widgets::ScreenFont({}));
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
