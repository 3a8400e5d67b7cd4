// The solver's input of a section, "ZIRVO_SV.EVA": the layout of the analysis input file with one report name, other
// widths, and the points of the grid. Callers: the start buttons of the graphics screen, the batch tool.
#pragma once
#include <string>

#include "graphics/point_grid.h"
#include "graphics/section.h"
#include "pavement/pavement_model.h"

namespace zirvo {

/// Work files of a section, with fixed names, in the current folder; replaced without a question.
inline constexpr const char* SectionInputName = "ZIRVO_SV.EVA";
inline constexpr const char* SectionReportName = "ZIRVO_SV.BRE";
inline constexpr const char* SectionCsvName = "ZIRVO_SV.CSV";

/// The bytes of the file, in code page 932. Points of an X-Y section come Y outer, X inner, those of an X-Z section
/// layer, level, X. The position of the plane stands unrounded, the positions of the grid with 2 decimals.
/// @param grid          of BuildSectionGrid for the same pavement and kind; at most PointLimit points, else fault 9
/// @param languageBase  language of the headings
std::string WriteGraphicsRunInput(const GraphicsInputData& model, const SectionDefinition& section,
                                  const CoarseGrid& grid, UnitSystem unitSystem, Int16 languageBase);

/// The depth test behind the last point. On an X-Z section only the levels of the last layer are tested: it fails where
/// its top, rounded to 2 decimals, is less than its depth by more than DepthTolerance, and so lies in the layer above.
/// On an X-Y section it passes whatever the depth is.
bool ValidateSectionDepths(const GraphicsInputData& model, SectionKind kind, const CoarseGrid& grid);

enum class SectionInputStatus {
    Written,
    TooManyPoints,  ///< k=128 and k=129; nothing was written
    DepthInvalid,   ///< k=61 and k=57; the file stands complete, but must not be solved
};

/// What a start has made. The grid is needed again when the results are read.
struct SectionInput {
    SectionInputStatus Status = SectionInputStatus::TooManyPoints;
    CoarseGrid Grid;
    int PointCount = 0;  ///< 0 with TooManyPoints
};

/// Builds the grid, writes "ZIRVO_SV.EVA" into the current folder and tests the depths. Faults: those of a file that
/// cannot be written (the earlier one stays whole), 6 for positions beyond any pavement.
SectionInput PrepareSectionInput(const GraphicsInputData& model, const SectionDefinition& section,
                                 UnitSystem unitSystem, Int16 languageBase);

}  // namespace zirvo
