// Qt's own words, see dialog_words.h.
#include "qt/widgets/dialog_words.h"

#include <QCoreApplication>
#include <QLibraryInfo>

namespace zirvo::widgets {

DialogWords::DialogWords(forms::Language language) {
    if (language != forms::Language::Japanese) {
        return;
    }
    const QString beside = QCoreApplication::applicationDirPath() + QStringLiteral("/translations");
    const QString file = QStringLiteral("qtbase_ja");
    if (translator_.load(file, beside) || translator_.load(file, QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        QCoreApplication::installTranslator(&translator_);
    }
}

DialogWords::~DialogWords() {
    QCoreApplication::removeTranslator(&translator_);
}

}  // namespace zirvo::widgets
