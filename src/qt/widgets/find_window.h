// The small window in which words are looked for in a page of text; it does not hold up the program. Caller: the window
// of a form, at Ctrl+F.
#pragma once
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextCursor>

#include "forms/desktop.h"

namespace zirvo::widgets {

/// "Not found", in a language.
QString NothingFoundWords(forms::Language language);

/// Goes to the words in a page of text, from the caret on, then once more from the top. Where they are nowhere the
/// caret stays. Gives whether they are there.
template <class Page>
bool FindOnward(Page& page, const QString& words) {
    if (page.find(words)) {
        return true;
    }
    const QTextCursor before = page.textCursor();
    page.moveCursor(QTextCursor::Start);
    if (page.find(words)) {
        return true;
    }
    page.setTextCursor(before);
    return false;
}

class FindWindow final : public QDialog {
public:
    /// Belongs to the page's window, and comes up at the page's upper right corner.
    FindWindow(QPlainTextEdit& page, forms::Language language);
    /// In front, with the words of the last search to be typed over.
    void ShowAsked();

private:
    /// From the caret on, then once more from the top; tells where the words are nowhere.
    void FindNext();

    QPlainTextEdit& page_;
    QString nothingFound_;
    QLineEdit words_;
    QPushButton next_;
    QLabel told_;
};

}  // namespace zirvo::widgets
