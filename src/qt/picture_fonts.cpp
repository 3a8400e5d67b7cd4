// Fonts of pictures, see picture_fonts.h.
#include "qt/picture_fonts.h"

#include <QFontDatabase>
#include <QStringList>
#include <array>

namespace zirvo {
namespace {

struct StandIn {
    const char* Name;
    const char* Family;
};

constexpr const char* JapaneseFamily = "IPAGothic";
constexpr std::array StandIns{StandIn{"arial", "Liberation Sans"}, StandIn{"Courier", "Liberation Mono"},
                              StandIn{"ＭＳ ゴシック", JapaneseFamily}};

/// Bitmap fonts of the name do not count: they have other measures.
bool IsInstalled(const QString& family) {
    return QFontDatabase::hasFamily(family) && QFontDatabase::isSmoothlyScalable(family);
}

/// The names that the program asks for never mean what a machine has installed under them: pictures would have other
/// pixels there.
QStringList FamiliesOf(const std::string& name) {
    QStringList families;
    for (const StandIn& standIn : StandIns) {
        if (name == standIn.Name) {
            families.append(QString::fromUtf8(standIn.Family));
        }
    }
    if (const QString asked = QString::fromStdString(name); families.isEmpty() && IsInstalled(asked)) {
        families.append(asked);
    }
    if (!families.contains(QString::fromUtf8(JapaneseFamily))) {
        families.append(QString::fromUtf8(JapaneseFamily));
    }
    return families;
}

}  // namespace

QFont PictureFont(const std::string& name, FontPoints points, bool bold, bool italic) {
    QFont font;
    font.setFamilies(FamiliesOf(name));
    font.setPixelSize(FontPixels(points));
    font.setBold(bold);
    font.setItalic(italic);
    font.setKerning(false);  // numbers below each other line up
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setStyleStrategy(static_cast<QFont::StyleStrategy>(QFont::PreferAntialias | QFont::NoSubpixelAntialias));
    return font;
}

bool HasPictureFont(const std::string& name) {
    return IsInstalled(FamiliesOf(name).constFirst());
}

}  // namespace zirvo
