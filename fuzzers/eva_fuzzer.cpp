// The analysis input file: import and check judge alike, what is read is written and read back, and the solver's own
// reader takes what the writer writes.
#include <array>
#include <sstream>
#include <string>
#include <variant>

#include "pavement/analysis_input.h"
#include "solver/io/solver_input.h"
#include "support/round_trip.h"
#include "text/catalogue.h"

namespace zirvo::fuzz {
namespace {

constexpr std::array<std::size_t, LayerColumns> LayerWidths{13, 17, 17, 16};
constexpr std::array<std::size_t, LoadColumns> LoadWidths{10, 17, 17, 16, 15, 19};

AnalysisInputResult Read(const std::string& bytes) {
    std::istringstream stream(bytes);
    return ReadAnalysisInput(stream);
}

WrittenNumbers NumbersOf(const PavementModel& model) {
    WrittenNumbers numbers;
    for (int i = 1; i <= model.LayerCount; ++i) {
        numbers.AddRow(model.Layers[i], LayerFields, FieldsOfLayer(i == model.LayerCount), LayerWidths);
    }
    for (int i = 1; i <= model.LoadCount; ++i) {
        numbers.AddRow(model.Loads[i], LoadFields, LoadColumns, LoadWidths);
    }
    for (int i = 1; i <= model.PointCount; ++i) {
        const InterestPoint& point = model.Points[i];
        numbers.Add(point.LayerNumber, 0, 5);
        numbers.Add(point.PointX, 1, 16);
        numbers.Add(point.PointY, 2, 13);
        numbers.Add(point.PointZ, 3, 13);
    }
    return numbers;
}

/// The solver takes every file that the screens write and no number of which touches another.
void RequireSolverReads(const PavementModel& model, const std::string& bytes) {
    std::istringstream stream(bytes);
    const auto read = solver::ReadSolverInput(stream);
    if (const auto* error = std::get_if<solver::InputError>(&read)) {
        using solver::Word;
        const bool rounded = error->Reason == Word::AboveItsLayer || error->Reason == Word::BelowItsLayer;
        Require(error->Reason == Word::DoesNotFit || (rounded && !NumbersOf(model).Exact),
                "the solver reads what the screens write");
        return;
    }
    const auto& input = std::get<solver::SolverInput>(read);
    Require(input.Typed.Layers.size() == static_cast<std::size_t>(model.LayerCount) &&
                input.Typed.Loads.size() == static_cast<std::size_t>(model.LoadCount) &&
                input.Typed.Points.size() == static_cast<std::size_t>(model.PointCount),
            "the solver finds all rows");
    Require(input.ReportNames == std::vector{model.ResultFileName, model.PrincipalFileName},
            "the solver finds the names of the reports");
    if (NumbersOf(model).Exact) {
        for (int i = 1; i <= model.LoadCount; ++i) {
            const solver::Load& load = input.Typed.Loads[static_cast<std::size_t>(i) - 1];
            const SurfaceLoad& ours = model.Loads[i];
            Require(load.Vertical == ours.VerticalLoad && load.Radius == ours.Radius && load.X == ours.LoadX &&
                        load.Y == ours.LoadY && load.Horizontal == ours.HorizontalLoad && load.Angle == ours.AngleFromX,
                    "the solver reads the numbers of the loads as they are");
        }
    }
}

}  // namespace

const int LongestRun = 1;

void RunInput(std::string_view bytes) {
    const std::string file(bytes);
    const AnalysisInputResult read = Read(file);
    std::istringstream stream(file);
    RequireSameJudgement(read, CheckAnalysisInput(stream));
    if (!read.Passed() || !SurvivesInFile(read->ResultFileName) || !SurvivesInFile(read->PrincipalFileName)) {
        return;
    }
    const Int16 base = bytes.size() % 2 == 0 ? EnglishBase : JapaneseBase;
    const auto units = static_cast<UnitSystem>(bytes.size() % 4);
    const auto write = [&](const PavementModel& model) { return WriteAnalysisInput(model, units, base); };
    const WrittenNumbers numbers = NumbersOf(*read);
    RequireRoundTrip(*read, numbers, write, Read);
    if (numbers.Apart && numbers.InFirst) {
        RequireSolverReads(*read, write(*read));
    }
}

}  // namespace zirvo::fuzz
