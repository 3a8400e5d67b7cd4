// What the surfaces of pictures share: fonts, and the measures of texts. Callers: image and vector surface.
#pragma once
#include <QFont>
#include <QFontMetricsF>
#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "contour/plot_surface.h"

namespace zirvo {

/// A surface that measures texts: a text is as wide as its advance and as high as its font (ascent and descent).
class TextSurface : public PlotSurface {
public:
    float TextWidth(std::string_view text) const override;
    float TextHeight(std::string_view text) const override;

protected:
    struct Face {
        QFont Font;
        QFontMetricsF Metrics;
        explicit Face(const QFont& font) : Font(font), Metrics(font) {}
    };

    TextSurface(int pixelsWide, int pixelsHigh) : PlotSurface(pixelsWide, pixelsHigh) {}

    /// The font of the state in force.
    const Face& CurrentFace() const;

private:
    mutable std::string facesName_;  // of the fonts kept below
    mutable std::array<std::optional<Face>, 16> faces_;
};

}  // namespace zirvo
