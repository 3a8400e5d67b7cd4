// Fonts asked for by name, and what stands in where a name is not installed.
#include "qt/picture_fonts.h"

#include <gtest/gtest.h>

#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetricsF>

namespace zirvo {
namespace {

TEST(PictureFont, HasAStandInForEachNameThatIsNotInstalled) {
    const std::vector<std::pair<std::string, std::string>> rows{
        {"arial", "Liberation Sans"}, {"Courier", "Liberation Mono"}, {"ＭＳ ゴシック", "IPAGothic"}};
    for (const auto& [name, standIn] : rows) {
        EXPECT_TRUE(HasPictureFont(name));
        const QString asked = QString::fromStdString(name);
        if (!QFontDatabase::isSmoothlyScalable(asked)) {
            EXPECT_EQ(QFontInfo(PictureFont(name, "10", false, false)).family().toStdString(), standIn);
        }
    }
}

TEST(PictureFont, IsMeasuredInPixelsAt96DotsPerInch) {
    for (const auto& [points, pixels] : {std::pair{"7", 9}, {"8", 11}, {"10", 13}, {"20", 27}}) {
        EXPECT_EQ(PictureFont("arial", points, false, false).pixelSize(), pixels);
        EXPECT_EQ(FontPixels(points), pixels);
    }
}

TEST(PictureFont, IsBoldAndItalicWhereAsked) {
    const QFont plain = PictureFont("arial", "10", false, false);
    const QFont bold = PictureFont("arial", "10", true, false);
    EXPECT_TRUE(QFontInfo(PictureFont("arial", "10", false, true)).italic());
    EXPECT_FALSE(QFontInfo(plain).italic());
    // "EPSx" of Liberation Sans: 0.667 + 0.667 + 0.667 + 0.5, in bold 0.667 + 0.667 + 0.667 + 0.556, by 13 pixels.
    EXPECT_NEAR(QFontMetricsF(plain).horizontalAdvance("EPSx"), 2.501 * 13, 0.1);
    EXPECT_NEAR(QFontMetricsF(bold).horizontalAdvance("EPSx"), 2.557 * 13, 0.1);
}

// Full-width characters are as wide as the font is high, Latin ones of the fixed fonts 0.5 and 0.6 of it.
TEST(PictureFont, TheFixedFontsAreFixed) {
    const QFontMetricsF gothic(PictureFont("ＭＳ ゴシック", "20", false, false));
    EXPECT_NEAR(gothic.horizontalAdvance(QString::fromUtf8("層厚")), 54, 0.1);
    EXPECT_NEAR(gothic.horizontalAdvance("iW"), 27, 0.1);
    const QFontMetricsF courier(PictureFont("Courier", "20", false, false));
    EXPECT_NEAR(courier.horizontalAdvance("iW"), 2 * 0.6 * 27, 0.1);
}

}  // namespace
}  // namespace zirvo
