// Scroll bars, see scroll_bar_binding.h.
#include "qt/widgets/scroll_bar_binding.h"

#include <QPainter>
#include <cstdlib>

namespace zirvo::widgets {

void SpinBar::paintEvent(QPaintEvent* event) {
    QScrollBar::paintEvent(event);
    if (hasFocus()) {
        QPainter painter(this);
        painter.setPen(palette().color(QPalette::Highlight));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}

void SpinBar::focusInEvent(QFocusEvent* event) {
    QScrollBar::focusInEvent(event);
    update();
}

void SpinBar::focusOutEvent(QFocusEvent* event) {
    QScrollBar::focusOutEvent(event);
    update();
}

ScrollBarBinding::ScrollBarBinding(forms::VScrollBar& bar, QWidget& parent)
    : ControlBinding(bar, *new SpinBar(parent)), bar_(bar), shown_(static_cast<SpinBar&>(Widget())) {
    shown_.setTracking(false);
    shown_.setContextMenuPolicy(Qt::NoContextMenu);
    connect(&shown_, &QScrollBar::actionTriggered, this, [this](int action) { DoAction(action); });
    connect(&shown_, &QScrollBar::sliderReleased, this, [this] {
        const int value = bar_.Min.Get() + Direction() * shown_.sliderPosition();
        Act([this, value] { bar_.UserRelease(value); });
    });
}

void ScrollBarBinding::DoAction(int action) {
    switch (action) {
        case QAbstractSlider::SliderSingleStepSub:
        case QAbstractSlider::SliderPageStepSub:
            Act([this] { bar_.UserStepToMin(); });
            break;
        case QAbstractSlider::SliderSingleStepAdd:
        case QAbstractSlider::SliderPageStepAdd:
            Act([this] { bar_.UserStepToMax(); });
            break;
        default:
            return;  // the thumb on its way
    }
    // Qt takes the position for the value behind this signal.
    if (!IsRetired()) {
        shown_.setSliderPosition(std::abs(bar_.Value.Get() - bar_.Min.Get()));
    }
}

void ScrollBarBinding::ShowState() {
    shown_.setRange(0, std::abs(bar_.Max.Get() - bar_.Min.Get()));
    shown_.setSingleStep(1);
    shown_.setPageStep(1);
    if (!shown_.isSliderDown()) {
        shown_.setValue(std::abs(bar_.Value.Get() - bar_.Min.Get()));
    }
}

}  // namespace zirvo::widgets
