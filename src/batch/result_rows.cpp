// Results as text, see result_rows.h.
#include "batch/result_rows.h"

#include <array>
#include <charconv>
#include <cmath>

#include "solver/io/unit_systems.h"

namespace zirvo::batch {
namespace {

constexpr int FullPrecision = 16;  // digits behind the point of a mantissa with 17
constexpr int EstimatePrecision = 2;
constexpr std::size_t RowLength = 420;  // about

/// The shortest text of a double has at most 24 characters, one with 17 digits as many.
using NumberText = std::array<char, 32>;

void AppendShortest(std::string& out, double value) {
    NumberText text{};
    out.append(text.data(), std::to_chars(text.data(), text.data() + text.size(), value + 0.0).ptr);
}

void AppendScientific(std::string& out, double value, int digits) {
    NumberText text{};
    // Adding 0 takes the sign from a negative zero.
    const auto result =
        std::to_chars(text.data(), text.data() + text.size(), value + 0.0, std::chars_format::scientific, digits);
    out.append(text.data(), result.ptr);
}

void AppendEstimate(std::string& out, double estimate) {
    if (std::isfinite(estimate)) {
        AppendScientific(out, estimate, EstimatePrecision);
    } else {
        out.append("inf");
    }
}

}  // namespace

std::string ResultRows(const std::vector<solver::Point>& points, const solver::Solution& solution, bool estimates) {
    std::string out;
    out.reserve((points.size() + 1) * RowLength);
    out.append("layer,x,y,z");
    for (const std::string_view name : solver::ComponentNames) {
        out.append(",").append(name);
    }
    out.append(estimates ? ",ESTdisplacement,ESTstress,ESTstrain\n" : "\n");
    for (std::size_t i = 0; i < points.size(); ++i) {
        const solver::Point& point = points[i];
        out.append(std::to_string(point.Layer));
        for (const double coordinate : {point.X, point.Y, point.Z}) {
            AppendShortest(out.append(","), coordinate);
        }
        for (const double value : solution.Points[i].Values) {
            AppendScientific(out.append(","), value, FullPrecision);
        }
        if (estimates) {
            for (const double estimate : solution.Points[i].Estimates) {
                AppendEstimate(out.append(","), estimate);
            }
        }
        out.push_back('\n');
    }
    return out;
}

std::string MovedPointsText(int count) {
    return count == 1 ? "1 point just outside its layer was taken on its boundary"
                      : std::to_string(count) + " points just outside their layer were taken on its boundary";
}

}  // namespace zirvo::batch
