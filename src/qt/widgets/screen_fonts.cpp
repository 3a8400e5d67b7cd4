// Fonts of the screens, see screen_fonts.h.
#include "qt/widgets/screen_fonts.h"

#include <QFontMetrics>
#include <QStringList>
#include <algorithm>
#include <cmath>

#include "qt/picture_fonts.h"
#include "qt/widgets/pixels.h"

namespace zirvo::widgets {

QFont ScreenFont(const forms::FontSpec& spec) {
    QFont font;
    if (spec.Name.empty()) {
        font.setFamilies({"Liberation Sans", "IPAPGothic", "IPAGothic"});
    } else {
        font.setFamilies(PictureFont(spec.Name, FontPoints::Ten, false, false).families());
        // Reports stand in columns: a character of full width must be exactly as wide as two others, which whole pixels
        // would not allow at every size.
        font.setHintingPreference(QFont::PreferNoHinting);
    }
    constexpr double pixelsPerPoint = 96.0 / 72.0;
    font.setPixelSize(std::max(1, static_cast<int>(std::floor(spec.Size * pixelsPerPoint + 0.5))));
    font.setBold(spec.Bold);
    font.setItalic(spec.Italic);
    font.setStretch(QFont::Unstretched);  // said, or what stands in a frame would take over its condensed title's
    return font;
}

float TextWidthTwips(const forms::FontSpec& spec, std::string_view text) {
    const QFontMetrics metrics(ScreenFont(spec));
    int widest = 0;
    const QString all = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    for (const QString& line : all.split('\n')) {
        widest = std::max(widest, metrics.horizontalAdvance(line));
    }
    return static_cast<float>(widest * TwipsPerPixel);
}

float TextHeightTwips(const forms::FontSpec& spec, std::string_view text) {
    const QFontMetrics metrics(ScreenFont(spec));
    const auto lines = 1 + std::count(text.begin(), text.end(), '\n');
    return static_cast<float>(static_cast<double>(lines) * metrics.height() * TwipsPerPixel);
}

}  // namespace zirvo::widgets
