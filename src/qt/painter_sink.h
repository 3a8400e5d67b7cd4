// The vectors of a map on a painter: PDF files, printers, images. Caller: VectorSurface.
#pragma once
#include <QPainter>

#include "qt/vector_sink.h"

namespace zirvo {

class PainterSink final : public VectorSink {
public:
    /// The painter must be active and outlive this object.
    explicit PainterSink(QPainter& painter);

    void Background(const QSize& pixels, const QColor& color) override;
    void Image(const QPoint& topLeft, const QImage& image) override;
    void Stroke(const QPainterPath& path, const QColor& color, int width, Corners corners) override;
    void Text(const QPointF& baseline, const QString& text, const QFont& font, double advance,
              const QColor& color) override;

private:
    QPainter& painter_;
};

}  // namespace zirvo
