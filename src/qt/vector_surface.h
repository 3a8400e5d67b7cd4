// The map as vectors: lines and texts are such, the fill is one image of the picture's pixels. For SVG, PDF and
// printers; a picture of pixels is an ImageSurface, which can be painted on the screen.
#pragma once
#include <QPainter>
#include <QPainterPath>
#include <QRect>
#include <memory>
#include <string_view>
#include <vector>

#include "qt/image_surface.h"
#include "qt/text_surface.h"
#include "qt/vector_sink.h"

namespace zirvo {

/// Coordinates of lines and texts are exact, those of the fill fall on the pixels of the picture as on the screen.
/// Everything reaches the device in the order in which it was drawn; but lines that follow one another are put together
/// by colours, since their drawings would be as long as the whole map otherwise.
class VectorSurface : public TextSurface {
public:
    /// The painter must be active and outlive this object; the picture covers its logical rectangle from 0, 0 to
    /// pixelsWide, pixelsHigh.
    VectorSurface(QPainter& painter, int pixelsWide, int pixelsHigh);
    /// The same into any sink.
    VectorSurface(std::unique_ptr<VectorSink> sink, int pixelsWide, int pixelsHigh);
    /// Finishes the drawing.
    ~VectorSurface() override;
    VectorSurface(const VectorSurface&) = delete;
    VectorSurface& operator=(const VectorSurface&) = delete;

    void Cls() override;
    void Scale(float x1, float y1, float x2, float y2) override;
    void Line(float x1, float y1, float x2, float y2, Color color) override;
    void Box(float x1, float y1, float x2, float y2, Color color) override;
    void FilledBox(float x1, float y1, float x2, float y2, Color color) override;
    void Print(std::string_view text) override;

    /// Gives the sink what is still held back.
    void Flush();

private:
    struct Strokes {
        Color Ink;
        int Width;
        QPainterPath Path;
    };

    std::unique_ptr<VectorSink> sink_;
    std::unique_ptr<ImageSurface> fill_;  // of the boxes held back
    QRect filled_;                        // the pixels that they cover; empty if there are none
    std::vector<Strokes> strokes_;        // lines held back

    QPointF PointAt(float x, float y) const;
    QPainterPath& PathOf(Color color);
    void FlushFill();
    void FlushStrokes();
};

}  // namespace zirvo
