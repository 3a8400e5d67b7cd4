// The fonts of pictures: asked for by name; for the names that the program knows, fonts of the same measures that it
// has with it. Callers: the surfaces, the batch tool.
#pragma once
#include <QFont>
#include <string>

#include "contour/plot_surface.h"

namespace zirvo {

/// The font, unhinted, to be drawn in greys. In place of the name, whether it is installed or not: Liberation Sans for
/// "arial", Liberation Mono for "Courier", IPAGothic for "ＭＳ ゴシック"; characters that a font lacks come from
/// IPAGothic.
QFont PictureFont(const std::string& name, FontPoints points, bool bold, bool italic);

/// True if the font or its stand-in is installed; pictures look different elsewhere if not.
bool HasPictureFont(const std::string& name);

}  // namespace zirvo
