// The map as an image that stays: what the map screen shows and saves, and what the batch tool writes as BMP or PNG.
//
// An image of 32 bits a pixel, 96 to the inch. Lines and boxes are written into its memory pixel by pixel, not
// antialiased; texts are Qt's, antialiased in grey. A drawing needs a QGuiApplication (texts do), but no display.
#pragma once
#include <QImage>
#include <QPainter>
#include <QRgb>
#include <memory>
#include <string_view>

#include "qt/text_surface.h"

namespace zirvo {

class ImageSurface : public TextSurface {
public:
    /// Black. std::bad_alloc for a size that the memory does not hold.
    ImageSurface(int pixelsWide, int pixelsHigh);
    ~ImageSurface() override;
    ImageSurface(const ImageSurface&) = delete;
    ImageSurface& operator=(const ImageSurface&) = delete;

    void Cls() override;
    /// The pixels nearest to the line between the pixels of both ends, the same in both directions. With a DrawWidth of
    /// 2 each of them stands for itself and its left, upper and upper left neighbours.
    void Line(float x1, float y1, float x2, float y2, Color color) override;
    /// Four lines.
    void Box(float x1, float y1, float x2, float y2, Color color) override;
    void FilledBox(float x1, float y1, float x2, float y2, Color color) override;
    /// The top left corner of the text stands on that of its pixel.
    void Print(std::string_view text) override;

    /// All that is drawn so far. Later drawing leaves a copy of it alone.
    const QImage& Image() const;

private:
    struct Pixel {
        qint64 Column;
        qint64 Row;
    };

    QImage image_;
    mutable std::unique_ptr<QPainter> writer_;  // open while text follows text; it ends before its image does

    Pixel PixelAt(float x, float y) const { return {Picture().Column(x), Picture().Row(y)}; }
    QRgb* RowOfPixels(qint64 row);
    void FillPixels(Pixel first, Pixel last, QRgb color);
    void Dot(Pixel at, QRgb color);
    void Stroke(Pixel from, Pixel to, QRgb color);
    void StopWriting() const { writer_.reset(); }
};

}  // namespace zirvo
