// Input that comes to nothing, see input_drain.h.
#include "qt/widgets/input_drain.h"

#include <QCoreApplication>
#include <QCursor>
#include <QEvent>
#include <QObject>
#include <QThread>

namespace zirvo::widgets {
namespace {

class InputEater final : public QObject {
protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        Q_UNUSED(watched)
        switch (event->type()) {
            case QEvent::KeyPress:
            case QEvent::KeyRelease:
            case QEvent::ShortcutOverride:
            case QEvent::Shortcut:
            case QEvent::InputMethod:
            case QEvent::MouseButtonPress:
            case QEvent::MouseButtonRelease:
            case QEvent::MouseButtonDblClick:
            case QEvent::MouseMove:
            case QEvent::Wheel:
            case QEvent::ContextMenu:
            case QEvent::TouchBegin:
            case QEvent::TouchUpdate:
            case QEvent::TouchEnd:
            case QEvent::TabletPress:
            case QEvent::TabletRelease:
            case QEvent::Close:
                return true;
            default:
                return false;
        }
    }
};

}  // namespace

void DrainInput() {
    InputEater eater;
    QCoreApplication::instance()->installEventFilter(&eater);
    constexpr int rounds = 3;
    for (int i = 0; i < rounds; ++i) {
        // Asking for the pointer makes the display answer behind everything that it had sent before; a thread of Qt's
        // reads that, so it is given a moment.
        QCursor::pos();
        QThread::msleep(2);
        QCoreApplication::processEvents();
    }
    QCoreApplication::instance()->removeEventFilter(&eater);
}

}  // namespace zirvo::widgets
