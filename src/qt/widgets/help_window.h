// The manual in a window of its own, which does not hold up the program. Caller: the desktop.
#pragma once
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTextBrowser>
#include <QWidget>
#include <functional>

#include "qt/widgets/print_page.h"
#include "qt/widgets/text_sizes.h"

namespace zirvo::widgets {

class HelpWindow final : public QWidget {
public:
    HelpWindow();
    /// Shows the page, with its pictures from beside it, in front of everything. False if it cannot be read.
    bool Open(const QString& file);

    void SetTextScale(double scale);
    std::function<void(TextStep)> TextSizeAsked;
    PrinterChoice ChoosePrinter;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    /// The page has the keys, and a use of its own for some of those that are the window's.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void FindNext();
    bool WindowKey(const QKeyEvent& event);

    QTextBrowser page_;
    QPushButton back_;
    QPushButton forward_;
    QLineEdit words_;
    QPushButton find_;
    QLabel told_;  ///< that the words are nowhere
    forms::Language language_ = forms::Language::English;
};

}  // namespace zirvo::widgets
