// Where the vectors of a map go: a painter, or the text of an SVG file. Caller: VectorSurface.
#pragma once
#include <QColor>
#include <QFont>
#include <QImage>
#include <QPainterPath>
#include <QPoint>
#include <QPointF>
#include <QSize>
#include <QString>

namespace zirvo {

class VectorSink {
public:
    VectorSink() = default;
    virtual ~VectorSink() = default;
    VectorSink(const VectorSink&) = delete;
    VectorSink& operator=(const VectorSink&) = delete;

    enum class Corners { Round, Sharp };

    /// Covers the whole picture.
    virtual void Background(const QSize& pixels, const QColor& color) = 0;
    /// Pixels of the picture, which keep their colours and stay squares.
    virtual void Image(const QPoint& topLeft, const QImage& image) = 0;
    /// The line of a path, round at its ends, so that end points are drawn too.
    virtual void Stroke(const QPainterPath& path, const QColor& color, int width, Corners corners) = 0;
    /// A text from its left end.
    /// @param advance  its width by the font that measures it [pixels]
    virtual void Text(const QPointF& baseline, const QString& text, const QFont& font, double advance,
                      const QColor& color) = 0;
};

}  // namespace zirvo
