// A scroll bar as a spinner: an arrow steps, faster while it is held, and the thumb counts when it is released. Its
// number stands in a bubble beside it while the thumb is dragged or digits are typed.
#pragma once
#include <QElapsedTimer>
#include <QLabel>
#include <QPaintEvent>
#include <QPointer>
#include <QScrollBar>

#include "forms/simple_controls.h"
#include "qt/widgets/control_binding.h"

namespace zirvo::widgets {

/// Shows that it has the focus.
class SpinBar final : public QScrollBar {
public:
    explicit SpinBar(QWidget& parent) : QScrollBar(Qt::Vertical, &parent) {}

    /// Milliseconds since the mouse went down on it; 0 in that press itself.
    int HeldFor() const;

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    QElapsedTimer pressed_;
    bool pressing_ = false;
};

/// Qt's bar runs from 0 at the top, where the model has Min, to the distance between Min and Max.
class ScrollBarBinding final : public ControlBinding {
public:
    ScrollBarBinding(forms::VScrollBar& bar, QWidget& parent);
    ~ScrollBarBinding() override;

protected:
    void ShowState() override;

private:
    int Direction() const { return bar_.Max.Get() < bar_.Min.Get() ? -1 : 1; }
    void DoAction(int action);
    void ShowBubble();
    QString BubbleWords() const;

    forms::VScrollBar& bar_;
    SpinBar& shown_;
    QPointer<QLabel> bubble_;  ///< of the window, since it is larger than the frame round the bar
};

}  // namespace zirvo::widgets
