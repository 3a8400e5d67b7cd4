// The mapping of picture coordinates to pixels, and the scale that every surface keeps.
#include "contour/plot_surface.h"

#include <cmath>

namespace zirvo {
namespace {

/// Keeps a pixel number an int, also for coordinates that are no number.
int ToPixel(double position) {
    constexpr double Farthest = 1e9;
    if (!(position > -Farthest)) {
        return -static_cast<int>(Farthest);
    }
    return static_cast<int>(std::floor(position < Farthest ? position : Farthest));
}

double Position(float p, float first, float last, int pixels) {
    const double extent = static_cast<double>(last) - static_cast<double>(first);
    return (static_cast<double>(p) - static_cast<double>(first)) * pixels / extent;
}

float Length(double pixels, float first, float last, int pixelsOfPicture) {
    const double extent = static_cast<double>(last) - static_cast<double>(first);
    return pixelsOfPicture > 0 ? static_cast<float>(pixels * extent / pixelsOfPicture) : 0.0F;
}

}  // namespace

int PictureScale::Column(float x) const {
    return ToPixel(Position(x, X1, X2, PixelsWide));
}

int PictureScale::Row(float y) const {
    return ToPixel(Position(y, Y1, Y2, PixelsHigh));
}

float PictureScale::WidthOf(double pixels) const {
    return Length(pixels, X1, X2, PixelsWide);
}

float PictureScale::HeightOf(double pixels) const {
    return Length(pixels, Y1, Y2, PixelsHigh);
}

PlotSurface::PlotSurface(int pixelsWide, int pixelsHigh) {
    picture_.X2 = static_cast<float>(pixelsWide);
    picture_.Y2 = static_cast<float>(pixelsHigh);
    picture_.PixelsWide = pixelsWide;
    picture_.PixelsHigh = pixelsHigh;
}

void PlotSurface::Scale(float x1, float y1, float x2, float y2) {
    picture_.X1 = x1;
    picture_.Y1 = y1;
    picture_.X2 = x2;
    picture_.Y2 = y2;
}

void PrintAt(PlotSurface& surface, double x, double y, std::string_view text) {
    surface.CurrentX = static_cast<float>(x);
    surface.CurrentY = static_cast<float>(y);
    surface.Print(text);
}

}  // namespace zirvo
