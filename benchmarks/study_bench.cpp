// How many pavements a second does a study work off, and how much of that is not the solver's own call? A road of 3
// layers, 1 load, 2 points, and one of 5 layers, 8 loads, 10 points with lives; each as the solver's call alone, as
// the solver's calls for the rows of a study, as those rows without a file, and as a whole run with its files on one
// thread and on two. The column CPU is of the whole process: what WholeStudy has above SolverOfRows is what reading,
// varying, lives and the files cost.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <limits>

#include "solver/solve.h"
#include "study/row_work.h"
#include "study/run_study.h"

namespace {

using namespace zirvo::study;
namespace solver = zirvo::solver;

constexpr std::uint64_t WholeRun = 4000;  // rows

solver::Problem Road() {
    solver::Problem road;
    road.Layers = {{5000, 0.35, 15, 0}, {300, 0.35, 30, 0}, {50, 0.4, 0, 0}};
    road.Loads = {{49, 15, 0, 0, 0, 0}};
    road.Points = {{1, 0, 0, 15}, {3, 0, 0, 45}};
    return road;
}

solver::Problem Motorway() {
    solver::Problem road;
    road.Layers = {{5000, 0.35, 5, 0}, {3000, 0.35, 10, 0}, {600, 0.35, 20, 0}, {250, 0.35, 30, 0}, {60, 0.4, 0, 0}};
    for (const double x : {-106.0, -74.0, 74.0, 106.0}) {
        for (const double y : {-66.0, 66.0}) {
            road.Loads.push_back({24.5, 11, x, y, 0, 0});
        }
    }
    for (const double x : {74.0, 80.0, 90.0, 98.0, 106.0}) {
        road.Points.push_back({2, x, 66, 15});
        road.Points.push_back({5, x, 66, 65});
    }
    return road;
}

/// Thickness and modulus of the first layer vary; strains of the road's points, or lives of the motorway's.
Study StudyOf(const solver::Problem& base) {
    Study study;
    study.Base = base;
    study.What = Study::Kind::Sample;
    study.Rows = WholeRun;
    study.Seed = 1;
    study.Digest = "benchmark";
    for (const auto& [name, mean] : {std::pair("layer 1 thickness", base.Layers[0].Thickness),
                                     std::pair("layer 1 modulus", base.Layers[0].Modulus)}) {
        Varied varied{std::get<Parameter>(ParameterOf(name, base)), {}};
        varied.Draw = Sampler({Distribution::Kind::Uniform, mean * 0.8, 0, mean * 1.2, 0, 0, 0, 0});
        study.Vary.push_back(varied);
    }
    for (std::size_t i = 0; i < base.Points.size(); ++i) {
        const bool lives = base.Points.size() > 2;
        Kept kept{"kept " + std::to_string(i), lives ? Kept::Kind::ShortestLife : Kept::Kind::Largest,
                  i % 2 == 0 ? int{solver::EPSx} : int{solver::EPSz}};
        kept.Function = std::get<0>(zirvo::design::TransferFunctionOf(i % 2 == 0 ? "ai-fatigue" : "ai-rutting"));
        kept.Points = {i};
        study.Keep.push_back(kept);
    }
    return study;
}

solver::Problem BaseOf(const benchmark::State& state) {
    return state.range(0) == 3 ? Road() : Motorway();
}

void SolverAlone(benchmark::State& state) {
    const solver::Problem problem = solver::ToConsistentUnits(BaseOf(state), solver::UnitSystem::KnToMpa);
    for (auto _ : state) {
        benchmark::DoNotOptimize(solver::Solve(problem, {.Threads = 1}));
    }
    state.counters["pavements/s"] = benchmark::Counter(1, benchmark::Counter::kIsIterationInvariantRate);
}

/// The pavements of a study, ready for the solver.
std::vector<solver::Problem> ProblemsOf(const Study& study) {
    std::vector<solver::Problem> problems;
    std::vector<double> values;
    for (std::uint64_t row = 0; row < study.Rows; ++row) {
        solver::Problem problem = study.Base;
        study.ValuesOf(row, values);
        for (std::size_t i = 0; i < values.size(); ++i) {
            SetParameter(study.Vary[i].What, values[i], problem);
        }
        for (solver::Point& point : problem.Points) {  // all lie on or below the first layer's bottom
            point.Z += problem.Layers[0].Thickness - study.Base.Layers[0].Thickness;
        }
        problems.push_back(solver::ToConsistentUnits(problem, solver::UnitSystem::KnToMpa));
    }
    return problems;
}

void SolverOfRows(benchmark::State& state) {
    const std::vector<solver::Problem> problems = ProblemsOf(StudyOf(BaseOf(state)));
    for (auto _ : state) {
        for (const solver::Problem& problem : problems) {
            benchmark::DoNotOptimize(solver::Solve(problem, {.Threads = 1}));
        }
    }
}

void Rows(benchmark::State& state) {
    const Study study = StudyOf(BaseOf(state));
    RowWork work(study);
    RowResult result;
    std::uint64_t row = 0;
    for (auto _ : state) {
        work.Run(row++ % WholeRun, result);
        benchmark::DoNotOptimize(result);
    }
    state.counters["pavements/s"] = benchmark::Counter(1, benchmark::Counter::kIsIterationInvariantRate);
}

void WholeStudy(benchmark::State& state) {
    const Study study = StudyOf(BaseOf(state));
    const std::filesystem::path folder = std::filesystem::temp_directory_path() / "zirvo-bench-study";
    for (auto _ : state) {
        state.PauseTiming();
        std::filesystem::remove_all(folder);
        std::filesystem::create_directory(folder);
        state.ResumeTiming();
        const auto outcome = RunStudy(study, {(folder / "r").string(), static_cast<int>(state.range(1))});
        if (outcome.index() != 0) {
            state.SkipWithError("the study failed");
        }
    }
    std::filesystem::remove_all(folder);
    state.counters["pavements/s"] =
        benchmark::Counter(static_cast<double>(WholeRun), benchmark::Counter::kIsIterationInvariantRate);
}

BENCHMARK(SolverAlone)->ArgName("layers")->Arg(3)->Arg(5)->Unit(benchmark::kMicrosecond);
BENCHMARK(SolverOfRows)->ArgName("layers")->Arg(3)->Arg(5)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();
BENCHMARK(Rows)->ArgName("layers")->Arg(3)->Arg(5)->Unit(benchmark::kMicrosecond);
BENCHMARK(WholeStudy)
    ->ArgNames({"layers", "threads"})
    ->Args({3, 1})
    ->Args({3, 2})
    ->Args({5, 1})
    ->Args({5, 2})
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime()
    ->UseRealTime();

}  // namespace
