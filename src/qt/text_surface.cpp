// Measures of texts, see text_surface.h.
#include "qt/text_surface.h"

#include "qt/picture_fonts.h"

namespace zirvo {
namespace {

std::size_t SizeIndex(FontPoints points) {
    switch (points) {
        case FontPoints::Seven:
            return 0;
        case FontPoints::Eight:
            return 1;
        case FontPoints::Ten:
            return 2;
        case FontPoints::Twenty:
            break;
    }
    return 3;
}

}  // namespace

const TextSurface::Face& TextSurface::CurrentFace() const {
    if (facesName_ != FontName) {
        faces_.fill(std::nullopt);
        facesName_ = FontName;
    }
    std::optional<Face>& face = faces_[4 * SizeIndex(FontSize) + (FontBold ? 2U : 0U) + (FontItalic ? 1U : 0U)];
    if (!face) {
        face.emplace(PictureFont(FontName, FontSize, FontBold, FontItalic));
    }
    return *face;
}

float TextSurface::TextWidth(std::string_view text) const {
    const QString shown = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    return Picture().WidthOf(CurrentFace().Metrics.horizontalAdvance(shown));
}

float TextSurface::TextHeight(std::string_view /*text*/) const {
    return Picture().HeightOf(CurrentFace().Metrics.height());
}

}  // namespace zirvo
