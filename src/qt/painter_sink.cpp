// Vectors on a painter, see painter_sink.h.
#include "qt/painter_sink.h"

#include <QPen>
#include <QRect>

namespace zirvo {

PainterSink::PainterSink(QPainter& painter) : painter_(painter) {
    painter_.setRenderHint(QPainter::Antialiasing);
    painter_.setRenderHint(QPainter::LosslessImageRendering);
}

void PainterSink::Background(const QSize& pixels, const QColor& color) {
    painter_.fillRect(QRect(QPoint(0, 0), pixels), color);
}

void PainterSink::Image(const QPoint& topLeft, const QImage& image) {
    painter_.drawImage(topLeft, image);
}

void PainterSink::Stroke(const QPainterPath& path, const QColor& color, int width, Corners corners) {
    QPen pen(color);
    pen.setWidth(width);
    pen.setCapStyle(Qt::RoundCap);
    pen.setJoinStyle(corners == Corners::Round ? Qt::RoundJoin : Qt::MiterJoin);
    painter_.setBrush(Qt::NoBrush);
    painter_.setPen(pen);
    painter_.drawPath(path);
}

void PainterSink::Text(const QPointF& baseline, const QString& text, const QFont& font, double /*advance*/,
                       const QColor& color) {
    painter_.setFont(font);
    painter_.setPen(color);
    painter_.drawText(baseline, text);
}

}  // namespace zirvo
