// The manual in a window of its own, which does not hold up the program. Caller: the desktop.
#pragma once
#include <QLineEdit>
#include <QPushButton>
#include <QTextBrowser>
#include <QWidget>

namespace zirvo::widgets {

class HelpWindow final : public QWidget {
public:
    HelpWindow();
    /// Shows the page, with its pictures from beside it, in front of everything. False if it cannot be read.
    bool Open(const QString& file);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void FindNext();

    QTextBrowser page_;
    QPushButton back_;
    QPushButton forward_;
    QLineEdit words_;
    QPushButton find_;
};

}  // namespace zirvo::widgets
