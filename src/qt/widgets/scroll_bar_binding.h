// A scroll bar as a spinner: one step for each arrow, the thumb counts when it is released.
#pragma once
#include <QPaintEvent>
#include <QScrollBar>

#include "forms/simple_controls.h"
#include "qt/widgets/control_binding.h"

namespace zirvo::widgets {

/// Shows that it has the focus.
class SpinBar final : public QScrollBar {
public:
    explicit SpinBar(QWidget& parent) : QScrollBar(Qt::Vertical, &parent) {}

protected:
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
};

/// Qt's bar runs from 0 at the top, where the model has Min, to the distance between Min and Max.
class ScrollBarBinding final : public ControlBinding {
public:
    ScrollBarBinding(forms::VScrollBar& bar, QWidget& parent);

protected:
    void ShowState() override;

private:
    int Direction() const { return bar_.Max.Get() < bar_.Min.Get() ? -1 : 1; }
    void DoAction(int action);

    forms::VScrollBar& bar_;
    SpinBar& shown_;
};

}  // namespace zirvo::widgets
