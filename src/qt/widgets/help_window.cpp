// The window of the manual, see help_window.h.
#include "qt/widgets/help_window.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QScreen>
#include <QUrl>
#include <QVBoxLayout>

#include "qt/widgets/find_window.h"
#include "qt/widgets/fitted_font.h"
#include "qt/widgets/screen_fonts.h"

namespace zirvo::widgets {
namespace {

/// The words on the buttons, by the language of the page: the base name of the Japanese manual ends in 1.
struct Words {
    const char* Back;
    const char* Forward;
    const char* Find;
};
constexpr Words JapaneseWords{"戻る", "進む", "検索"};
constexpr Words EnglishWords{"Back", "Forward", "Find"};

}  // namespace

HelpWindow::HelpWindow() {
    setObjectName(QStringLiteral("Help"));
    setWindowRole(objectName());
    page_.setObjectName(QStringLiteral("HelpPage"));
    words_.setObjectName(QStringLiteral("HelpWords"));
    find_.setObjectName(QStringLiteral("HelpFind"));
    back_.setObjectName(QStringLiteral("HelpBack"));
    forward_.setObjectName(QStringLiteral("HelpForward"));
    setFont(ScreenFont({}));
    told_.setObjectName(QStringLiteral("HelpTold"));
    SetTextScale(1);
    page_.installEventFilter(this);
    words_.installEventFilter(this);
    page_.setOpenExternalLinks(false);
    words_.setClearButtonEnabled(true);

    auto* bar = new QHBoxLayout;
    bar->addWidget(&back_);
    bar->addWidget(&forward_);
    bar->addStretch();
    bar->addWidget(&told_);
    bar->addWidget(&words_);
    bar->addWidget(&find_);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(6, 6, 6, 6);
    all->addLayout(bar);
    all->addWidget(&page_);

    back_.setEnabled(false);
    forward_.setEnabled(false);
    connect(&back_, &QPushButton::clicked, &page_, &QTextBrowser::backward);
    connect(&forward_, &QPushButton::clicked, &page_, &QTextBrowser::forward);
    connect(&page_, &QTextBrowser::backwardAvailable, &back_, &QWidget::setEnabled);
    connect(&page_, &QTextBrowser::forwardAvailable, &forward_, &QWidget::setEnabled);
    connect(&find_, &QPushButton::clicked, this, [this] { FindNext(); });
    connect(&words_, &QLineEdit::textEdited, &told_, &QLabel::clear);
    connect(&words_, &QLineEdit::returnPressed, this, [this] { FindNext(); });

    const QSize room = QGuiApplication::primaryScreen()->availableSize();
    resize(std::min(820, room.width() - 80), std::min(680, room.height() - 80));
}

bool HelpWindow::Open(const QString& file) {
    const QFileInfo info(file);
    if (!info.isFile() || !info.isReadable()) {
        return false;
    }
    const bool japanese = info.completeBaseName().endsWith(QLatin1Char('1'));
    const Words& words = japanese ? JapaneseWords : EnglishWords;
    language_ = japanese ? forms::Language::Japanese : forms::Language::English;
    told_.clear();
    back_.setText(QString::fromUtf8(words.Back));
    forward_.setText(QString::fromUtf8(words.Forward));
    find_.setText(QString::fromUtf8(words.Find));
    words_.setAccessibleName(find_.text());
    if (const QUrl url = QUrl::fromLocalFile(info.absoluteFilePath()); url != page_.source()) {
        page_.setSource(url);
        page_.clearHistory();
    }
    const QString title = page_.documentTitle();
    setWindowTitle(title.isEmpty() ? QStringLiteral("ZIRVO") : title);
    showNormal();
    raise();
    activateWindow();
    page_.setFocus();
    return true;
}

void HelpWindow::SetTextScale(double scale) {
    setFont(ScaledFont(ScreenFont({}), scale, AnyHeight));
    page_.setFont(ScaledFont(ScreenFont({.Name = {}, .Size = 11}), scale, AnyHeight));
}

bool HelpWindow::eventFilter(QObject* watched, QEvent* event) {
    Q_UNUSED(watched)
    return event->type() == QEvent::KeyPress && WindowKey(static_cast<QKeyEvent&>(*event));
}

bool HelpWindow::WindowKey(const QKeyEvent& event) {
    if (const std::optional<TextStep> step = TextStepOf(event)) {
        if (TextSizeAsked) {
            TextSizeAsked(*step);
        }
        return true;
    }
    if (event.modifiers() != Qt::ControlModifier) {
        return false;
    }
    if (event.key() == Qt::Key_F) {
        words_.setFocus();
        words_.selectAll();
        return true;
    }
    if (event.key() == Qt::Key_P && ChoosePrinter) {
        PrintDocument(*page_.document(), *this, language_, ChoosePrinter);
        return true;
    }
    return false;
}

void HelpWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        close();
        return;
    }
    if (WindowKey(*event)) {
        return;
    }
    QWidget::keyPressEvent(event);
}

void HelpWindow::FindNext() {
    told_.clear();
    const QString words = words_.text();
    if (!words.isEmpty() && !FindOnward(page_, words)) {
        told_.setText(NothingFoundWords(language_));
    }
}

}  // namespace zirvo::widgets
