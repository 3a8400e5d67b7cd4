// The rules that make the data of an analysis valid, on numbers (as the import has them) and on cell texts (as the
// screens have them). The rules on texts are the rules on numbers plus the tests on empty cells, so that the two cannot
// drift apart; the check tool lists with the same functions what the screens only count.
// Callers: DATA OK! of both data screens, the readers of the input files, the check tool.
#pragma once
#include <algorithm>
#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "pavement/pavement_model.h"

namespace zirvo {

inline constexpr double HighestPoissonRatio = 0.5;
inline constexpr double HighestSlipRate = 0.99;

/// Why a value is refused.
enum class Refusal {
    None,
    Empty,               ///< a cell without any text; a blank is a text
    NotPositive,         ///< must be above 0
    Negative,            ///< must not be below 0
    AbovePoissonLimit,   ///< above 0.5
    AboveSlipLimit,      ///< above 0.99
    NoLoad,              ///< vertical and horizontal load both exactly 0
    OutsideSixteenBits,  ///< a layer number that no 16-bit integer holds
    NoSuchLayer,         ///< a layer number below 0 or above the count of layers
    AboveItsLayer,       ///< a depth above the top of the layer it names
    BelowItsLayer,       ///< a depth below the bottom of the layer it names
    NoPoint,             ///< a file name without a point
    WrongExtension,      ///< a file name that is not its text before the first point plus the extension
    Zero,                ///< a count of 0
};

/// One entry for each value of a row, in the order of the columns.
template <std::size_t Columns>
using RowRefusals = std::array<Refusal, Columns>;

template <std::size_t Columns>
bool Passes(const RowRefusals<Columns>& row) {
    return std::all_of(row.begin(), row.end(), [](Refusal refusal) { return refusal == Refusal::None; });
}

// Rules on numbers --------------------------------------------------------------------------------------------------

/// Modulus and thickness above 0, Poisson ratio above 0 up to 0.5, slip rate 0 to 0.99; of the last layer only modulus
/// and Poisson ratio.
RowRefusals<LayerColumns> JudgeLayer(const PavementLayer& layer, bool last);

/// A vertical or a horizontal load other than 0, a radius above 0; the rest is free.
RowRefusals<LoadColumns> JudgeLoad(const SurfaceLoad& load);

/// Whether a point lies in the layer it names: None, NoSuchLayer, AboveItsLayer or BelowItsLayer. A point within
/// DepthTolerance of an interface belongs to either neighbour, the last layer has no lower limit, and layer number 0 is
/// a layer without thickness at the surface (with one layer only: that layer).
Refusal JudgePointDepth(const InterestPoint& point, const LayerTops& tops, int layerCount);

/// True if every point lies in the layer it names; stops at the first that does not.
/// @param points  1-based: entry 0 is unused.
bool ValidatePointDepths(std::span<const InterestPoint> points, const LayerTops& tops, int layerCount);

/// The rule that files apply to a name inside them: None, Empty, NoPoint or WrongExtension. The extension includes its
/// point; the comparison is case-sensitive and goes by the first point, so "a.b.bre" is refused.
Refusal JudgeReportName(std::string_view name, std::string_view extension);

// Rules on texts ----------------------------------------------------------------------------------------------------

using LayerTexts = std::array<std::string, LayerColumns>;
using LoadTexts = std::array<std::string, LoadColumns>;
using PointTexts = std::array<std::string, PointColumns>;

/// All that the data screen of the graphics path holds. Entry i of a grid is its row i; entry 0 stands for the heading
/// row and is not looked at.
struct LoadedPavementTexts {
    std::string LayerCount;  ///< caption, as " 3"
    std::string LoadCount;
    std::string InputFileName;
    std::vector<LayerTexts> Layers;
    std::vector<LoadTexts> Loads;
};

/// All that the data screen of an analysis holds.
struct PavementTexts : LoadedPavementTexts {
    std::string PointCount;
    std::string ResultFileName;
    std::string PrincipalFileName;
    std::vector<PointTexts> Points;
};

RowRefusals<LayerColumns> JudgeLayerTexts(const LayerTexts& cells, bool last);
RowRefusals<LoadColumns> JudgeLoadTexts(const LoadTexts& cells);

/// The layer number is read strictly here and nowhere else: fault 13 where it does not as a whole read as a number,
/// also if other cells of the row fail too.
RowRefusals<PointColumns> JudgePointTexts(const PointTexts& cells);

/// The 16-bit count that a caption holds. Fault 6 beyond 16 bits.
Int16 CountOf(std::string_view caption);

/// True if no caption is empty and no count is 0.
bool ValidateCounts(std::span<const std::string_view> captions);

/// True if no name is empty.
bool ValidateFileNames(std::span<const std::string_view> names);

/// True if a name can stand in a file and be read from it as the same: the solver and the import would take another
/// file, or one in another folder, for a comma, a blank or a quote in front, a folder, a line end or another control
/// character, or half-width katakana whose bytes read as UTF-8.
bool SurvivesInFile(std::string_view name);

/// True if the rows 1 to count pass; stops at the first that does not. Fewer rows than the count says are fault 9.
bool ValidateLayers(std::span<const LayerTexts> rows, int count);
bool ValidateLoads(std::span<const LoadTexts> rows, int count);
bool ValidatePoints(std::span<const PointTexts> rows, int count);

/// The name to use: with the extension (its point included) in place of whatever stands behind, and every other point
/// an underscore. "run" gives "run.eva", "run.txt" "run_txt.eva", "RUN.EVA" "RUN_EVA.eva", "" ".eva".
std::string NormaliseFileName(std::string_view name, std::string_view extension);

/// The numbers of the texts. Of the last layer only modulus and Poisson ratio are used. Fault 9 where a count passes
/// its bound or the rows given, 6 where a count or a layer number leaves 16 bits.
PavementModel ModelFromTexts(const PavementTexts& texts);
LoadedPavement LoadedPavementFromTexts(const LoadedPavementTexts& texts);

/// The rule that refused the data, in the order in which they are applied.
enum class DataRule { None, Counts, FileNames, Layers, Loads, Points, PointDepths };

/// Applies all rules and gives the first that fails, None if the data passes. The rule of the file names takes in that
/// each of them survives in a file. Fault 13 as JudgePointTexts.
DataRule ValidateData(const PavementTexts& texts);

/// The same rules in the same order on the data of the graphics path, which has no points, and whose one name stands in
/// no file.
DataRule ValidateLoadedPavement(const LoadedPavementTexts& texts);

/// The message of a rule that failed: k = 58 to 61 or 63; 0 for None.
Int16 MessageOf(DataRule rule);

}  // namespace zirvo
