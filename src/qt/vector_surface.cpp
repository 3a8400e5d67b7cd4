// The map as vectors, see vector_surface.h.
#include "qt/vector_surface.h"

#include <QPen>
#include <algorithm>

namespace zirvo {
namespace {

QColor QColorOf(Color color) {
    return {color.Red, color.Green, color.Blue};
}

double Share(float p, float first, float last) {
    return (static_cast<double>(p) - static_cast<double>(first)) /
           (static_cast<double>(last) - static_cast<double>(first));
}

}  // namespace

VectorSurface::VectorSurface(QPainter& painter, int pixelsWide, int pixelsHigh)
    : TextSurface(pixelsWide, pixelsHigh),
      painter_(painter),
      fill_(std::make_unique<ImageSurface>(pixelsWide, pixelsHigh)) {
    painter_.setRenderHint(QPainter::Antialiasing);
    painter_.setRenderHint(QPainter::LosslessImageRendering);
}

VectorSurface::~VectorSurface() {
    Flush();
}

void VectorSurface::Flush() {
    FlushFill();
    FlushStrokes();
}

void VectorSurface::FlushFill() {
    if (!filled_.isEmpty()) {
        painter_.drawImage(filled_.topLeft(), fill_->Image().copy(filled_));
        filled_ = QRect();
    }
}

void VectorSurface::FlushStrokes() {
    painter_.setBrush(Qt::NoBrush);
    for (const Strokes& strokes : strokes_) {
        painter_.setPen(PenOf(strokes.Ink, strokes.Width));
        painter_.drawPath(strokes.Path);
    }
    strokes_.clear();
}

QPointF VectorSurface::PointAt(float x, float y) const {
    const PictureScale& picture = Picture();
    return {Share(x, picture.X1, picture.X2) * picture.PixelsWide,
            Share(y, picture.Y1, picture.Y2) * picture.PixelsHigh};
}

QPen VectorSurface::PenOf(Color color, int width) const {
    QPen pen(QColorOf(color));
    pen.setWidth(width);
    pen.setCapStyle(Qt::RoundCap);  // the end points are drawn too
    pen.setJoinStyle(Qt::RoundJoin);
    return pen;
}

QPainterPath& VectorSurface::PathOf(Color color) {
    const auto found = std::find_if(strokes_.rbegin(), strokes_.rend(), [&](const Strokes& strokes) {
        return strokes.Ink == color && strokes.Width == DrawWidth;
    });
    if (found != strokes_.rend()) {
        return found->Path;
    }
    strokes_.push_back({color, DrawWidth, {}});
    return strokes_.back().Path;
}

void VectorSurface::Cls() {
    filled_ = QRect();
    strokes_.clear();
    painter_.fillRect(0, 0, Picture().PixelsWide, Picture().PixelsHigh, QColorOf(BackColor));
}

void VectorSurface::Scale(float x1, float y1, float x2, float y2) {
    TextSurface::Scale(x1, y1, x2, y2);
    fill_->Scale(x1, y1, x2, y2);
}

void VectorSurface::Line(float x1, float y1, float x2, float y2, Color color) {
    FlushFill();
    QPainterPath& path = PathOf(color);
    const QPointF from = PointAt(x1, y1);
    const QPointF to = PointAt(x2, y2);
    if (path.isEmpty() || path.currentPosition() != from) {
        path.moveTo(from);
    }
    path.lineTo(to);
}

void VectorSurface::Box(float x1, float y1, float x2, float y2, Color color) {
    Flush();
    QPen pen = PenOf(color, DrawWidth);
    pen.setJoinStyle(Qt::MiterJoin);
    painter_.setPen(pen);
    painter_.setBrush(Qt::NoBrush);
    painter_.drawRect(QRectF(PointAt(x1, y1), PointAt(x2, y2)).normalized());
}

void VectorSurface::FilledBox(float x1, float y1, float x2, float y2, Color color) {
    FlushStrokes();
    if (filled_.isEmpty()) {
        fill_->BackColor = BackColor;
        fill_->Cls();
    }
    fill_->FilledBox(x1, y1, x2, y2, color);
    const PictureScale& picture = Picture();
    const auto [left, right] = std::minmax({picture.Column(x1), picture.Column(x2)});
    const auto [top, bottom] = std::minmax({picture.Row(y1), picture.Row(y2)});
    filled_ |= QRect(QPoint(left, top), QPoint(right, bottom)) & QRect(0, 0, picture.PixelsWide, picture.PixelsHigh);
}

void VectorSurface::Print(std::string_view text) {
    Flush();
    const Face& face = CurrentFace();
    painter_.setFont(face.Font);
    painter_.setPen(QColorOf(ForeColor));
    painter_.drawText(PointAt(CurrentX, CurrentY) + QPointF(0, face.Metrics.ascent()),
                      QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
}

}  // namespace zirvo
