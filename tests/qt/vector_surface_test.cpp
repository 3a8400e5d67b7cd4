// The vector surface, drawn on an image so that its strokes can be looked at.
#include "qt/vector_surface.h"

#include <gtest/gtest.h>

namespace zirvo {
namespace {

constexpr Color Red{255, 0, 0};
constexpr Color Green{0, 255, 0};
constexpr Color Blue{0, 0, 255};

/// What `draw` makes on a picture of 40 by 30 whose units are pixels.
template <class Draw>
QImage Drawn(Draw draw) {
    QImage image(40, 30, QImage::Format_RGB32);
    image.fill(Qt::magenta);
    QPainter painter(&image);
    {
        VectorSurface surface(painter, 40, 30);
        surface.Scale(0, 0, 40, 30);
        surface.Cls();
        draw(surface);
    }
    painter.end();
    return image;
}

TEST(VectorSurface, FillsThePixelsThatTheImageSurfaceFills) {
    const auto boxes = [](PlotSurface& surface) {
        surface.FilledBox(3.5F, 4.5F, 10.2F, 9.9F, Red);
        surface.FilledBox(10.2F, 9.9F, 2, 20, Green);
        surface.FilledBox(-100, 25, 5, 1000, Blue);
    };
    ImageSurface image(40, 30);
    image.Scale(0, 0, 40, 30);
    boxes(image);
    EXPECT_EQ(Drawn(boxes), image.Image());
}

TEST(VectorSurface, KeepsTheOrderOfFillLinesAndFill) {
    const QImage image = Drawn([](PlotSurface& surface) {
        surface.FilledBox(0, 0, 39, 29, Red);
        surface.Line(5, 10.5F, 30, 10.5F, Green);
        surface.FilledBox(20, 8, 25, 12, Blue);
        surface.Line(22.5F, 5, 22.5F, 20, Green);
    });
    EXPECT_EQ(image.pixel(2, 10), qRgb(255, 0, 0));
    EXPECT_EQ(image.pixel(10, 10), qRgb(0, 255, 0));
    EXPECT_EQ(image.pixel(20, 10), qRgb(0, 0, 255));
    EXPECT_EQ(image.pixel(22, 10), qRgb(0, 255, 0));
}

TEST(VectorSurface, ALineCoversBothItsEndsAndABoxItsCorners) {
    const QImage image = Drawn([](PlotSurface& surface) {
        surface.Line(5.5F, 5.5F, 10.5F, 5.5F, Green);
        surface.DrawWidth = 2;
        surface.Box(30, 10, 20, 20, Red);
    });
    EXPECT_GT(qGreen(image.pixel(5, 5)), 200);
    EXPECT_GT(qGreen(image.pixel(10, 5)), 200);
    EXPECT_EQ(image.pixel(19, 9), qRgb(255, 0, 0));
    EXPECT_EQ(image.pixel(30, 20), qRgb(255, 0, 0));
    EXPECT_EQ(image.pixel(25, 15), qRgb(0, 0, 0));
    EXPECT_EQ(image.pixel(31, 21), qRgb(0, 0, 0));
}

TEST(VectorSurface, ClearingForgetsWhatWasHeldBack) {
    const QImage image = Drawn([](PlotSurface& surface) {
        surface.Line(0, 10.5F, 40, 10.5F, Green);
        surface.Cls();
        surface.FilledBox(0, 0, 39, 29, Red);
        surface.Cls();
    });
    EXPECT_EQ(image.pixel(20, 10), qRgb(0, 0, 0));
}

TEST(VectorSurface, MeasuresTextsAsTheImageSurfaceDoes) {
    ImageSurface image(40, 30);
    image.Scale(0, 300, 10, 0);
    Drawn([&](PlotSurface& surface) {
        surface.Scale(0, 300, 10, 0);
        for (const FontPoints points : {FontPoints::Seven, FontPoints::Eight, FontPoints::Ten, FontPoints::Twenty}) {
            surface.FontSize = points;
            image.FontSize = points;
            EXPECT_EQ(surface.TextWidth("-1.23E-4"), image.TextWidth("-1.23E-4"));
            EXPECT_EQ(surface.TextHeight("-1.23E-4"), image.TextHeight("-1.23E-4"));
        }
    });
}

TEST(VectorSurface, TextCoversWhatWasDrawnBefore) {
    const QImage image = Drawn([](PlotSurface& surface) {
        surface.FilledBox(0, 0, 39, 29, Red);
        surface.FontSize = FontPoints::Twenty;
        surface.FontBold = true;
        surface.Print("I");
    });
    // A bold "I" of 27 pixels: a stem of about 5 pixels, 2 from the left.
    EXPECT_EQ(image.pixel(4, 15), qRgb(255, 255, 255));
    EXPECT_EQ(image.pixel(20, 15), qRgb(255, 0, 0));
}

}  // namespace
}  // namespace zirvo
