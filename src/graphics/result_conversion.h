// From the solver's report of a section to the comma file that a map is read from: X, Y, Z and one strain component of
// each point. Callers: the start buttons of the graphics screen and its RE-DRAW, the batch tool.
//
// The layout of the report is taken on trust: a number of text fields is thrown away, and what follows must be numbers.
// A comma in a line of the head ends a field, and an empty line is one.
#pragma once
#include <string>

#include "base/int16.h"
#include "base/progress.h"
#include "graphics/section.h"
#include "pavement/pavement_model.h"

namespace zirvo {

struct ConversionRequest {
    std::string ReportPath;
    std::string CsvPath;
    Int16 Language = 0;  ///< 1 Japanese, 2 English
    UnitSystem Units = UnitSystem::None;
    int LayerCount = 0;
    int PointCount = 0;
    Int16 OutputComponent = 0;  ///< any other than the two leaves an empty comma file
};

/// Text fields in front of those of the layers: 5, one more in English with unit system 1 (a comma in the head), one
/// more for the stamp.
int HeadFieldCount(bool alreadyStamped, Int16 language, UnitSystem units);

/// Reads the report, stamps it unless its first line tells that an earlier conversion has done so, and replaces the
/// comma file. Faults, each before anything is changed: 53 for a missing report, 62 for a short one, 13 where a number
/// should stand and does not, 9 beyond 100000 points; they carry what the solver itself says in a report without
/// results. Then 58 where "ZIRVO_SV.TMP" lies in the way, and those of files that cannot be written.
void ConvertResultsToCsv(const ConversionRequest& request, const Progress& progress = {});

}  // namespace zirvo
