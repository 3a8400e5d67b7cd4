// The blocks of layers and loads, which stand byte for byte alike in the analysis input file and in the graphics input
// file, and what else the writers and readers of files share. Callers: those of both files, the section's run.
#pragma once
#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "pavement/pavement_model.h"
#include "text/text_fields.h"

namespace zirvo {

/// Columns of the counts.
inline constexpr std::size_t LayerCountWidth = 3;
inline constexpr std::size_t LoadCountWidth = 10;

/// A number right-justified to `columns`; a longer one stays whole and touches its neighbour, for nothing separates
/// the columns.
void AppendColumn(std::string& out, double value, std::size_t columns);
void AppendColumn(std::string& out, Int16 value, std::size_t columns);

/// A line and its end (carriage return and line feed).
void AppendLine(std::string& out, std::string_view line);

/// Message k as a line in code page 932; an empty line for k = 0 (no unit system chosen).
void AppendHeading(std::string& out, Int16 languageBase, Int16 k);

/// The heading lines and rows of the layers: four fields a row, two in the last one.
/// @param layers  1-based: entry 0 is unused
void AppendLayerBlock(std::string& out, std::span<const PavementLayer> layers, UnitSystem units, Int16 languageBase);

/// One row of a load with its line end.
void AppendLoadRow(std::string& out, const SurfaceLoad& load);

/// The heading lines and rows of the loads.
/// @param loads  1-based: entry 0 is unused
void AppendLoadBlock(std::string& out, std::span<const SurfaceLoad> loads, UnitSystem units, Int16 languageBase);

/// Reads `count` text fields and throws them away: headings and empty lines, whose words do not matter.
void SkipTextFields(TextStream& stream, int count);

}  // namespace zirvo
