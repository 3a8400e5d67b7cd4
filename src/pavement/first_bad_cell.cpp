// The first cell that a rule refuses, see first_bad_cell.h.
#include "pavement/first_bad_cell.h"

#include <algorithm>

namespace zirvo {
namespace {

/// The first row of 1 to count, and in it the first column, that `judge` refuses.
template <class Judge>
std::optional<BadCell> FirstIn(int table, int count, const Judge& judge) {
    for (int row = 1; row <= count; ++row) {
        const auto refusals = judge(row);
        const auto bad =
            std::find_if(refusals.begin(), refusals.end(), [](Refusal refusal) { return refusal != Refusal::None; });
        if (bad != refusals.end()) {
            return BadCell{table, row, static_cast<int>(bad - refusals.begin()) + 1};
        }
    }
    return {};
}

template <class Cells>
const Cells& RowAt(const std::vector<Cells>& rows, int row) {
    if (static_cast<std::size_t>(row) >= rows.size()) {
        throw RuntimeFault(fault::SubscriptOutOfRange);
    }
    return rows[static_cast<std::size_t>(row)];
}

/// A point outside its layer: the number of the layer is to blame where there is none such, else the depth.
std::optional<BadCell> FirstBadDepth(const PavementTexts& texts) {
    const PavementModel model = ModelFromTexts(texts);
    const LayerTops tops = ComputeLayerTops(model.Layers.UpTo(model.LayerCount));
    return FirstIn(2, model.PointCount, [&](int row) {
        const Refusal refusal = JudgePointDepth(model.Points[row], tops, model.LayerCount);
        RowRefusals<PointColumns> refusals{};
        refusals[refusal == Refusal::NoSuchLayer ? 0 : PointColumns - 1] = refusal;
        return refusals;
    });
}

}  // namespace

std::optional<BadCell> FirstBadCell(const LoadedPavementTexts& texts, DataRule failed) {
    if (failed == DataRule::Layers) {
        const int count = CountOf(texts.LayerCount);
        return FirstIn(0, count, [&](int row) { return JudgeLayerTexts(RowAt(texts.Layers, row), row == count); });
    }
    if (failed == DataRule::Loads) {
        return FirstIn(1, CountOf(texts.LoadCount), [&](int row) { return JudgeLoadTexts(RowAt(texts.Loads, row)); });
    }
    return {};
}

std::optional<BadCell> FirstBadCell(const PavementTexts& texts, DataRule failed) {
    if (failed == DataRule::Points) {
        return FirstIn(2, CountOf(texts.PointCount),
                       [&](int row) { return JudgePointTexts(RowAt(texts.Points, row)); });
    }
    if (failed == DataRule::PointDepths) {
        return FirstBadDepth(texts);
    }
    return FirstBadCell(static_cast<const LoadedPavementTexts&>(texts), failed);
}

}  // namespace zirvo
