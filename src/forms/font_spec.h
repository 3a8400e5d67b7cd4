// The font of a control or form. Asked for by name; what stands in for a font that the machine lacks is the view's
// matter.
#pragma once
#include <string>

namespace zirvo::forms {

struct FontSpec {
    std::string Name;  ///< "" is the font of the screens
    double Size = 9;   ///< points
    bool Bold = false;
    bool Italic = false;

    bool operator==(const FontSpec&) const = default;
};

}  // namespace zirvo::forms
