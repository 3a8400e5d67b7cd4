// Scroll bars, see scroll_bar_binding.h.
#include "qt/widgets/scroll_bar_binding.h"

#include <QFontInfo>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionSlider>
#include <algorithm>
#include <cstdlib>

namespace zirvo::widgets {

int SpinBar::HeldFor() const {
    return pressing_ || !pressed_.isValid() ? 0 : static_cast<int>(std::min<qint64>(pressed_.elapsed(), 1'000'000));
}

void SpinBar::mousePressEvent(QMouseEvent* event) {
    pressed_.start();
    pressing_ = true;
    QScrollBar::mousePressEvent(event);
    pressing_ = false;
}

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
    connect(&shown_, &QScrollBar::sliderPressed, this, [this] { ShowBubble(); });
    connect(&shown_, &QScrollBar::sliderMoved, this, [this] { ShowBubble(); });
    connect(&shown_, &QScrollBar::sliderReleased, this, [this] {
        const int value = bar_.Min.Get() + Direction() * shown_.sliderPosition();
        Act([this, value] { bar_.UserRelease(value); });
    });
}

ScrollBarBinding::~ScrollBarBinding() {
    delete bubble_;
}

/// The number under the thumb, or the one that is being typed, and why Enter does not take that.
QString ScrollBarBinding::BubbleWords() const {
    if (shown_.isSliderDown()) {
        return QString::number(bar_.Min.Get() + Direction() * shown_.sliderPosition());
    }
    const QString typed = ToQt(bar_.Typed);
    const int highest = std::max(bar_.Min.Get(), bar_.Max.Get());
    return bar_.TypedIsOutside() ? QStringLiteral("%1 > %2").arg(typed).arg(highest) : typed;
}

void ScrollBarBinding::ShowBubble() {
    const QString words = IsRetired() || !bar_.IsUsable() ? QString() : BubbleWords();
    if (words.isEmpty()) {
        if (!bubble_.isNull()) {
            bubble_->hide();
        }
        return;
    }
    QWidget& window = *shown_.window();
    if (bubble_.isNull()) {
        bubble_ = new QLabel(&window);
        bubble_->setObjectName(shown_.objectName() + QStringLiteral("Bubble"));
        bubble_->setAttribute(Qt::WA_TransparentForMouseEvents);
        bubble_->setAutoFillBackground(true);
        bubble_->setFrameShape(QFrame::Box);
        bubble_->setMargin(4);
        QPalette colours = bubble_->palette();
        colours.setColor(QPalette::Window, colours.color(QPalette::ToolTipBase));
        colours.setColor(QPalette::WindowText, colours.color(QPalette::ToolTipText));
        bubble_->setPalette(colours);
        QFont large = shown_.font();
        large.setPixelSize(QFontInfo(large).pixelSize() * 7 / 5);
        bubble_->setFont(large);
    }
    bubble_->setText(words);
    bubble_->adjustSize();
    // Left of the bar, at the height of the thumb: the hand that drags is then not in front of it.
    QStyleOptionSlider option;
    option.initFrom(&shown_);
    option.orientation = Qt::Vertical;
    option.maximum = shown_.maximum();
    option.sliderPosition = shown_.sliderPosition();
    option.pageStep = shown_.pageStep();
    const QRect thumb =
        shown_.style()->subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarSlider, &shown_);
    const QPoint at = shown_.mapTo(&window, QPoint(0, thumb.center().y()));
    constexpr int gap = 6;  // pixels
    bubble_->move(std::max(0, at.x() - gap - bubble_->width()),
                  std::clamp(at.y() - bubble_->height() / 2, 0, std::max(0, window.height() - bubble_->height())));
    bubble_->raise();
    bubble_->show();
}

void ScrollBarBinding::DoAction(int action) {
    switch (action) {
        case QAbstractSlider::SliderSingleStepSub:
        case QAbstractSlider::SliderPageStepSub:
            Act([this] { bar_.UserStepToMin(shown_.HeldFor()); });
            break;
        case QAbstractSlider::SliderSingleStepAdd:
        case QAbstractSlider::SliderPageStepAdd:
            Act([this] { bar_.UserStepToMax(shown_.HeldFor()); });
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
    ShowBubble();
}

}  // namespace zirvo::widgets
