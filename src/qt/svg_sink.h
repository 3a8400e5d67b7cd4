// The vectors of a map as an SVG file. Caller: SvgBytes.
#pragma once
#include <QIODevice>
#include <QXmlStreamWriter>

#include "qt/vector_sink.h"

namespace zirvo {

/// One document, from its construction to its end. Every number has at most three digits behind the point, so that the
/// same drawing gives the same bytes.
class SvgSink final : public VectorSink {
public:
    /// @param out  open, and there until this object is gone
    SvgSink(QIODevice& out, const QSize& pixels, const QString& title);
    /// Ends the document.
    ~SvgSink() override;

    void Background(const QSize& pixels, const QColor& color) override;
    void Image(const QPoint& topLeft, const QImage& image) override;
    void Stroke(const QPainterPath& path, const QColor& color, int width, Corners corners) override;
    void Text(const QPointF& baseline, const QString& text, const QFont& font, double advance,
              const QColor& color) override;

private:
    QXmlStreamWriter xml_;

    void Attribute(const char* name, const QString& value);
    void Attribute(const char* name, double value);
};

}  // namespace zirvo
