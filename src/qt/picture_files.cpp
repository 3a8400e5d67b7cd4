// Pictures as files, see picture_files.h.
#include "qt/picture_files.h"

#include <QBuffer>
#include <QByteArray>
#include <QMarginsF>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>

#include <memory>

#include "base/runtime_fault.h"
#include "platform/files.h"
#include "qt/svg_sink.h"
#include "qt/vector_surface.h"

namespace zirvo {
namespace {

constexpr int DotsPerInch = 96;
constexpr double PointsPerPixel = 72.0 / DotsPerInch;

/// Lets `write` fill a buffer.
template <class Write>
std::string BytesFrom(Write write) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (!buffer.open(QIODevice::WriteOnly) || !write(buffer)) {
        throw RuntimeFault(fault::DeviceError);
    }
    buffer.close();
    return bytes.toStdString();
}

bool DrawOn(QPaintDevice& device, QSizeF page, int pixelsWide, int pixelsHigh, const DrawPicture& draw) {
    QPainter painter;
    if (!painter.begin(&device)) {
        return false;
    }
    painter.scale(page.width() / pixelsWide, page.height() / pixelsHigh);
    VectorSurface surface(painter, pixelsWide, pixelsHigh);
    draw(surface);
    surface.Flush();
    return painter.end();
}

/// Writes blanks over the date, which keeps every offset in the file.
void TakeOutDate(std::string& pdf) {
    const std::size_t from = pdf.find("/CreationDate");
    const std::size_t to = from == std::string::npos ? from : pdf.find(')', from);
    if (to != std::string::npos) {
        pdf.replace(from, to - from + 1, to - from + 1, ' ');
    }
}

}  // namespace

std::string BitmapBytes(const QImage& image) {
    return BytesFrom([&](QIODevice& out) { return image.convertToFormat(QImage::Format_RGB888).save(&out, "BMP"); });
}

std::string PngBytes(const QImage& image) {
    return BytesFrom([&](QIODevice& out) { return image.save(&out, "PNG"); });
}

std::string SvgBytes(int pixelsWide, int pixelsHigh, const std::string& title, const DrawPicture& draw) {
    return BytesFrom([&](QIODevice& out) {
        VectorSurface surface(
            std::make_unique<SvgSink>(out, QSize(pixelsWide, pixelsHigh), QString::fromStdString(title)), pixelsWide,
            pixelsHigh);
        draw(surface);
        return true;
    });
}

std::string PdfBytes(int pixelsWide, int pixelsHigh, const std::string& title, const DrawPicture& draw) {
    std::string bytes = BytesFrom([&](QIODevice& out) {
        QPdfWriter writer(&out);
        writer.setResolution(DotsPerInch);
        writer.setPageSize(QPageSize(QSizeF(pixelsWide * PointsPerPixel, pixelsHigh * PointsPerPixel), QPageSize::Point,
                                     QString(), QPageSize::ExactMatch));
        writer.setPageMargins(QMarginsF(0, 0, 0, 0));
        writer.setTitle(QString::fromStdString(title));
        // Pages are whole points long; the picture covers its page.
        const QSizeF page = QSizeF(writer.pageLayout().fullRectPoints().size()) / PointsPerPixel;
        return DrawOn(writer, page, pixelsWide, pixelsHigh, draw);
    });
    TakeOutDate(bytes);
    return bytes;
}

void SaveBitmap(const QImage& image, const std::string& path) {
    WriteWholeFile(path, BitmapBytes(image));
}

}  // namespace zirvo
