// Drawings, see drawing.h.
#include "qt/drawing.h"

#include <algorithm>

#include "qt/drawing_reader.h"

namespace zirvo {

Drawing::Drawing(const QByteArray& svg) {
    DrawingReader reader(svg);
    if (reader.Read()) {
        viewBox_ = reader.ViewBox();
        shapes_ = reader.TakeShapes();
    } else {
        complaint_ = reader.Complaint();
    }
}

void Drawing::Paint(QPainter& painter, const QRectF& place) const {
    if (shapes_.empty()) {
        return;
    }
    const double scale = std::min(place.width() / viewBox_.width(), place.height() / viewBox_.height());
    painter.save();
    painter.setClipRect(place, Qt::IntersectClip);
    painter.translate(place.center());
    painter.scale(scale, scale);
    painter.translate(-viewBox_.center());
    painter.setRenderHint(QPainter::Antialiasing);
    for (const Shape& shape : shapes_) {
        painter.setBrush(shape.Fill);
        painter.setPen(shape.Stroke);
        painter.drawPath(shape.Path);
    }
    painter.restore();
}

}  // namespace zirvo
