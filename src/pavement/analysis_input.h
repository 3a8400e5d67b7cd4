// The analysis input file (".eva"): report names, counts, layers, loads and points of one analysis. The solver reads
// the same file, so its layout is a contract, kept to the byte. Callers: SAVE DATA and the import of the analysis
// screen, the generated input of a section, the batch tool.
#pragma once
#include <istream>
#include <string>
#include <vector>

#include "pavement/input_result.h"
#include "pavement/pavement_model.h"

namespace zirvo {

/// The bytes of the file, in code page 932: lines + 15 for the counts of the model, each ended by carriage return and
/// line feed. Nothing separates the columns, so a value that fills its width touches the one before it; the solvers are
/// built against this, and it is kept. `InputFileName` stands nowhere in the file.
/// @param model         has passed the rules
/// @param languageBase  language of the headings, whose words no reader looks at
std::string WriteAnalysisInput(const PavementModel& model, UnitSystem unitSystem, Int16 languageBase);

/// The model is without InputFileName, which only the caller knows.
using AnalysisInputResult = InputResult<PavementModel>;

/// Reads by fields, not by lines: a row may be broken, and a heading is one field as long as it holds no comma. Judges
/// in the order of the file, and stops at the first failure. Whatever goes wrong with the file itself is ReadFailed,
/// quietly: it ends early, a count or a row is beyond its bound, a field holds no number, it cannot be opened.
AnalysisInputResult ReadAnalysisInput(const std::string& path);

/// The same from a stream, opened in binary mode.
AnalysisInputResult ReadAnalysisInput(std::istream& input);

/// Everything that the reader would refuse, not only the first: each failing value of each row, as far as the file can
/// be read on. Empty if and only if ReadAnalysisInput passes the file. While a layer is refused, points are judged by
/// their layer number only, since the depths of the layers mean nothing.
std::vector<Finding> CheckAnalysisInput(const std::string& path);
std::vector<Finding> CheckAnalysisInput(std::istream& input);

}  // namespace zirvo
