// The layer of a plane, see section.h.
#include "graphics/section.h"

#include "base/runtime_fault.h"
#include "text/catalogue.h"

namespace zirvo {

namespace {

constexpr Int16 FirstLayerQuestionTitle = 169;

/// Asks for the two neighbours of the interface below layer `above`.
std::optional<Int16> AskForNeighbour(Int16 above, Int16 languageBase, const LayerQuestion& ask) {
    if (ask(above, GetMessage(languageBase, FirstLayerQuestionTitle))) {
        return above;
    }
    const Int16 below = AddInt16(above, 1);
    if (ask(below, SecondLayerQuestionTitle)) {
        return below;
    }
    return std::nullopt;
}

}  // namespace

std::optional<Int16> ResolveLayerOfInterest(double position, std::span<const double> thickness, Int16 layerCount,
                                            Int16 languageBase, const LayerQuestion& ask) {
    if (position == 0) {
        return Int16{1};
    }
    if (position < 0) {
        return layerCount;
    }
    std::optional<Int16> layer;
    bool answered = false;
    double sum = 0;
    for (Int16 i = 1; i < layerCount; ++i) {
        const auto index = static_cast<std::size_t>(i);
        if (index >= thickness.size()) {
            throw RuntimeFault(fault::SubscriptOutOfRange);
        }
        sum += thickness[index];
        if (position < sum && position > sum - thickness[index]) {
            // On an interface the layer below can match too, by the rounding of this difference: the answer stands.
            layer = answered ? layer : i;
        } else if (position == sum) {
            layer = AskForNeighbour(i, languageBase, ask);
            answered = true;
            if (!layer) {
                return std::nullopt;
            }
        }
    }
    return layer ? *layer : layerCount;
}

}  // namespace zirvo
