// The program of seven screens, see screens_program.h.
#include "screens_program.h"

#include <filesystem>
#include <sstream>

#include "base/runtime_fault.h"
#include "contour/rounding.h"
#include "platform/files.h"
#include "solver/io/solver_run.h"
#include "support/fuzzing.h"
#include "support/work_folder.h"

namespace zirvo::fuzz {
namespace {

/// A smooth field in place of the theory, which has a fuzzer of its own.
solver::Solution SmoothField(const solver::Problem& problem) {
    solver::Solution solution;
    for (const solver::Point& point : problem.Points) {
        solver::PointResult result;
        double value = 1e-6 * (point.X - 2 * point.Y + 0.5 * point.Z * point.Layer);
        for (double& component : result.Values) {
            component = value;
            value *= -1.5;
        }
        solution.Points.push_back(result);
    }
    return solution;
}

/// Counts what is drawn. Texts have the size of the map's fonts.
class CountingSurface : public PlotSurface {
public:
    CountingSurface(int pixelsWide, int pixelsHigh) : PlotSurface(pixelsWide, pixelsHigh) {}
    void Cls() override { Count(); }
    void Line(float /*x1*/, float /*y1*/, float /*x2*/, float /*y2*/, Color /*color*/) override { Count(); }
    void Box(float /*x1*/, float /*y1*/, float /*x2*/, float /*y2*/, Color /*color*/) override { Count(); }
    void FilledBox(float /*x1*/, float /*y1*/, float /*x2*/, float /*y2*/, Color /*color*/) override { Count(); }
    void Print(std::string_view /*text*/) override { Count(); }
    float TextWidth(std::string_view text) const override {
        return Picture().WidthOf(static_cast<double>(text.size()) * 6);
    }
    float TextHeight(std::string_view /*text*/) const override { return Picture().HeightOf(12); }

private:
    void Count() { ++commands_; }
    long long commands_ = 0;
};

class CountingPicture : public MapPicture {
public:
    CountingPicture(int pixelsWide, int pixelsHigh) : surface_(pixelsWide, pixelsHigh) {}
    PlotSurface& Surface() override { return surface_; }
    void Present() override {}
    void SaveBitmap(const std::string& path) override { WriteWholeFile(path, "BM", Flush::ToSystem); }
    void Save(const std::string& path, MapFileFormat /*format*/, const std::string& /*title*/,
              const std::function<void(PlotSurface&)>& draw) override {
        CountingSurface surface(surface_.Picture().PixelsWide, surface_.Picture().PixelsHigh);
        draw(surface);
        WriteWholeFile(path, "%PDF", Flush::ToSystem);
    }
    void Copy() override {}

private:
    CountingSurface surface_;
};

int PixelsOf(double twips) {
    return std::max(1, static_cast<int>(twips / 15));
}

}  // namespace

ProgramFolders ProgramFolders::MakeAll() {
    EmptyWorkFolder();
    const std::string& base = WorkFolder();
    const ProgramFolders folders{base + "/program", base + "/work", base + "/kept", base + "/other"};
    for (const std::string* folder : {&folders.Program, &folders.Work, &folders.Other}) {
        std::filesystem::create_directory(*folder);
    }
    for (const char* help : {"/ZIRVO1.html", "/ZIRVO2.html"}) {
        PutFile(folders.Program + help, "<html/>");
    }
    ChangeFolder(folders.Work);
    return folders;
}

int RandomSolver::StartHidden(const std::string& program) {
    const std::uint8_t kind = source_.Byte();
    if (kind == 255) {
        throw RuntimeFault(fault::FileNotFound);
    }
    if (kind == 254) {
        return 0;  // no identifier, no wait
    }
    if (kind == 253) {
        return 1;  // and no report
    }
    std::ostringstream messages;
    const auto solve = [](const solver::Problem& problem, const solver::SolveOptions&) { return SmoothField(problem); };
    if (FileNameOf(program).find("SV12") != std::string::npos) {
        solver::RunAnalysis(solve, messages);
    } else {
        solver::RunSection(solve, messages);
    }
    if (kind >= 248) {
        for (const auto& entry : std::filesystem::directory_iterator(".")) {
            const std::string extension = entry.path().extension().string();
            if (entry.is_regular_file() && (extension == ".bre" || extension == ".BRE" || extension == ".san")) {
                PutFile(entry.path().string(), source_.Text(source_.Below(200)));
            }
        }
    }
    return 1;
}

std::intptr_t RandomSolver::Open(int /*identifier*/) {
    if (source_.Byte() == 255) {
        return 0;
    }
    ++open_;
    return 7;
}

void RandomSolver::Wait(std::intptr_t handle) {
    Require(handle == 7 && open_ == 1, "only an open process is waited for");
}

void RandomSolver::Close(std::intptr_t handle) {
    Require(handle == 7 && open_ == 1, "each process is closed once");
    --open_;
}

ScreensProgram::ScreensProgram(ByteSource& source, const ProgramFolders& folders, bool keeps)
    : Folders(folders),
      Desktop(source,
              {folders.Work + "/Untitled.eva", folders.Work + "/Untitled.ven", folders.Work + "/road.eva",
               folders.Work + "/road.ven", folders.Work + "/picture", folders.Work + "/picture.svg",
               folders.Other + "/road.eva", folders.Work, "road.eva", ""},
              {folders.Work, folders.Other, folders.Work + "/missing", "/"}),
      Kept(keeps ? std::make_unique<KeptStore>(folders.Kept) : nullptr) {
    const auto solver = std::make_shared<RandomSolver>(source);
    KeptStore* kept = Kept.get();
    const auto keepIn = [kept](auto form) {
        if (kept != nullptr) {
            form->KeepIn(*kept);
        }
        return form;
    };
    const std::string program = folders.Program;
    if (kept != nullptr) {
        App.KeepTypedData = [kept] { return kept->IsKept(); };
    }
    App.Register("Form1", [](forms::Application& app) { return std::make_unique<Form1>(app); });
    App.Register("Form2", [program](forms::Application& app) { return std::make_unique<Form2>(app, program); });
    App.Register("Form3", [solver, program, keepIn](forms::Application& app) {
        return keepIn(std::make_unique<Form3>(app, *solver, program));
    });
    App.Register("Form4", [](forms::Application& app) { return std::make_unique<Form4>(app); });
    App.Register("Form5",
                 [program, keepIn](forms::Application& app) { return keepIn(std::make_unique<Form5>(app, program)); });
    App.Register("Form6", [solver, program](forms::Application& app) {
        const auto picture = [](forms::PictureBox& control) {
            return std::make_unique<CountingPicture>(PixelsOf(control.Width), PixelsOf(control.Height));
        };
        return std::make_unique<Form6>(app, picture, program, solver);
    });
    App.Register("Form7", [](forms::Application& app) { return std::make_unique<Form7>(app); });
}

}  // namespace zirvo::fuzz
