// The programs' own fonts, see program_fonts.h.
#include "qt/program_fonts.h"

#include <QDir>
#include <QFile>
#include <QFontDatabase>
#include <QStringList>

namespace zirvo {

void FindFontSettings(const std::string& folder) {
    const QString own = QDir(QString::fromStdString(folder)).filePath(QStringLiteral("fonts.conf"));
    const bool machineHasThem = QFile::exists(QStringLiteral("/etc/fonts/fonts.conf")) ||
                                qEnvironmentVariableIsSet("FONTCONFIG_FILE") ||
                                qEnvironmentVariableIsSet("FONTCONFIG_PATH");
    if (!machineHasThem && QFile::exists(own)) {
        qputenv("FONTCONFIG_FILE", QFile::encodeName(own));
    }
}

int RegisterFonts(const std::string& folder) {
    const QDir fonts(QString::fromStdString(folder));
    int registered = 0;
    for (const QString& name : fonts.entryList({QStringLiteral("*.ttf")}, QDir::Files, QDir::Name)) {
        // As bytes and not by its path, which would decide the order of the fonts in PDF files.
        QFile file(fonts.filePath(name));
        if (file.open(QIODevice::ReadOnly)) {
            registered += QFontDatabase::addApplicationFontFromData(file.readAll()) < 0 ? 0 : 1;
        }
    }
    return registered;
}

}  // namespace zirvo
