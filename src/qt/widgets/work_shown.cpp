// Wait cursor and bar, see work_shown.h.
#include "qt/widgets/work_shown.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QPainter>
#include <algorithm>
#include <utility>

#include "qt/widgets/screen_fonts.h"

namespace zirvo::widgets {
namespace {

constexpr qint64 Patience = 2000;  // [ms] of the user, before he wants to see that something goes on

}  // namespace

WorkBar::WorkBar(QWidget& window) : QWidget(&window) {
    setObjectName(QStringLiteral("WorkBar"));
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFont(ScreenFont({.Name = {}, .Size = 10}));
    constexpr QSize size(240, 34);
    setGeometry(QRect(window.rect().center() - QPoint(size.width() / 2, size.height() / 2), size));
}

void WorkBar::Show(double done, qint64 seconds) {
    const QString text = done < 0 ? QStringLiteral("%1 s").arg(seconds)
                                  : QStringLiteral("%1 %").arg(static_cast<int>(std::clamp(done, 0.0, 1.0) * 100));
    if (text == text_ && isVisible()) {
        return;
    }
    text_ = text;
    done_ = done;
    setAccessibleName(text);
    if (!isVisible()) {
        show();
        raise();
    }
    repaint();  // at once
}

void WorkBar::paintEvent(QPaintEvent* event) {
    Q_UNUSED(event)
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Active, QPalette::Base));
    if (done_ > 0) {
        QRect part = rect();
        part.setWidth(static_cast<int>(part.width() * std::min(done_, 1.0)));
        painter.fillRect(part, palette().color(QPalette::Active, QPalette::Highlight).lighter(150));
    }
    painter.setPen(palette().color(QPalette::Active, QPalette::Dark));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    painter.setPen(palette().color(QPalette::Active, QPalette::Text));
    painter.drawText(rect(), Qt::AlignCenter, text_);
}

WorkShown::WorkShown(Clock now) : now_(std::move(now)) {}

WorkShown::~WorkShown() {
    ShowCursor(false);
    delete bar_.data();
}

qint64 WorkShown::SystemClock() {
    QElapsedTimer now;
    now.start();
    return now.msecsSinceReference();
}

void WorkShown::Begin() {
    if (depth_++ == 0) {
        since_ = now_();
        ShowCursor(true);
    }
}

void WorkShown::GoOn(QWidget* window, double done) {
    const qint64 passed = now_() - since_;
    if (depth_ == 0 || window == nullptr || passed < Patience) {
        return;
    }
    if (bar_.isNull() || bar_->parentWidget() != window) {
        delete bar_.data();
        bar_ = new WorkBar(*window);
    }
    bar_->Show(done, passed / 1000);
}

void WorkShown::End() {
    if (--depth_ == 0) {
        ShowCursor(false);
        delete bar_.data();
    }
}

void WorkShown::ShowCursor(bool waiting) {
    if (waiting == waiting_) {
        return;
    }
    waiting_ = waiting;
    if (waiting) {
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    } else {
        QGuiApplication::restoreOverrideCursor();
    }
}

WorkShown::Pause::Pause(WorkShown& work) : work_(work) {
    work_.ShowCursor(false);
    delete work_.bar_.data();
}

WorkShown::Pause::~Pause() {
    if (work_.depth_ > 0) {
        work_.since_ = work_.now_();
        work_.ShowCursor(true);
    }
}

}  // namespace zirvo::widgets
