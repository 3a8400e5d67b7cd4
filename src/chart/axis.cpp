// Axes, see axis.h.
#include "chart/axis.h"

#include <array>
#include <charconv>
#include <cmath>

namespace zirvo {
namespace {

constexpr double Slack = 1e-9;  // of a step: rounding of multiples
constexpr int FewDecades = 2;

/// A number as people read it: no digits that only rounding left, from a million on "2E6".
std::string NumberText(double x) {
    constexpr int Digits = 10;
    constexpr double Million = 1e6 * (1 - Slack);
    std::array<char, 40> text{};
    char* const last = text.data() + text.size();
    if (std::fabs(x) < Million) {
        const double shown = std::fabs(x) < 1e-300 ? 0 : x;
        return {text.data(), std::to_chars(text.data(), last, shown, std::chars_format::general, Digits).ptr};
    }
    const double exponent = std::floor(std::log10(std::fabs(x)) + Slack);
    char* const end =
        std::to_chars(text.data(), last, x / std::pow(10, exponent), std::chars_format::general, Digits).ptr;
    return std::string(text.data(), end).append("E").append(std::to_string(static_cast<int>(exponent)));
}

/// 1, 2 or 5 times a power of ten, not below x.
double RoundStep(double x) {
    const double power = std::pow(10, std::floor(std::log10(x)));
    for (const double factor : {1.0, 2.0, 5.0}) {
        if (x <= factor * power * (1 + Slack)) {
            return factor * power;
        }
    }
    return 10 * power;
}

ChartAxis LogarithmicAxis(double low, double high) {
    const auto first = static_cast<int>(std::floor(std::log10(low) + Slack));
    auto last = static_cast<int>(std::ceil(std::log10(high) - Slack));
    last = last == first ? first + 1 : last;
    ChartAxis axis{std::pow(10, first), std::pow(10, last), true, {}};
    const bool few = last - first <= FewDecades;
    const int every = 1 + (last - first) / 10;  // decades between two numbers
    for (int decade = first; decade <= last; decade += every) {
        for (const double factor : {1.0, 2.0, 5.0}) {
            const double value = factor * std::pow(10, decade);
            if ((factor == 1 || few) && value <= axis.High * (1 + Slack)) {
                axis.Ticks.emplace_back(value, NumberText(value));
            }
        }
    }
    if (few) {  // no more room than the values need
        while (axis.Ticks.size() > 2 && axis.Ticks[1].first <= low) {
            axis.Ticks.erase(axis.Ticks.begin());
        }
        while (axis.Ticks.size() > 2 && axis.Ticks[axis.Ticks.size() - 2].first >= high) {
            axis.Ticks.pop_back();
        }
        axis.Low = axis.Ticks.front().first;
        axis.High = axis.Ticks.back().first;
    }
    return axis;
}

}  // namespace

double ChartAxis::PlaceOf(double value) const {
    return Logarithmic ? std::log(value / Low) / std::log(High / Low) : (value - Low) / (High - Low);
}

ChartAxis AxisOf(double low, double high, int most, bool logarithmic) {
    if (logarithmic) {
        return LogarithmicAxis(low, high);
    }
    if (!(high > low)) {  // one value: room around it
        const double room = low == 0 ? 1 : std::fabs(low) / 10;
        low -= room;
        high += room;
    }
    const double step = RoundStep((high - low) / most);
    const double first = std::floor(low / step + Slack);
    const double last = std::ceil(high / step - Slack);
    ChartAxis axis{first * step, last * step, false, {}};
    const auto steps = static_cast<int>(std::lround(last - first));
    for (int i = 0; i <= steps; ++i) {
        axis.Ticks.emplace_back((first + i) * step, NumberText((first + i) * step));
    }
    return axis;
}

}  // namespace zirvo
