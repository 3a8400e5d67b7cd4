// Fonts asked for by name, and the programs' own that stand for them.
#include "qt/picture_fonts.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetricsF>

#include "qt/program_fonts.h"

namespace zirvo {
namespace {

const std::vector<std::pair<std::string, std::string>> StandIns{
    {"arial", "Liberation Sans"}, {"Courier", "Liberation Mono"}, {"ＭＳ ゴシック", "IPAGothic"}};

int NumberAt(const QByteArray& bytes, qsizetype place) {
    return static_cast<unsigned char>(bytes[place]) << 8 | static_cast<unsigned char>(bytes[place + 1]);
}

/// A font file whose family bears another name of at most ten characters: the records of the name table (platform,
/// encoding, language, name, length, place; 6 numbers of 16 bits from the 7th byte on) are written over where they name
/// the family, the face or the file.
QByteArray Renamed(QByteArray font, const QString& family) {
    const qsizetype entry = font.indexOf("name", 12);
    const qsizetype table = NumberAt(font, entry + 8) << 16 | NumberAt(font, entry + 10);
    const qsizetype texts = table + NumberAt(font, table + 4);
    for (qsizetype record = table + 6; record < table + 6 + 12 * NumberAt(font, table + 2); record += 12) {
        const int name = NumberAt(font, record + 6);
        if (name != 1 && name != 4 && name != 6 && name != 16) {
            continue;
        }
        QByteArray text;
        for (const QChar c : family) {
            if (NumberAt(font, record) != 1) {  // all but the oldest platform have two bytes a character
                text.append(static_cast<char>(c.row()));
            }
            text.append(static_cast<char>(c.cell()));
        }
        font[record + 8] = 0;
        font[record + 9] = static_cast<char>(text.size());
        font.replace(texts + NumberAt(font, record + 10), text.size(), text);
    }
    return font;
}

TEST(PictureFont, IsTheProgramsOwnForEachNameThatTheProgramAsksFor) {
    for (const auto& [name, standIn] : StandIns) {
        EXPECT_TRUE(HasPictureFont(name));
        EXPECT_EQ(QFontInfo(PictureFont(name, FontPoints::Ten, false, false)).family().toStdString(), standIn);
    }
}

TEST(PictureFont, IsTheProgramsOwnAlsoWhereAFontOfThatNameIsInstalled) {
    QFile file(ZIRVO_BIN "/fonts/LiberationMono-Bold.ttf");
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    for (const auto& [name, standIn] : StandIns) {
        const QString asked = QString::fromStdString(name);
        const int installed = QFontDatabase::addApplicationFontFromData(Renamed(bytes, asked));
        ASSERT_GE(installed, 0);
        ASSERT_TRUE(QFontDatabase::isSmoothlyScalable(asked)) << name << " is there now";
        EXPECT_EQ(QFontInfo(PictureFont(name, FontPoints::Ten, false, false)).family().toStdString(), standIn);
        QFontDatabase::removeApplicationFont(installed);
    }
}

TEST(RegisterFonts, TakesEveryFontOfTheFolder) {
    EXPECT_EQ(RegisterFonts(ZIRVO_BIN "/fonts"), 10);
    EXPECT_EQ(RegisterFonts(ZIRVO_BIN "/none"), 0);
}

TEST(PictureFont, IsMeasuredInPixelsAt96DotsPerInch) {
    for (const auto& [points, pixels] :
         {std::pair{FontPoints::Seven, 9}, {FontPoints::Eight, 11}, {FontPoints::Ten, 13}, {FontPoints::Twenty, 27}}) {
        EXPECT_EQ(PictureFont("arial", points, false, false).pixelSize(), pixels);
        EXPECT_EQ(FontPixels(points), pixels);
    }
}

TEST(PictureFont, IsBoldAndItalicWhereAsked) {
    const QFont plain = PictureFont("arial", FontPoints::Ten, false, false);
    const QFont bold = PictureFont("arial", FontPoints::Ten, true, false);
    EXPECT_TRUE(QFontInfo(PictureFont("arial", FontPoints::Ten, false, true)).italic());
    EXPECT_FALSE(QFontInfo(plain).italic());
    // "EPSx" of Liberation Sans: 0.667 + 0.667 + 0.667 + 0.5, in bold 0.667 + 0.667 + 0.667 + 0.556, by 13 pixels.
    EXPECT_NEAR(QFontMetricsF(plain).horizontalAdvance("EPSx"), 2.501 * 13, 0.1);
    EXPECT_NEAR(QFontMetricsF(bold).horizontalAdvance("EPSx"), 2.557 * 13, 0.1);
}

// Full-width characters are as wide as the font is high, Latin ones of the fixed fonts 0.5 and 0.6 of it.
TEST(PictureFont, TheFixedFontsAreFixed) {
    const QFontMetricsF gothic(PictureFont("ＭＳ ゴシック", FontPoints::Twenty, false, false));
    EXPECT_NEAR(gothic.horizontalAdvance(QString::fromUtf8("層厚")), 54, 0.1);
    EXPECT_NEAR(gothic.horizontalAdvance("iW"), 27, 0.1);
    const QFontMetricsF courier(PictureFont("Courier", FontPoints::Twenty, false, false));
    EXPECT_NEAR(courier.horizontalAdvance("iW"), 2 * 0.6 * 27, 0.1);
}

}  // namespace
}  // namespace zirvo
