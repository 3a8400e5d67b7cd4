// Two surfaces for tests and benchmarks, in a library of their own: one records the commands, one paints plain pixels.
#pragma once
#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

#include "contour/plot_surface.h"

namespace zirvo {

/// One call of a primitive, with the state that it drew with.
struct PlotCommand {
    enum class Kind { Cls, Scale, Line, Box, FilledBox, Print };

    Kind What = Kind::Cls;
    float X1 = 0;  ///< Print: CurrentX, CurrentY
    float Y1 = 0;
    float X2 = 0;
    float Y2 = 0;
    Color Ink;  ///< Print: ForeColor
    int DrawWidth = 1;
    std::string Text;
    FontPoints FontSize = FontPoints::Ten;  ///< Print only, as the two that follow
    bool FontBold = false;
    bool FontItalic = false;

    bool operator==(const PlotCommand&) const = default;
};

std::ostream& operator<<(std::ostream& out, const PlotCommand& command);

/// Records every command. A text is as high as its font (7, 8, 10, 20 points: 9, 11, 13, 27 pixels), and each of its
/// bytes is half as wide.
class RecordingSurface : public PlotSurface {
public:
    RecordingSurface(int pixelsWide, int pixelsHigh) : PlotSurface(pixelsWide, pixelsHigh) {}

    void Cls() override;
    void Scale(float x1, float y1, float x2, float y2) override;
    void Line(float x1, float y1, float x2, float y2, Color color) override;
    void Box(float x1, float y1, float x2, float y2, Color color) override;
    void FilledBox(float x1, float y1, float x2, float y2, Color color) override;
    void Print(std::string_view text) override;
    float TextWidth(std::string_view text) const override;
    float TextHeight(std::string_view text) const override;

    /// The commands of one kind, in order.
    std::vector<PlotCommand> Only(PlotCommand::Kind kind) const;

    std::vector<PlotCommand> Commands;

private:
    void Record(PlotCommand::Kind what, float x1, float y1, float x2, float y2, Color color);
};

/// Paints lines and boxes into memory, one pixel wide; texts leave no trace and have no size.
class PixelSurface : public PlotSurface {
public:
    PixelSurface(int pixelsWide, int pixelsHigh);

    void Cls() override;
    void Line(float x1, float y1, float x2, float y2, Color color) override;
    void Box(float x1, float y1, float x2, float y2, Color color) override;
    void FilledBox(float x1, float y1, float x2, float y2, Color color) override;
    void Print(std::string_view text) override;
    float TextWidth(std::string_view text) const override;
    float TextHeight(std::string_view text) const override;

    /// Row by row from the top left.
    std::vector<Color> Pixels;

private:
    void Set(int column, int row, Color color);
};

}  // namespace zirvo
