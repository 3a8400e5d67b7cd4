// How much of the kernels of direct sums is rounding: as in level_sum.cpp, sampled at two depths of each layer.
#include <algorithm>
#include <cmath>

#include "solver/direct_sum.h"
#include "solver/sum_rules.h"

namespace zirvo::solver {

/// Share of rounding in each segment, slot and kind, into the first half of Doubts; then spread into the second.
void DirectSum::SampleRounding(int nodes, int deepest) {
    const int segments = (nodes + Segment - 1) / Segment;
    std::fill(scratch_.Doubts.begin(), scratch_.Doubts.end(), 0.0);
    if (precise_) {
        return;
    }
    const std::size_t count = samples_.size();
    if (scratch_.Precise.size() < count * RowCount * NodeBlock) {
        scratch_.Precise.resize(count * RowCount * NodeBlock);
    }
    const double least = LeastRounding + ContrastRounding * work_.Layers.Contrast;
    alignas(64) double xi[Segments], xiLow[Segments];
    int node[Segments];
    for (int s = 0; s < Segments; ++s) {
        node[s] = std::min(std::min(s, segments - 1) * Segment + Segment / 2, nodes - 1);
        xi[s] = xi_[node[s]];
        xiLow[s] = xiLow_[node[s]];
    }
    const Engine& engine = work_.TheEngine;
    engine.PreciseKernels(work_.Layers.View(), springs_.Radii.front(), xi, xiLow, Segments, samples_.data(),
                          static_cast<int>(count), vertical_, horizontal_, deepest, scratch_.Precise.data(), nullptr);
    alignas(64) double depth[4 * NodeBlock];
    for (std::size_t sample = 0; sample < count; ++sample) {
        const std::size_t slot = sample / SampleDepths;
        const bool last = slotLayers_[slot] + 1 == static_cast<int>(work_.Layers.M2.size());
        for (int s = 0; s < segments; ++s) {
            const int from = node[s] / 8 * 8;
            engine.DepthFunctions(samples_[sample], last, xi_ + from, 8,
                                  scratch_.Forms.data() + slot * NodeBlock + static_cast<std::size_t>(from),
                                  ThinOf(slot, from), depth);
            CompareSample(sample, s, node[s], depth + node[s] % 8, least);
        }
    }
    SpreadDoubts(segments);
}

/// The rows at one node of one depth, from the fields, against those in two parts.
/// @param depth  functions of depth there, NodeBlock apart
void DirectSum::CompareSample(std::size_t sample, int segment, int node, const double* depth, double least) {
    const std::size_t slot = sample / SampleDepths;
    const double* numbers = scratch_.Fields.data() + slot * static_cast<std::size_t>(nodeBlock_) * FieldNumbers +
                            static_cast<std::size_t>(node / 8 * 8 * FieldNumbers + node % 8);
    const auto component = [&](std::ptrdiff_t i) {
        double sum = 0;
        for (std::ptrdiff_t j = 0; j < 4; ++j) {
            sum += numbers[(i * 4 + j) * 8] * depth[j * NodeBlock];
        }
        return sum;
    };
    double row[RowCount];
    if (vertical_) {
        row[RowVerticalW] = component(0) * inverse_[node];
        row[RowVerticalS] = component(1);
        row[RowVerticalU0] = row[RowVerticalU2] = component(2);
        row[RowVerticalU1] = row[RowVerticalU0] * inverse_[node];
        row[RowVerticalT] = component(3);
    }
    if (horizontal_) {
        row[RowHorizontalW] = component(HorizontalFields) * inverse_[node];
        row[RowHorizontalS] = component(HorizontalFields + 1);
        row[RowHorizontalU] = component(HorizontalFields + 2);
        row[RowSum1] = component(HorizontalFields + 3);
        row[RowSum0] = row[RowSum1] * inverse_[node];
        row[RowShear0] = component(HorizontalFields + 4);
        row[RowDifference3] = row[RowHorizontalU] - row[RowSum1];
        row[RowDifference2] = row[RowDifference3] * inverse_[node];
        row[RowShear2] = component(HorizontalFields + 5);
    }
    double off[Kinds] = {};
    double largest[Kinds] = {};
    double plain[Kinds] = {};
    for (int i = FirstRow(); i < LastRow(); ++i) {
        const double precise = scratch_.Precise[(sample * RowCount + static_cast<std::size_t>(i)) * NodeBlock +
                                                static_cast<std::size_t>(segment)];
        const auto kind = static_cast<std::size_t>(RowKind[i]);
        off[kind] = LargerOrNone(off[kind], std::fabs(row[i] - precise));
        largest[kind] = std::max(largest[kind], std::fabs(precise));
        plain[kind] = std::max(plain[kind], std::fabs(row[i]));
    }
    for (std::size_t kind = 0; kind < Kinds; ++kind) {
        double& share = scratch_.Doubts[(static_cast<std::size_t>(segment) * slotLayers_.size() + slot) * Kinds + kind];
        const double here = RoundingShare(off[kind], largest[kind], plain[kind]);
        share = std::max({share, here, least});
    }
}

/// The worst of neighbours, with its safety.
void DirectSum::SpreadDoubts(int segments) {
    const std::size_t width = slotLayers_.size() * Kinds;
    const double* told = scratch_.Doubts.data();
    double* spread = scratch_.Doubts.data() + Segments * width;
    for (int s = 0; s < segments; ++s) {
        for (std::size_t i = 0; i < width; ++i) {
            const std::size_t at = static_cast<std::size_t>(s) * width + i;
            double worst = told[at];
            worst = s > 0 ? std::max(worst, told[at - width]) : worst;
            worst = s + 1 < segments ? std::max(worst, told[at + width]) : worst;
            spread[at] = PairKernelSafety * worst;
        }
    }
}

}  // namespace zirvo::solver
