// What does a user of the data screen and of the result viewer wait for at the limit of 10000 points? With the real
// windows on a platform without a display, each step with the painting that follows it:
//   - CountStep: one step of the points' scroll bar between 10000 and 9999 (at most 16 ms)
//   - ImportCheckSave: OPEN FILE, DATA OK!, SAVE DATA (at most 0.2 s)
//   - ScrollToTheEnd, EditTheLastRow: the points' grid
//   - TypeAndUndo: a digit, Enter and Ctrl+Z in the last row, each stroke timed by itself (at most 16 ms)
//   - PasteAll: Ctrl+V of 10000 new rows, 200 times, so that 200 of them can be undone (memory within 200 MB)
//   - StrokeWhileKept: a digit typed into a cell at the very moment when all is handed over to be kept, while the
//     former state is still being written (at most 16 ms; "longest" of all)
//   - KeepAll: from that moment until the data are on the disk, which nobody waits for
//   - WholeView, RebuiltView: a report of 10000 points (at most 0.5 s)
#include <benchmark/benchmark.h>

#include <QApplication>
#include <algorithm>
#include <array>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <utility>

#include "analysis/form3.h"
#include "analysis/form4.h"
#include "analysis/solver_run.h"
#include "answering_desktop.h"
#include "forms/key_stroke.h"
#include "kept/kept_store.h"
#include "pavement/analysis_input.h"
#include "platform/files.h"
#include "qt/widgets/screen_fonts.h"
#include "shell/form1.h"
#include "shell/form2.h"
#include "text/catalogue.h"

namespace zirvo {
namespace {

/// 3 layers, 2 loads, and points on 100 verticals of 100 depths each.
PavementModel LargestModel() {
    PavementModel model;
    model.LayerCount = 3;
    model.LoadCount = 2;
    model.PointCount = MaximumPoints;
    model.Layers[1] = {5000, 0.35, 15, 0};
    model.Layers[2] = {300, 0.35, 30, 0};
    model.Layers[3] = {50, 0.4, 0, 0};
    model.Loads[1] = {49, 15, 0, 0, 0, 0};
    model.Loads[2] = {49, 15, 100, 0, 0, 0};
    for (int i = 0; i < MaximumPoints; ++i) {
        const int depth = i % 100;
        const int layer = depth < 15 ? 1 : depth < 45 ? 2 : 3;
        model.Points[i + 1] = {static_cast<Int16>(layer), 2.5 * (i / 100), 1.25 * (i % 7), static_cast<double>(depth)};
    }
    model.ResultFileName = "big.bre";
    model.PrincipalFileName = "big.san";
    return model;
}

/// The screens of an analysis in a folder of their own that holds the largest file.
class Screens {
public:
    explicit Screens(bool keeps = false) : folder_(std::filesystem::temp_directory_path() / "zirvo-screens-bench") {
        std::filesystem::remove_all(folder_);
        std::filesystem::create_directories(folder_);
        ChangeFolder(folder_.string());
        WriteWholeFile("big.eva", WriteAnalysisInput(LargestModel(), UnitSystem::KnToMPa, EnglishBase));
        desktop_.Path = (folder_ / "big.eva").string();
        App.Register("Form1", [](auto& app) { return std::make_unique<Form1>(app); });
        App.Register("Form2", [this](auto& app) { return std::make_unique<Form2>(app, folder_.string()); });
        App.Register("Form3", [this, keeps](auto& app) {
            auto form = std::make_unique<Form3>(app, *processes_, ProgramFolder());
            if (keeps) {
                form->KeepIn(Kept);
            }
            return form;
        });
        desktop_.HoldsCalls = keeps;
        App.Register("Form4", [](auto& app) { return std::make_unique<Form4>(app); });
        App.Dispatch([this] {
            App.Get<Form1>().Option2.Value = true;
            App.Get<Form2>().Label2.Caption = folder_.string();
            App.Get<Form2>().Option3.Value = true;
        });
        App.Show("Form3");
    }
    ~Screens() {
        desktop_.Release();
        Kept.Wait();
        std::filesystem::remove_all(folder_);
    }
    Screens(const Screens&) = delete;
    Screens& operator=(const Screens&) = delete;

    Form3& Data() { return App.Get<Form3>(); }
    void Import() {
        Data().Option2.UserClick();
        Data().Command1.UserClick();
    }
    /// A report of as many points, of the solver's layout.
    Form4& Reports() {
        std::ofstream report("big.bre", std::ios::binary);
        report << "   <ZIRVO Ver2.3>\r\n"
               << "   ===\r\n"
               << "   ===\r\n";
        for (int line = 0; line < MaximumPoints + 2; ++line) {
            report << std::string(29, '1');
            for (int value = 0; value < 15; ++value) {
                report << " -1.2345E-01";
            }
            report << "\r\n";
        }
        report << "   ===\r\n";
        report.close();
        App.Show("Form4");
        return App.Get<Form4>();
    }
    void SetClipboard(const std::string& text) { desktop_.SetClipboardText(text); }
    void Paint(forms::Form& form) { desktop_.PaintNow(form); }
    /// The time of what waits has come.
    void MakeWaitingCall() {
        const std::function<void()> call = std::exchange(desktop_.Waiting, {});
        if (call) {
            call();
        }
    }

private:
    std::filesystem::path folder_;
    std::unique_ptr<ProcessService> processes_ = MakeProcessService();
    bench::AnsweringDesktop desktop_;

public:
    KeptStore Kept{(folder_ / "state").string()};
    forms::Application App{desktop_};
};

void CountStep(benchmark::State& state) {
    Screens screens;
    screens.Import();
    Form3& form = screens.Data();
    screens.Paint(form);
    bool down = true;
    for (auto step : state) {
        if (down) {
            form.VScroll3.UserStepToMax();
        } else {
            form.VScroll3.UserStepToMin();
        }
        screens.Paint(form);
        down = !down;
    }
}
BENCHMARK(CountStep)->Unit(benchmark::kMillisecond);

void ImportCheckSave(benchmark::State& state) {
    Screens screens;
    Form3& form = screens.Data();
    screens.Paint(form);
    for (auto step : state) {
        screens.Import();
        form.Command5.UserClick();
        form.Command6.UserClick();
        screens.Paint(form);
        state.PauseTiming();
        form.Command4.UserClick();
        screens.Paint(form);
        state.ResumeTiming();
    }
}
BENCHMARK(ImportCheckSave)->Unit(benchmark::kMillisecond);

void ScrollToTheEnd(benchmark::State& state) {
    Screens screens;
    screens.Import();
    Form3& form = screens.Data();
    int row = 1;
    for (auto step : state) {
        row = row == 1 ? MaximumPoints : 1;
        form.MSFlexGrid3.UserScrollTo(row, 1);
        screens.Paint(form);
    }
}
BENCHMARK(ScrollToTheEnd)->Unit(benchmark::kMillisecond);

void EditTheLastRow(benchmark::State& state) {
    Screens screens;
    screens.Import();
    Form3& form = screens.Data();
    form.MSFlexGrid3.UserFocus();
    for (auto step : state) {
        form.MSFlexGrid3.UserClickCell(MaximumPoints, 2);
        form.Strike(forms::StrokeOf('7'));
        form.Strike(forms::StrokeOfKey(forms::key::Escape));
        screens.Paint(form);
    }
}
BENCHMARK(EditTheLastRow)->Unit(benchmark::kMillisecond);

void TypeAndUndo(benchmark::State& state) {
    Screens screens;
    screens.Import();
    Form3& form = screens.Data();
    form.MSFlexGrid3.UserFocus();
    form.MSFlexGrid3.UserClickCell(MaximumPoints, 2);
    const std::array strokes{forms::StrokeOf('7'), forms::StrokeOfKey(forms::key::Enter), forms::StrokeOfControl('Z')};
    double longest = 0;  // ms
    for (auto step : state) {
        for (const forms::KeyStroke& stroke : strokes) {
            const auto start = std::chrono::steady_clock::now();
            form.Strike(stroke);
            screens.Paint(form);
            const std::chrono::duration<double, std::milli> taken = std::chrono::steady_clock::now() - start;
            longest = std::max(longest, taken.count());
        }
    }
    state.counters["longest stroke, ms"] = longest;
}
BENCHMARK(TypeAndUndo)->Unit(benchmark::kMillisecond);

/// Pages of memory that the program has, as MB.
double MemoryInUse() {
    std::ifstream pages("/proc/self/statm");
    double whole = 0;
    double resident = 0;
    pages >> whole >> resident;
    return resident * 4096 / 1e6;
}

void PasteAll(benchmark::State& state) {
    Screens screens;
    screens.Import();
    Form3& form = screens.Data();
    form.MSFlexGrid3.UserFocus();
    form.MSFlexGrid3.UserClickCell(1, 1);
    int round = 0;
    for (auto step : state) {
        state.PauseTiming();
        ++round;
        std::string block;
        for (int row = 0; row < MaximumPoints; ++row) {
            block += "1\t" + std::to_string(row * 0.25 + round) + "\t" + std::to_string(round * 1.5) + "\t" +
                     std::to_string((row + round) % 1000 * 0.1) + "\n";
        }
        screens.SetClipboard(block);
        state.ResumeTiming();
        form.Strike(forms::StrokeOfControl('V'));
        screens.Paint(form);
    }
    state.counters["steps"] = static_cast<double>(form.History().UndoSteps());
    state.counters["history, MB"] = static_cast<double>(form.History().Bytes()) / 1e6;
    state.counters["program, MB"] = MemoryInUse();
}
BENCHMARK(PasteAll)->Unit(benchmark::kMillisecond)->Iterations(200);

/// A digit into a cell of the last row, which is begun anew now and then.
void StrokeWhileKept(benchmark::State& state) {
    Screens screens(true);
    screens.Import();
    Form3& form = screens.Data();
    form.MSFlexGrid3.UserFocus();
    form.MSFlexGrid3.UserClickCell(MaximumPoints, 2);
    double longest = 0;  // ms
    int strokes = 0;
    for (auto step : state) {
        const auto start = std::chrono::steady_clock::now();
        form.Strike(forms::StrokeOf(static_cast<char32_t>('0' + strokes % 10)));
        screens.MakeWaitingCall();
        screens.Paint(form);
        const std::chrono::duration<double, std::milli> taken = std::chrono::steady_clock::now() - start;
        longest = std::max(longest, taken.count());
        if (++strokes % 10 == 0) {
            state.PauseTiming();
            form.Strike(forms::StrokeOfKey(forms::key::Escape));
            state.ResumeTiming();
        }
    }
    state.counters["longest stroke, ms"] = longest;
}
BENCHMARK(StrokeWhileKept)->Unit(benchmark::kMillisecond);

void KeepAll(benchmark::State& state) {
    Screens screens(true);
    screens.Import();
    Form3& form = screens.Data();
    form.MSFlexGrid3.UserFocus();
    form.MSFlexGrid3.UserClickCell(MaximumPoints, 2);
    int strokes = 0;
    for (auto step : state) {
        form.Strike(forms::StrokeOf(static_cast<char32_t>('0' + strokes++ % 10)));
        screens.MakeWaitingCall();
        screens.Kept.Wait();
    }
}
BENCHMARK(KeepAll)->Unit(benchmark::kMillisecond)->UseRealTime();

/// Both views by turns, of which one is timed.
void View(benchmark::State& state, bool rebuilt) {
    Screens screens;
    screens.Import();
    Form4& form = screens.Reports();
    forms::OptionButton& timed = rebuilt ? form.Option2 : form.Option1;
    forms::OptionButton& other = rebuilt ? form.Option1 : form.Option2;
    for (auto step : state) {
        state.PauseTiming();
        other.UserClick();
        screens.Paint(form);
        state.ResumeTiming();
        timed.UserClick();
        screens.Paint(form);
    }
}
BENCHMARK_CAPTURE(View, Whole, false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(View, Rebuilt, true)->Unit(benchmark::kMillisecond);

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
