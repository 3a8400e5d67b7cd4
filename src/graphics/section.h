// What the user says about a plot: which strain, which kind of plane, where. All else follows from loads and layers.
// Callers: the start buttons of the graphics screen, the point grid, the conversion of the results, the batch tool.
#pragma once
#include <functional>
#include <optional>
#include <span>
#include <string_view>

#include "base/int16.h"
#include "contour/contour_map.h"

namespace zirvo {

/// The strain component of a map, as its place in the list on the screen plus 1.
inline constexpr Int16 ComponentEpsX = 1;
inline constexpr Int16 ComponentEpsZ = 2;

/// Read at the moment of the start, kept no longer than the run.
struct SectionDefinition {
    Int16 OutputComponent = 0;  ///< ComponentEpsX or ComponentEpsZ; 0 while none is chosen
    SectionKind Kind = SectionKind::XY;
    double SectionPosition = 0;  ///< X-Y: the depth Z of the plane, X-Z: its Y [cm]; any number
    Int16 LayerOfInterest = 0;   ///< X-Y only: the layer in which the plane is evaluated, 1-based

    bool operator==(const SectionDefinition&) const = default;
};

/// Asks the user with Yes and No; true for Yes.
/// @param layer  the text of the question is this number alone
/// @param title  the title of the box, UTF-8
using LayerQuestion = std::function<bool(Int16 layer, std::string_view title)>;

/// The title of the second question, the same in both languages and with plain blanks, unlike the catalogue's k=169.
inline constexpr std::string_view SecondLayerQuestionTitle = "着 目 層";

/// The layer that an X-Y plane at this depth lies in; nothing if the user refuses both neighbours of an interface. At
/// depth 0 it is layer 1; a negative depth, or one below all interfaces, is in the last layer. On an interface
/// (exactly, by sums of doubles) the user is asked for the layer above and then for the one below. A thickness too
/// small to change the sum makes two interfaces of one depth, so that the user is asked twice and the last answer
/// stands; by rounding a depth just below an interface can miss every layer and is then in the last one.
/// @param position      depth [cm]
/// @param thickness     of layers 1 to layerCount - 1 [cm], 1-based: entry 0 is unused. Fewer entries are fault 9.
/// @param languageBase  language of the first question's title
std::optional<Int16> ResolveLayerOfInterest(double position, std::span<const double> thickness, Int16 layerCount,
                                            Int16 languageBase, const LayerQuestion& ask);

}  // namespace zirvo
