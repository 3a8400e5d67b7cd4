// The program's own drawings: all of them are read, and what is painted is what they say.
#include "qt/drawing.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QImage>
#include <cmath>

namespace zirvo {
namespace {

Drawing OfShapes(const char* shapes) {
    return Drawing("<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 20 10\">\n" + QByteArray(shapes) +
                   "</svg>");
}

/// The drawing on white, so many times as large as its own coordinates.
QImage Painted(const Drawing& drawing, double times) {
    QImage image((drawing.ViewBox().size() * times).toSize(), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    drawing.Paint(painter, image.rect());
    painter.end();
    return image;
}

TEST(Drawing, EveryDrawingOfTheProgramIsReadWhole) {
    const QDir folder(ZIRVO_PICTURES);
    const QStringList files = folder.entryList({"*.svg"});
    EXPECT_EQ(files.size(), 4);
    for (const QString& name : files) {
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const Drawing drawing(file.readAll());
        EXPECT_FALSE(drawing.IsEmpty()) << name.toStdString() << ' ' << drawing.Complaint().toStdString();
        EXPECT_TRUE(drawing.Complaint().isEmpty());
    }
}

TEST(Drawing, RefusesWhatItWouldNotPaintAndTellsTheLine) {
    for (const char* shapes :
         {"<text x=\"1\" y=\"1\">a</text>", "<rect width=\"1\" height=\"1\" filter=\"url(#a)\"/>",
          "<path d=\"M0 0 A1 1 0 1 1 2 2\"/>", "<path d=\"M0 0 L1\"/>", "<rect width=\"x\" height=\"1\"/>",
          "<rect width=\"1\" height=\"1\" fill=\"red\"/>", "<rect width=\"1\" height=\"1\" fill=\"url(#none)\"/>",
          "<g transform=\"translate(1 1)\"></g>", "<rect width=\"1\" height=\"1\" transform=\"rotate(3)\"/>",
          "<polygon points=\"1,2 3\"/>", "<rect width=\"1\" height=\"1\" fill=\"#000000\" fill-opacity=\" \"/>"}) {
        const Drawing drawing = OfShapes(shapes);
        EXPECT_TRUE(drawing.IsEmpty()) << shapes;
        EXPECT_TRUE(drawing.Complaint().startsWith("line 2: ")) << shapes << ' ' << drawing.Complaint().toStdString();
    }
    EXPECT_FALSE(Drawing("").Complaint().isEmpty());
    EXPECT_FALSE(Drawing("<svg viewBox=\"0 0 0 0\"/>").Complaint().isEmpty());
    EXPECT_FALSE(Drawing("<svg viewBox=\"0 0 1 1\"><g>").Complaint().isEmpty());
}

TEST(Drawing, PaintsShapesInTheirColoursAtEveryDensity) {
    const Drawing drawing = OfShapes(
        "<defs><linearGradient id=\"a\" gradientUnits=\"userSpaceOnUse\" x1=\"0\" y1=\"0\" x2=\"0\" y2=\"10\">"
        "<stop offset=\"0\" stop-color=\"#000000\"/><stop offset=\"1\" stop-color=\"#ffffff\"/></linearGradient></defs>"
        "<g fill=\"#ff0000\"><rect width=\"10\" height=\"10\"/><circle cx=\"5\" cy=\"5\" r=\"2\" fill=\"#00ff00\"/></g>"
        "<path d=\"M0 0 H4 V10 H0 Z\" transform=\"translate(10 0)\" fill=\"#0000ff\" fill-opacity=\"0.5\"/>"
        "<rect x=\"15\" width=\"5\" height=\"10\" fill=\"url(#a)\"/>");
    ASSERT_TRUE(drawing.Complaint().isEmpty()) << drawing.Complaint().toStdString();
    for (const double times : {1.0, 1.5, 2.0, 3.0}) {
        const QImage image = Painted(drawing, times);
        const auto at = [&](double x, double y) {
            return image.pixel(static_cast<int>(x * times), static_cast<int>(y * times));
        };
        EXPECT_EQ(at(1.5, 5.5), qRgb(255, 0, 0)) << times;
        EXPECT_EQ(at(5.5, 5.5), qRgb(0, 255, 0)) << times;
        EXPECT_NEAR(qRed(at(12.2, 5.5)), 127, 1) << times;
        EXPECT_EQ(qBlue(at(12.2, 5.5)), 255) << times;
        EXPECT_EQ(at(14.5, 5.5), qRgb(255, 255, 255)) << times;
        // The middle of its pixel, as a share of the height.
        EXPECT_NEAR(qRed(at(17.5, 5.5)), 255 * (std::floor(5.5 * times) + 0.5) / (10 * times), 3) << times;
    }
}

// An edge that falls between two pixels of one density is half grey; on a finer one it is sharp.
TEST(Drawing, IsDrawnAnewForEachDensityAndNotEnlarged) {
    const Drawing drawing = OfShapes("<rect width=\"2.5\" height=\"10\" fill=\"#000000\"/>");
    const QImage once = Painted(drawing, 1);
    EXPECT_NEAR(qRed(once.pixel(2, 5)), 127, 2);
    const QImage twice = Painted(drawing, 2);
    EXPECT_EQ(qRed(twice.pixel(4, 5)), 0);
    EXPECT_EQ(qRed(twice.pixel(5, 5)), 255);
}

TEST(Drawing, StandsInTheMiddleAsLargeAsItFits) {
    const Drawing drawing = OfShapes("<rect width=\"20\" height=\"10\" fill=\"#000000\"/>");
    QImage image(40, 40, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    drawing.Paint(painter, image.rect());
    painter.end();
    EXPECT_EQ(image.pixel(0, 9), qRgb(255, 255, 255));
    EXPECT_EQ(image.pixel(0, 10), qRgb(0, 0, 0));
    EXPECT_EQ(image.pixel(39, 29), qRgb(0, 0, 0));
    EXPECT_EQ(image.pixel(39, 30), qRgb(255, 255, 255));
}

}  // namespace
}  // namespace zirvo
