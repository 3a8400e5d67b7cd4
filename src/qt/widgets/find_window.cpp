// Looking for words, see find_window.h.
#include "qt/widgets/find_window.h"

#include <QHBoxLayout>
#include <QTextCursor>
#include <QVBoxLayout>

#include "qt/widgets/screen_fonts.h"

namespace zirvo::widgets {

QString NothingFoundWords(forms::Language language) {
    return language == forms::Language::Japanese ? QStringLiteral("見つかりません") : QStringLiteral("Not found");
}

FindWindow::FindWindow(QPlainTextEdit& page, forms::Language language)
    : QDialog(page.window()), page_(page), nothingFound_(NothingFoundWords(language)) {
    const bool japanese = language == forms::Language::Japanese;
    setObjectName(QStringLiteral("Find"));
    setWindowRole(objectName());
    setWindowTitle(japanese ? QStringLiteral("検索") : QStringLiteral("Find"));
    setFont(ScreenFont({}));
    words_.setObjectName(QStringLiteral("FindWords"));
    next_.setObjectName(QStringLiteral("FindNext"));
    told_.setObjectName(QStringLiteral("FindTold"));
    words_.setAccessibleName(windowTitle());
    next_.setText(japanese ? QStringLiteral("次を検索") : QStringLiteral("Find next"));
    next_.setDefault(true);

    auto* line = new QHBoxLayout;
    line->addWidget(&words_);
    line->addWidget(&next_);
    auto* all = new QVBoxLayout(this);
    all->addLayout(line);
    all->addWidget(&told_);
    connect(&next_, &QPushButton::clicked, this, [this] { FindNext(); });
    connect(&words_, &QLineEdit::textEdited, &told_, &QLabel::clear);
    constexpr int wide = 320;
    setFixedWidth(wide);
}

void FindWindow::ShowAsked() {
    const QPoint corner = page_.mapToGlobal(QPoint(page_.viewport()->width() - width(), 0));
    if (!isVisible()) {
        move(corner);
    }
    told_.clear();
    show();
    raise();
    activateWindow();
    words_.setFocus();
    words_.selectAll();
}

void FindWindow::FindNext() {
    told_.clear();
    const QString words = words_.text();
    if (!words.isEmpty() && !FindOnward(page_, words)) {
        told_.setText(nothingFound_);
    }
}

}  // namespace zirvo::widgets
