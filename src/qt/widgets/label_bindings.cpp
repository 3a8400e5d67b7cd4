// Labels and frames, see label_bindings.h.
#include "qt/widgets/label_bindings.h"

#include <QPainter>
#include <QPen>
#include <algorithm>

namespace zirvo::widgets {
namespace {

Qt::Alignment ToQt(forms::Alignment alignment) {
    switch (alignment) {
        case forms::Alignment::Right:
            return Qt::AlignRight | Qt::AlignTop;
        case forms::Alignment::Center:
            return Qt::AlignHCenter | Qt::AlignTop;
        case forms::Alignment::Left:
            break;
    }
    return Qt::AlignLeft | Qt::AlignTop;
}

/// Pixels between the edge of a label that looks like a field and its text.
constexpr int FieldMargin = 4;

/// A path with a place to break behind each separator: a long one is wrapped like words, not cut off.
QString BreakablePath(QString path) {
    constexpr QChar zeroWidthSpace(0x200B);
    for (const QChar separator : {QChar('/'), QChar('\\')}) {
        path.replace(separator, QString(separator) + zeroWidthSpace);
    }
    return path;
}

}  // namespace

QColor ToQt(forms::ScreenColor color, const QColor& standard) {
    return color == forms::DefaultColor ? standard : QColor::fromRgb(static_cast<QRgb>(color));
}

LabelBinding::LabelBinding(forms::Label& label, QWidget& parent)
    : ControlBinding(label, *new QLabel(&parent)), label_(label), shown_(static_cast<QLabel&>(Widget())) {
    shown_.setTextFormat(Qt::PlainText);
    shown_.setWordWrap(true);
    shown_.setMargin(0);
    shown_.setIndent(0);
}

void LabelBinding::ShowState() {
    shown_.setText(ToQt(label_.Caption.Get()));
    Qt::Alignment alignment = ToQt(label_.Align);
    if (LooksLikeField() && label_.Align == forms::Alignment::Left) {
        ShowAsTextField();
    }
    if (LooksLikeField() || IsOneLine()) {
        alignment = (alignment & Qt::AlignHorizontal_Mask) | Qt::AlignVCenter;
    }
    shown_.setAlignment(alignment);
    const bool coloured =
        label_.ForeColor.Get() != forms::DefaultColor || label_.BackColor.Get() != forms::DefaultColor;
    if (coloured || shown_.autoFillBackground()) {
        const QPalette standard = shown_.parentWidget()->palette();
        QPalette palette = standard;
        palette.setColor(QPalette::WindowText, ToQt(label_.ForeColor, standard.color(QPalette::WindowText)));
        palette.setColor(QPalette::Window, ToQt(label_.BackColor, standard.color(QPalette::Window)));
        shown_.setPalette(palette);
        shown_.setAutoFillBackground(label_.BackColor.Get() != forms::DefaultColor);
    }
}

bool LabelBinding::LooksLikeField() const {
    return label_.BackColor.Get() != forms::DefaultColor;
}

bool LabelBinding::IsOneLine() const {
    const QString text = ToQt(label_.Caption.Get());
    return !text.contains(QLatin1Char('\n')) && shown_.fontMetrics().horizontalAdvance(text) <= Place().width();
}

std::optional<TextInBox> LabelBinding::TextToFit() const {
    const QString text = ToQt(label_.Caption.Get());
    if (LooksLikeField() && label_.Align == forms::Alignment::Left) {
        return TextInBox{
            .Text = BreakablePath(text), .Room = Place().size() - QSize(2 * FieldMargin, 0), .Wrapped = true};
    }
    // Headings stand side by side in boxes that touch.
    constexpr int gap = 4;
    const int apart = label_.Align == forms::Alignment::Center ? gap : 0;
    return TextInBox{.Text = text, .Room = Place().size() - QSize(apart, 0), .Wrapped = true};
}

/// Away from the edge, and whatever the length: wrapped, and whole beside the mouse.
void LabelBinding::ShowAsTextField() {
    constexpr int margin = FieldMargin;
    shown_.setContentsMargins(margin, 0, margin, 0);
    const QString text = ToQt(label_.Caption.Get());
    const bool fits = shown_.fontMetrics().horizontalAdvance(text) <= Place().width() - 2 * margin;
    shown_.setText(fits ? text : BreakablePath(text));
    shown_.setToolTip(fits ? QString() : text);
}

void FrameBox::SetCaption(const QString& caption) {
    if (caption != caption_) {
        caption_ = caption;
        setAccessibleName(caption);
        update();
    }
}

void FrameBox::paintEvent(QPaintEvent* event) {
    Q_UNUSED(event)
    constexpr int titleIndent = TitleIndent;
    constexpr int titleGap = 3;
    QPainter painter(this);
    const QFontMetrics metrics(font());
    const int titleHeight = caption_.isEmpty() ? 0 : metrics.height();
    const int titleWidth = std::min(metrics.horizontalAdvance(caption_), width() - 2 * titleIndent);
    const int lineTop = titleHeight / 2;
    if (!caption_.isEmpty()) {
        const QRect gap(titleIndent - titleGap, 0, titleWidth + 2 * titleGap, titleHeight);
        painter.setClipRegion(QRegion(rect()) - gap);
    }
    painter.setPen(palette().color(QPalette::Mid));
    painter.setRenderHint(QPainter::Antialiasing);
    painter.drawRoundedRect(QRectF(0.5, lineTop + 0.5, width() - 1, height() - lineTop - 1), 2, 2);
    painter.setClipping(false);
    painter.setPen(palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::WindowText));
    painter.drawText(QRect(titleIndent, 0, titleWidth, titleHeight), Qt::AlignLeft | Qt::AlignVCenter, caption_);
}

FrameBinding::FrameBinding(forms::Frame& frame, QWidget& parent)
    : ControlBinding(frame, *new FrameBox(parent)), frame_(frame), shown_(static_cast<FrameBox&>(Widget())) {}

void FrameBinding::ShowState() {
    shown_.SetCaption(ToQt(frame_.Caption.Get()));
}

std::optional<TextInBox> FrameBinding::TextToFit() const {
    // The title may be as high as the edge that it stands in, above the first of what the frame holds.
    int highest = 18;
    for (const QObject* child : shown_.children()) {
        const auto* inside = qobject_cast<const QWidget*>(child);
        if (inside != nullptr && !inside->isHidden()) {
            highest = std::min(highest, inside->y());
        }
    }
    return TextInBox{.Text = ToQt(frame_.Caption.Get()),
                     .Room = {Place().width() - 2 * FrameBox::TitleIndent, highest}};
}

}  // namespace zirvo::widgets
