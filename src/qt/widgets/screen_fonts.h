// The fonts of the screens: asked for by name, with stand-ins where the machine lacks them. Callers: every widget, the
// text measures that the forms ask for.
#pragma once
#include <QFont>
#include <string_view>

#include "forms/font_spec.h"

namespace zirvo::widgets {

/// The font of a control: Liberation Sans with IPAPGothic behind it where none is named. Its size is in logical pixels
/// at 96 to the inch, so that layouts in twips hold whatever the display says of its density.
QFont ScreenFont(const forms::FontSpec& spec);

/// Width of the longest line and height of all lines [twips].
float TextWidthTwips(const forms::FontSpec& spec, std::string_view text);
float TextHeightTwips(const forms::FontSpec& spec, std::string_view text);

}  // namespace zirvo::widgets
