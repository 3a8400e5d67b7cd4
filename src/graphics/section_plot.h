// One section on its road to a map: the steps of the graphics screen, and what it keeps between them.
// Callers: the start buttons of the graphics screen and its RE-DRAW, the batch tool.
//
// A start takes all five steps: StartSection, SolveSection, ConvertSection, LoadSection, DrawSection. RE-DRAW takes the
// last one, or for another strain component the last three. All work files lie in the current folder.
#pragma once
#include <string>

#include "base/progress.h"
#include "contour/draw_contour_map.h"
#include "graphics/result_data.h"
#include "graphics/run_input.h"
#include "graphics/section_run.h"

namespace zirvo {

/// What a map needs to be made and made again.
struct SectionPlot {
    UnitSystem Units = UnitSystem::None;
    Int16 LanguageBase = 0;
    SectionDefinition Section;
    std::string PositionText;  ///< the position as typed, for the title [cm]

    int LayerCount = 0;  ///< set by StartSection, as the member below
    SectionInput Input;
    std::string SolverNotStarted;  ///< path of the program, where SolveSection could not start it
    ResultDataSet Data;            ///< set by LoadSection
};

/// Writes the solver's input. Anything but Written ends the road here: see SectionInputStatus.
SectionInputStatus StartSection(SectionPlot& plot, const GraphicsInputData& model);

/// Runs the graphics solver.
/// @param programFolder  holds the solver
GraphicsRunResult SolveSection(SectionPlot& plot, const std::string& programFolder, ProcessService& process,
                               const ProcessCallbacks& callbacks);

/// Makes the comma file of the component from the report that lies there; faults as ConvertResultsToCsv. Where the
/// report is missing since the solver could not be started, the fault is about the solver.
void ConvertSection(const SectionPlot& plot, const Progress& progress = {});

/// Reads the comma file and refines its values; gives the read-outs, and leaves the map in their limits.
ReadOuts LoadSection(SectionPlot& plot, const Progress& progress = {});

/// The title of the map, as it is drawn.
std::string TitleOf(const SectionPlot& plot);

/// Draws the map that LoadSection has left.
/// @param items             as they stand: the rule of what may be shown together is the caller's
/// @param contourLineCount  levels; at least 5 by the rule of the screen
/// @param picture           the surface's own size [twips]
/// @param progress          of the drawing
void DrawSection(PlotSurface& surface, const SectionPlot& plot, const DisplayItems& items, Int16 contourLineCount,
                 const PlotGeometry& picture, const Progress& progress = {});

}  // namespace zirvo
