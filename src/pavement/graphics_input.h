// The graphics input file (".ven"): the layers and loads of one pavement, without points and file names. Only the
// user's own store; no solver reads it. Layer and load blocks are those of the analysis input file, byte for byte.
// Callers: SAVE DATA and the import of the graphics data screen, the batch tool.
#pragma once
#include <istream>
#include <string>
#include <vector>

#include "pavement/input_result.h"
#include "pavement/pavement_model.h"

namespace zirvo {

/// One data set of the graphics path, in the units of the user. Lives for the length of one operation.
using GraphicsInputData = LoadedPavement;

/// The bytes of the file, in code page 932: lines + 8 for the counts, each ended by carriage return and line feed.
/// Nothing separates the columns, so a value that fills its width touches the one before it, and such a file does not
/// read back; the format is kept so.
/// @param data          has passed the rules. Counts beyond 100 are fault 9.
/// @param languageBase  language of the headings, whose words no reader looks at
std::string WriteGraphicsInput(const GraphicsInputData& data, UnitSystem unitSystem, Int16 languageBase);

/// A failure moves the focus in all three kinds of values, whatever the row, and not where the file does not read.
using GraphicsInputResult = InputResult<GraphicsInputData>;

/// Reads by fields, not by lines: a row may be broken, and a heading is one field as long as it holds no comma. Judges
/// in the order of the file, and stops at the first failure. Whatever goes wrong with the file itself is ReadFailed,
/// quietly: it ends early, a count or a row is beyond its bound, a field holds no number, it cannot be opened.
GraphicsInputResult ReadGraphicsInput(const std::string& path);

/// The same from a stream, opened in binary mode.
GraphicsInputResult ReadGraphicsInput(std::istream& input);

/// Everything that the reader would refuse, not only the first: each failing value of each row, as far as the file can
/// be read on. Empty if and only if ReadGraphicsInput passes the file.
std::vector<Finding> CheckGraphicsInput(const std::string& path);
std::vector<Finding> CheckGraphicsInput(std::istream& input);

}  // namespace zirvo
