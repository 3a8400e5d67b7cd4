#include "plot.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <map>

namespace zirvo::attack {

namespace {

constexpr int LowestPower = -18;
constexpr int HighestPower = -6;
constexpr int Side = 480;  // of the field [pixels]
constexpr int Margin = 50;
constexpr int Parts = 4;  // squares to a power of ten

double Place(double power) {
    return Side * (power - LowestPower) / (HighestPower - LowestPower);
}

int SquareOf(double value) {
    const double power = value > 0 ? std::log10(value) : LowestPower;
    return static_cast<int>(std::floor(Parts * std::clamp<double>(power, LowestPower, HighestPower - 1e-9)));
}

template <class... Values>
std::string Written(const char* format, Values... values) {
    char text[200];
    std::snprintf(text, sizeof text, format, values...);
    return text;
}

}  // namespace

std::string PlotText(const std::vector<std::pair<double, double>>& errorsAndBounds) {
    std::map<std::pair<int, int>, int> counts;
    int most = 1;
    for (const auto& [error, bound] : errorsAndBounds) {
        int& count = counts[{SquareOf(error), SquareOf(bound)}];
        most = std::max(most, ++count);
    }
    const int whole = Side + 2 * Margin;
    std::string svg = Written(
        "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"%d\" height=\"%d\" font-family=\"sans-serif\" "
        "font-size=\"11\">\n<rect width=\"100%%\" height=\"100%%\" fill=\"white\"/>\n",
        whole, whole);
    const double width = Place(LowestPower + 1.0 / Parts);
    for (const auto& [square, count] : counts) {
        const double x = Margin + Place(static_cast<double>(square.first) / Parts);
        const double y = Margin + Side - Place(static_cast<double>(square.second) / Parts) - width;
        const double shade = 0.15 + 0.85 * std::log1p(count) / std::log1p(most);
        svg += Written(
            "<rect x=\"%.1f\" y=\"%.1f\" width=\"%.1f\" height=\"%.1f\" fill=\"#1f4e8c\" fill-opacity=\"%.2f\"/>\n", x,
            y, width, width, shade);
    }
    for (int power = LowestPower; power <= HighestPower; power += 2) {
        const double at = Place(power);
        svg += Written("<text x=\"%.0f\" y=\"%d\" text-anchor=\"middle\">1E%d</text>\n", Margin + at,
                       whole - Margin + 16, power);
        svg += Written("<text x=\"%d\" y=\"%.0f\" text-anchor=\"end\">1E%d</text>\n", Margin - 6,
                       Margin + Side - at + 4, power);
    }
    svg += Written("<rect x=\"%d\" y=\"%d\" width=\"%d\" height=\"%d\" fill=\"none\" stroke=\"black\"/>\n", Margin,
                   Margin, Side, Side);
    svg += Written("<path d=\"M%d %dL%d %d\" stroke=\"#b03030\"/>\n", Margin, Margin + Side, Margin + Side, Margin);
    svg += Written("<text x=\"%d\" y=\"%d\" text-anchor=\"middle\">error</text>\n", whole / 2, whole - 12);
    svg += Written("<text x=\"%d\" y=\"%d\" text-anchor=\"middle\">bound</text>\n", Margin, Margin - 14);
    return svg + "</svg>\n";
}

}  // namespace zirvo::attack
