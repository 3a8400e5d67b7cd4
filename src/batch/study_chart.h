// The chart of a study. Caller: the study command.
#pragma once
#include <string>

#include "batch/console.h"
#include "batch/study_command.h"
#include "chart/chart.h"
#include "study/study.h"

namespace zirvo::batch {

/// Why the chart cannot be made of this study's columns; empty if it can, or if none is asked for.
std::string ReasonAgainstChart(const study::Study& study, const PlotRequest& plot);

/// Draws the chart of the finished results at `memory`; the picture is written whole or not at all.
ExitCode DrawStudyChart(const study::Study& study, const std::string& memory, const PlotRequest& plot,
                        Console& console);

/// The picture file of a chart. Faults: those of a file that cannot be written. BadInput where the program was built
/// without Qt and can draw nothing; that is told.
ExitCode WriteChartPicture(const PlotRequest& plot, const Chart& chart, Console& console);

}  // namespace zirvo::batch
