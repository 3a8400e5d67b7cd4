// The map as vectors, see vector_surface.h.
#include "qt/vector_surface.h"

#include <algorithm>
#include <utility>

#include "qt/painter_sink.h"

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
    : VectorSurface(std::make_unique<PainterSink>(painter), pixelsWide, pixelsHigh) {}

VectorSurface::VectorSurface(std::unique_ptr<VectorSink> sink, int pixelsWide, int pixelsHigh)
    : TextSurface(pixelsWide, pixelsHigh),
      sink_(std::move(sink)),
      fill_(std::make_unique<ImageSurface>(pixelsWide, pixelsHigh)) {}

VectorSurface::~VectorSurface() {
    Flush();
}

void VectorSurface::Flush() {
    FlushFill();
    FlushStrokes();
}

void VectorSurface::FlushFill() {
    if (!filled_.isEmpty()) {
        sink_->Image(filled_.topLeft(), fill_->Image().copy(filled_));
        filled_ = QRect();
    }
}

void VectorSurface::FlushStrokes() {
    for (const Strokes& strokes : strokes_) {
        sink_->Stroke(strokes.Path, QColorOf(strokes.Ink), strokes.Width, VectorSink::Corners::Round);
    }
    strokes_.clear();
}

QPointF VectorSurface::PointAt(float x, float y) const {
    const PictureScale& picture = Picture();
    return {Share(x, picture.X1, picture.X2) * picture.PixelsWide,
            Share(y, picture.Y1, picture.Y2) * picture.PixelsHigh};
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
    sink_->Background({Picture().PixelsWide, Picture().PixelsHigh}, QColorOf(BackColor));
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
    QPainterPath path;
    path.addRect(QRectF(PointAt(x1, y1), PointAt(x2, y2)).normalized());
    sink_->Stroke(path, QColorOf(color), DrawWidth, VectorSink::Corners::Sharp);
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
    const QString shown = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    sink_->Text(PointAt(CurrentX, CurrentY) + QPointF(0, face.Metrics.ascent()), shown, face.Font,
                face.Metrics.horizontalAdvance(shown), QColorOf(ForeColor));
}

}  // namespace zirvo
