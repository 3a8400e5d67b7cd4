// What do the inner loops cost on each engine? One call on the work of a block of nodes each.
#include <benchmark/benchmark.h>

#include <vector>

#include "solver/engine.h"
#include "solver/layered_sums.h"
#include "solver/tables.h"
#include "works.h"

namespace {

using namespace zirvo::solver;

struct Block {
    LayerTable Layers{zirvo::bench::GearWork()};
    std::vector<double> Xi, XiLow, Radii, Rows[4], Kernels, Total, Difference;
    double* Bessel[4];
    static constexpr int Tiles = 16;
    static constexpr int Depths = 8;
    std::vector<KernelDepth> At;

    Block() : Kernels(static_cast<std::size_t>(Depths) * RowCount * NodeBlock) {
        for (int i = 0; i < NodeBlock; ++i) {
            Xi.push_back(0.005 * (i + 1));
            XiLow.push_back(0);
        }
        for (int i = 0; i < Tiles * TileWidth; ++i) {
            Radii.push_back(3.0 * i);
        }
        for (int order = 0; order < 4; ++order) {
            Rows[order].resize(static_cast<std::size_t>(Tiles) * TileWidth * NodeBlock);
            Bessel[order] = Rows[order].data();
        }
        for (int i = 0; i < Depths; ++i) {
            At.push_back({i, 2.0, 3.0});
        }
        Total.resize(static_cast<std::size_t>(RowCount) * Depths * Tiles * TileWidth);
        Difference.resize(Total.size());
    }
};

const Engine* EngineOf(benchmark::State& state) {
    const Engine* engines[4];
    const int count = RunnableEngines(engines);
    if (state.range(0) >= count) {
        state.SkipWithError("this machine has no such engine");
        return engines[0];
    }
    state.SetLabel(engines[state.range(0)]->Name);
    return engines[state.range(0)];
}

void KernelsOfABlock(benchmark::State& state) {
    const Engine* engine = EngineOf(state);
    Block block;
    for (auto _ : state) {
        int deepest = block.Layers.View().Count - 1;
        engine->Kernels(block.Layers.View(), 11, block.Xi.data(), NodeBlock, block.At.data(), Block::Depths, true, true,
                        deepest, block.Kernels.data());
        benchmark::DoNotOptimize(block.Kernels.data());
    }
}

void BesselOfABlock(benchmark::State& state) {
    const Engine* engine = EngineOf(state);
    Block block;
    for (auto _ : state) {
        engine->Bessel(Bessels(), block.Xi.data(), block.XiLow.data(), NodeBlock, block.Radii.data(), Block::Tiles,
                       block.Bessel);
        benchmark::DoNotOptimize(block.Rows[0].data());
    }
    state.SetItemsProcessed(state.iterations() * NodeBlock * Block::Tiles * TileWidth);
}

void SumsOfABlock(benchmark::State& state) {
    const Engine* engine = EngineOf(state);
    Block block;
    for (auto _ : state) {
        engine->Accumulate(block.Kernels.data(), Block::Depths, NodeBlock, block.Bessel, 0, Block::Tiles, 0, RowCount,
                           block.Total.data(), block.Difference.data());
        benchmark::DoNotOptimize(block.Total.data());
    }
    state.SetItemsProcessed(state.iterations() * NodeBlock * Block::Tiles * TileWidth * Block::Depths * RowCount);
}

void HalfSpaceOfAPoint(benchmark::State& state) {
    const Engine* engine = EngineOf(state);
    HalfSpaceIntegrals integrals;
    for (auto _ : state) {
        engine->HalfSpace(Angles(), 11, 14, 3, integrals);
        benchmark::DoNotOptimize(integrals);
    }
}

BENCHMARK(KernelsOfABlock)->DenseRange(0, 2)->Unit(benchmark::kMicrosecond);
BENCHMARK(BesselOfABlock)->DenseRange(0, 2)->Unit(benchmark::kMicrosecond);
BENCHMARK(SumsOfABlock)->DenseRange(0, 2)->Unit(benchmark::kMicrosecond);
BENCHMARK(HalfSpaceOfAPoint)->DenseRange(0, 2);

}  // namespace
