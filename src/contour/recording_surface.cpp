// The surfaces of tests and benchmarks.
#include "contour/recording_surface.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <ostream>

namespace zirvo {
namespace {

constexpr std::array<const char*, 6> KindNames{"Cls", "Scale", "Line", "Box", "FilledBox", "Print"};

}  // namespace

std::ostream& operator<<(std::ostream& out, const PlotCommand& command) {
    out << KindNames[static_cast<std::size_t>(command.What)] << ' ' << command.X1 << ' ' << command.Y1;
    if (command.What == PlotCommand::Kind::Print) {
        out << " \"" << command.Text << "\" " << static_cast<int>(command.FontSize) << (command.FontBold ? " bold" : "")
            << (command.FontItalic ? " italic" : "");
    } else {
        out << ' ' << command.X2 << ' ' << command.Y2;
    }
    return out << " rgb " << int{command.Ink.Red} << ' ' << int{command.Ink.Green} << ' ' << int{command.Ink.Blue}
               << " width " << command.DrawWidth;
}

void RecordingSurface::Record(PlotCommand::Kind what, float x1, float y1, float x2, float y2, Color color) {
    PlotCommand command;
    command.What = what;
    command.X1 = x1;
    command.Y1 = y1;
    command.X2 = x2;
    command.Y2 = y2;
    command.Ink = color;
    command.DrawWidth = DrawWidth;
    Commands.push_back(std::move(command));
}

void RecordingSurface::Cls() {
    Record(PlotCommand::Kind::Cls, 0, 0, 0, 0, BackColor);
}

void RecordingSurface::Scale(float x1, float y1, float x2, float y2) {
    PlotSurface::Scale(x1, y1, x2, y2);
    Record(PlotCommand::Kind::Scale, x1, y1, x2, y2, {});
}

void RecordingSurface::Line(float x1, float y1, float x2, float y2, Color color) {
    Record(PlotCommand::Kind::Line, x1, y1, x2, y2, color);
}

void RecordingSurface::Box(float x1, float y1, float x2, float y2, Color color) {
    Record(PlotCommand::Kind::Box, x1, y1, x2, y2, color);
}

void RecordingSurface::FilledBox(float x1, float y1, float x2, float y2, Color color) {
    Record(PlotCommand::Kind::FilledBox, x1, y1, x2, y2, color);
}

void RecordingSurface::Print(std::string_view text) {
    Record(PlotCommand::Kind::Print, CurrentX, CurrentY, 0, 0, ForeColor);
    PlotCommand& command = Commands.back();
    command.Text = text;
    command.FontSize = FontSize;
    command.FontBold = FontBold;
    command.FontItalic = FontItalic;
}

float RecordingSurface::TextWidth(std::string_view text) const {
    return Picture().WidthOf(0.5 * FontPixels(FontSize) * static_cast<double>(text.size()));
}

float RecordingSurface::TextHeight(std::string_view /*text*/) const {
    return Picture().HeightOf(FontPixels(FontSize));
}

std::vector<PlotCommand> RecordingSurface::Only(PlotCommand::Kind kind) const {
    std::vector<PlotCommand> found;
    std::copy_if(Commands.begin(), Commands.end(), std::back_inserter(found),
                 [&](const PlotCommand& command) { return command.What == kind; });
    return found;
}

PixelSurface::PixelSurface(int pixelsWide, int pixelsHigh)
    : PlotSurface(pixelsWide, pixelsHigh),
      Pixels(static_cast<std::size_t>(pixelsWide) * static_cast<std::size_t>(pixelsHigh)) {}

void PixelSurface::Cls() {
    std::fill(Pixels.begin(), Pixels.end(), BackColor);
}

void PixelSurface::Set(int column, int row, Color color) {
    if (column >= 0 && row >= 0 && column < Picture().PixelsWide && row < Picture().PixelsHigh) {
        Pixels[static_cast<std::size_t>(row) * static_cast<std::size_t>(Picture().PixelsWide) +
               static_cast<std::size_t>(column)] = color;
    }
}

void PixelSurface::Line(float x1, float y1, float x2, float y2, Color color) {
    const std::int64_t column = Picture().Column(x1);
    const std::int64_t row = Picture().Row(y1);
    const std::int64_t wide = Picture().Column(x2) - column;
    const std::int64_t high = Picture().Row(y2) - row;
    const std::int64_t steps = std::max({std::abs(wide), std::abs(high), std::int64_t{1}});
    for (std::int64_t s = 0; s <= steps; ++s) {
        Set(static_cast<int>(column + wide * s / steps), static_cast<int>(row + high * s / steps), color);
    }
}

void PixelSurface::Box(float x1, float y1, float x2, float y2, Color color) {
    Line(x1, y1, x2, y1, color);
    Line(x2, y1, x2, y2, color);
    Line(x2, y2, x1, y2, color);
    Line(x1, y2, x1, y1, color);
}

void PixelSurface::FilledBox(float x1, float y1, float x2, float y2, Color color) {
    const auto [left, right] = std::minmax({Picture().Column(x1), Picture().Column(x2)});
    const auto [top, bottom] = std::minmax({Picture().Row(y1), Picture().Row(y2)});
    for (int row = std::max(top, 0); row <= std::min(bottom, Picture().PixelsHigh - 1); ++row) {
        for (int column = std::max(left, 0); column <= std::min(right, Picture().PixelsWide - 1); ++column) {
            Set(column, row, color);
        }
    }
}

void PixelSurface::Print(std::string_view /*text*/) {}

float PixelSurface::TextWidth(std::string_view /*text*/) const {
    return 0;
}

float PixelSurface::TextHeight(std::string_view /*text*/) const {
    return 0;
}

}  // namespace zirvo
