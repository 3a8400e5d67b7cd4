// The picture file of a map. Caller: the map command.
#pragma once
#include "batch/console.h"
#include "batch/map_options.h"
#include "graphics/section_plot.h"

namespace zirvo::batch {

/// Draws the map and writes the file, whole or not at all. Faults: those of a file that cannot be written.
/// @return BadInput where the program was built without Qt and can draw nothing; that is told.
ExitCode WriteMapPicture(const MapRequest& request, const SectionPlot& plot, Console& console);

}  // namespace zirvo::batch
