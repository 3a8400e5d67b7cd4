// Qt's own words in the language of the screens. Callers: the dialogs for files, folders and printers.
#pragma once
#include <QTranslator>

#include "forms/desktop.h"

namespace zirvo::widgets {

/// For as long as it lives, which is as long as a dialog stands.
class DialogWords {
public:
    explicit DialogWords(forms::Language language);
    ~DialogWords();
    DialogWords(const DialogWords&) = delete;
    DialogWords& operator=(const DialogWords&) = delete;

private:
    QTranslator translator_;
};

}  // namespace zirvo::widgets
