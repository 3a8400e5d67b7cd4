// The programs' own fonts, see program_fonts.h.
#include "qt/program_fonts.h"

#include <QDir>
#include <QFontDatabase>
#include <QStringList>

namespace zirvo {

int RegisterFonts(const std::string& folder) {
    const QDir fonts(QString::fromStdString(folder));
    int registered = 0;
    for (const QString& file : fonts.entryList({QStringLiteral("*.ttf")}, QDir::Files, QDir::Name)) {
        registered += QFontDatabase::addApplicationFont(fonts.filePath(file)) < 0 ? 0 : 1;
    }
    return registered;
}

}  // namespace zirvo
