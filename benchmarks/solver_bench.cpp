// How long does a solution take, and how does it grow with layers, loads, points and different depths? Solutions only:
// no reading, no reports (those are timed as whole processes).
#include <benchmark/benchmark.h>

#include "works.h"

namespace {

using zirvo::solver::Problem;
using zirvo::solver::Solve;

void Run(benchmark::State& state, const Problem& problem, int threads) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(Solve(problem, {threads}));
    }
}

void Road(benchmark::State& state) {
    Run(state, zirvo::bench::RoadWork(), 1);
}
void DualWheels(benchmark::State& state) {
    Run(state, zirvo::bench::DualWheelWork(), 1);
}
// One pavement of a study: solutions a second on one core.
void SmallStudy(benchmark::State& state) {
    Run(state, zirvo::bench::SmallStudyWork(), 1);
    state.SetItemsProcessed(state.iterations());
}
void WheelStudy(benchmark::State& state) {
    Run(state, zirvo::bench::WheelStudyWork(), 1);
    state.SetItemsProcessed(state.iterations());
}
void Gear(benchmark::State& state) {
    Run(state, zirvo::bench::GearWork(), 1);
}
void GearOnThreads(benchmark::State& state) {
    Run(state, zirvo::bench::GearWork(), static_cast<int>(state.range(0)));
}
void Limit(benchmark::State& state) {
    Run(state, zirvo::bench::LimitWork(), static_cast<int>(state.range(0)));
}
void HarshLimit(benchmark::State& state) {
    Run(state, zirvo::bench::HarshLimitWork(), 2);
}
// Of any legal pavement 100 points take 2 s at most, and the limit 5 s.
void Films(benchmark::State& state) {
    Run(state, zirvo::bench::FilmsWork(static_cast<double>(state.range(0)) / 10), 2);
}
void HarshFilms(benchmark::State& state) {
    Run(state, zirvo::bench::HarshFilmsWork(), 2);
}
void Scattered(benchmark::State& state) {
    Run(state, zirvo::bench::ScatteredWork(), 1);
}
void Layers(benchmark::State& state) {
    Run(state, zirvo::bench::ScaledWork(static_cast<int>(state.range(0)), 4, 1000, 10, 0), 1);
}
void LayersWithSlip(benchmark::State& state) {
    Run(state, zirvo::bench::ScaledWork(static_cast<int>(state.range(0)), 4, 1000, 10, 0.5), 1);
}
void Loads(benchmark::State& state) {
    Run(state, zirvo::bench::ScaledWork(5, static_cast<int>(state.range(0)), 1000, 10, 0), 1);
}
void Points(benchmark::State& state) {
    Run(state, zirvo::bench::ScaledWork(5, 4, static_cast<int>(state.range(0)), 10, 0), 1);
}
void Depths(benchmark::State& state) {
    Run(state, zirvo::bench::ScaledWork(5, 4, 10000, static_cast<int>(state.range(0)), 0), 1);
}

BENCHMARK(Road)->Unit(benchmark::kMillisecond);
BENCHMARK(DualWheels)->Unit(benchmark::kMillisecond);
BENCHMARK(SmallStudy)->Unit(benchmark::kMicrosecond);
BENCHMARK(WheelStudy)->Unit(benchmark::kMicrosecond);
BENCHMARK(Gear)->Unit(benchmark::kMillisecond);
BENCHMARK(GearOnThreads)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(Limit)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(HarshLimit)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);
BENCHMARK(Films)->Arg(0)->Arg(5)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);
BENCHMARK(HarshFilms)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);
BENCHMARK(Scattered)->Unit(benchmark::kMillisecond);
BENCHMARK(Layers)->Arg(2)->Arg(5)->Arg(20)->Arg(100)->Unit(benchmark::kMillisecond);
BENCHMARK(LayersWithSlip)->Arg(2)->Arg(5)->Arg(20)->Arg(100)->Unit(benchmark::kMillisecond);
BENCHMARK(Loads)->Arg(1)->Arg(4)->Arg(20)->Arg(100)->Unit(benchmark::kMillisecond);
BENCHMARK(Points)->Arg(10)->Arg(100)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(Depths)->Arg(1)->Arg(10)->Arg(100)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

}  // namespace
