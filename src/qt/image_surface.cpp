// The map as an image, see image_surface.h.
#include "qt/image_surface.h"

#include <QString>
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <new>

namespace zirvo {
namespace {

constexpr int DotsPerMetre = 3780;  // 96 to the inch
constexpr qint64 FarthestText = 1 << 20;

QRgb RgbOf(Color color) {
    return qRgb(color.Red, color.Green, color.Blue);
}

/// part / whole rounded to the nearest, a half upwards; whole is positive.
qint64 RoundedShare(qint64 part, qint64 whole) {
    const qint64 doubled = 2 * part + whole;
    const qint64 quotient = doubled / (2 * whole);
    return doubled % (2 * whole) < 0 ? quotient - 1 : quotient;
}

}  // namespace

ImageSurface::ImageSurface(int pixelsWide, int pixelsHigh)
    : TextSurface(pixelsWide, pixelsHigh), image_(pixelsWide, pixelsHigh, QImage::Format_RGB32) {
    if (image_.isNull()) {
        throw std::bad_alloc();
    }
    image_.setDotsPerMeterX(DotsPerMetre);
    image_.setDotsPerMeterY(DotsPerMetre);
    image_.fill(RgbOf(BackColor));
}

ImageSurface::~ImageSurface() = default;

void ImageSurface::Cls() {
    StopWriting();
    image_.fill(RgbOf(BackColor));
}

const QImage& ImageSurface::Image() const {
    StopWriting();
    return image_;
}

QRgb* ImageSurface::RowOfPixels(qint64 row) {
    return reinterpret_cast<QRgb*>(image_.bits() + row * image_.bytesPerLine());
}

/// The pixels of a rectangle, both corners included, as far as they lie in the picture.
void ImageSurface::FillPixels(Pixel first, Pixel last, QRgb color) {
    const auto [left, right] = std::minmax(first.Column, last.Column);
    const auto [top, bottom] = std::minmax(first.Row, last.Row);
    const qint64 from = std::max<qint64>(left, 0);
    const qint64 count = std::min<qint64>(right, image_.width() - 1) - from + 1;
    if (count <= 0) {
        return;
    }
    const qint64 lastRow = std::min<qint64>(bottom, image_.height() - 1);
    for (qint64 row = std::max<qint64>(top, 0); row <= lastRow; ++row) {
        std::fill_n(RowOfPixels(row) + from, count, color);
    }
}

void ImageSurface::Dot(Pixel at, QRgb color) {
    const qint64 wider = DrawWidth - 1;
    FillPixels({at.Column - wider, at.Row - wider}, at, color);
}

void ImageSurface::Stroke(Pixel from, Pixel to, QRgb color) {
    const qint64 wide = std::abs(to.Column - from.Column);
    const qint64 high = std::abs(to.Row - from.Row);
    if (wide == 0 || high == 0) {
        const qint64 wider = DrawWidth - 1;
        FillPixels({std::min(from.Column, to.Column) - wider, std::min(from.Row, to.Row) - wider},
                   {std::max(from.Column, to.Column), std::max(from.Row, to.Row)}, color);
        return;
    }
    // One dot for each step along the longer side, from its smaller end, and none beyond the picture.
    if (wide >= high) {
        const auto [left, right] = from.Column < to.Column ? std::pair(from, to) : std::pair(to, from);
        const qint64 last = std::min<qint64>(right.Column, image_.width() + qint64{DrawWidth});
        for (qint64 column = std::max<qint64>(left.Column, 0); column <= last; ++column) {
            const qint64 row = left.Row + RoundedShare((right.Row - left.Row) * (column - left.Column), wide);
            Dot({column, row}, color);
        }
    } else {
        const auto [upper, lower] = from.Row < to.Row ? std::pair(from, to) : std::pair(to, from);
        const qint64 last = std::min<qint64>(lower.Row, image_.height() + qint64{DrawWidth});
        for (qint64 row = std::max<qint64>(upper.Row, 0); row <= last; ++row) {
            const qint64 column = upper.Column + RoundedShare((lower.Column - upper.Column) * (row - upper.Row), high);
            Dot({column, row}, color);
        }
    }
}

void ImageSurface::Line(float x1, float y1, float x2, float y2, Color color) {
    StopWriting();
    Stroke(PixelAt(x1, y1), PixelAt(x2, y2), RgbOf(color));
}

void ImageSurface::Box(float x1, float y1, float x2, float y2, Color color) {
    StopWriting();
    const Pixel first = PixelAt(x1, y1);
    const Pixel last = PixelAt(x2, y2);
    const QRgb ink = RgbOf(color);
    Stroke(first, {last.Column, first.Row}, ink);
    Stroke({last.Column, first.Row}, last, ink);
    Stroke(last, {first.Column, last.Row}, ink);
    Stroke({first.Column, last.Row}, first, ink);
}

void ImageSurface::FilledBox(float x1, float y1, float x2, float y2, Color color) {
    StopWriting();
    FillPixels(PixelAt(x1, y1), PixelAt(x2, y2), RgbOf(color));
}

void ImageSurface::Print(std::string_view text) {
    const Pixel at = PixelAt(CurrentX, CurrentY);
    if (std::abs(at.Column) > FarthestText || std::abs(at.Row) > FarthestText) {
        return;
    }
    if (!writer_) {
        writer_ = std::make_unique<QPainter>(&image_);
    }
    const Face& face = CurrentFace();
    writer_->setFont(face.Font);
    writer_->setPen(QColor::fromRgb(RgbOf(ForeColor)));
    writer_->drawText(
        QPointF(static_cast<double>(at.Column), static_cast<double>(at.Row) + std::round(face.Metrics.ascent())),
        QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
}

}  // namespace zirvo
