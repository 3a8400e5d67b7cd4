// All that the contour view asks of a picture: a few primitives and the state that they draw with. Implemented by the
// picture of the screen and of the batch tool; a recording one and one of plain pixels serve tests and benchmarks.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

namespace zirvo {

/// The font of all texts on a map, set once and for all.
inline constexpr const char* MapFont = "arial";

/// The sizes of those texts [points].
enum class FontPoints : std::uint8_t { Seven = 7, Eight = 8, Ten = 10, Twenty = 20 };

/// The pixels of a size at 96 to the inch, rounded: 9, 11, 13, 27.
constexpr int FontPixels(FontPoints points) {
    return (8 * static_cast<int>(points) + 3) / 6;
}

/// A colour of 24 bits.
struct Color {
    std::uint8_t Red = 0;
    std::uint8_t Green = 0;
    std::uint8_t Blue = 0;

    bool operator==(const Color&) const = default;
};

/// Which pixel a picture coordinate falls on, under the scale in force. One rule for everything that is drawn, so that
/// what is left out because later cells cover it is left out rightly.
struct PictureScale {
    float X1 = 0;  ///< coordinates of the picture's left and top edge
    float Y1 = 0;
    float X2 = 1;  ///< and of its right and bottom edge
    float Y2 = 1;
    int PixelsWide = 0;  ///< 0: the picture has no pixels of its own
    int PixelsHigh = 0;

    bool HasPixels() const { return PixelsWide > 0 && PixelsHigh > 0; }

    /// The pixel column or row below the coordinate (floor), 0 at the left or top; negative or beyond the last one for
    /// a coordinate outside the picture, never farther out than a thousand million.
    int Column(float x) const;
    int Row(float y) const;

    /// The width of so many pixels in picture coordinates, negative where the axis runs leftward; the height, negative
    /// where it runs upward.
    float WidthOf(double pixels) const;
    float HeightOf(double pixels) const;
};

/// A picture to draw on. Coordinates are those of the last Scale; a coordinate falls on the pixel below it.
class PlotSurface {
public:
    PlotSurface(const PlotSurface&) = delete;
    PlotSurface& operator=(const PlotSurface&) = delete;
    virtual ~PlotSurface() = default;

    /// Clears to BackColor.
    virtual void Cls() = 0;
    /// Makes (x1, y1) the top left and (x2, y2) the bottom right of the picture in all later coordinates; an x2 below
    /// x1 or a y2 below y1 reverses that axis. What is drawn stays.
    virtual void Scale(float x1, float y1, float x2, float y2);
    /// A straight line of width DrawWidth, both ends drawn.
    virtual void Line(float x1, float y1, float x2, float y2, Color color) = 0;
    /// The outline of a rectangle, of width DrawWidth.
    virtual void Box(float x1, float y1, float x2, float y2, Color color) = 0;
    /// A rectangle with interior and outline in the colour; both corner pixels belong to it.
    virtual void FilledBox(float x1, float y1, float x2, float y2, Color color) = 0;
    /// The text with its top left corner at CurrentX, CurrentY, in ForeColor and the current font, on a transparent
    /// ground. Where CurrentX and CurrentY stand afterwards is open.
    virtual void Print(std::string_view text) = 0;
    /// Width of the text in the current font, in picture coordinates, signed like the x axis.
    virtual float TextWidth(std::string_view text) const = 0;
    /// Height of the text, signed like the y axis: negative on an X-Y section.
    virtual float TextHeight(std::string_view text) const = 0;

    const PictureScale& Picture() const { return picture_; }

    Color BackColor{0, 0, 0};
    Color ForeColor{255, 255, 255};
    std::string FontName = MapFont;
    FontPoints FontSize = FontPoints::Ten;
    bool FontBold = false;
    bool FontItalic = false;
    int DrawWidth = 1;  ///< pixels, 1 or 2
    float CurrentX = 0;
    float CurrentY = 0;

protected:
    /// The size of the picture; 0 by 0 for one without pixels of its own, on which nothing may be left out.
    PlotSurface(int pixelsWide, int pixelsHigh);

private:
    PictureScale picture_;
};

/// Prints the text with its top left corner at the point.
void PrintAt(PlotSurface& surface, double x, double y, std::string_view text);

}  // namespace zirvo
