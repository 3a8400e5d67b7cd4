// From columns of results to a chart, see study_chart.h.
#include "batch/study_chart.h"

#include <algorithm>
#include <cmath>
#include <map>

#include "study/results.h"

namespace zirvo::batch {
namespace {

constexpr std::size_t MostChartLines = 12;  // as many colours as can be told apart

/// The label of a column with its unit; empty where there is no such column.
std::string LabelOf(const study::Study& study, const std::string& column) {
    for (const study::Varied& varied : study.Vary) {
        if (varied.What.Name == column) {
            return study.LabelOf(varied);
        }
    }
    for (const study::Kept& kept : study.Keep) {
        if (kept.Name == column) {
            return study.LabelOf(kept);
        }
    }
    return "";
}

std::string ColumnsText(const study::Study& study) {
    std::string names;
    for (const study::Varied& varied : study.Vary) {
        names.append(names.empty() ? "" : ", ").append(varied.What.Name);
    }
    for (const study::Kept& kept : study.Keep) {
        names.append(", ").append(kept.Name);
    }
    return names;
}

/// The unit in the brackets of a label, with a blank in front; empty where there is none.
std::string UnitIn(const std::string& label) {
    const std::size_t bracket = label.rfind('[');
    if (bracket == std::string::npos) {
        return "";
    }
    return std::string(" ").append(label, bracket + 1, label.size() - bracket - 2);
}

/// The rows that the conditions let through, as columns: x, y and the one of the lines.
struct ChartRows {
    std::vector<double> X, Y, Lines;
};

ChartRows RowsOf(const std::string& memory, const PlotRequest& plot) {
    std::vector<std::string> names{plot.X.empty() ? plot.Y : plot.X, plot.Y, plot.Lines.empty() ? plot.Y : plot.Lines};
    for (const auto& [column, value] : plot.Where) {
        names.push_back(column);
    }
    const std::vector<std::vector<double>> columns = study::ReadColumns(memory, names);
    ChartRows rows;
    for (std::size_t row = 0; row < columns[0].size(); ++row) {
        bool wanted = true;
        for (std::size_t i = 0; i < plot.Where.size(); ++i) {
            const double value = plot.Where[i].second;
            wanted = wanted && std::fabs(columns[i + 3][row] - value) <= 1e-9 * std::max(1.0, std::fabs(value));
        }
        if (wanted) {
            rows.X.push_back(columns[0][row]);
            rows.Y.push_back(columns[1][row]);
            rows.Lines.push_back(columns[2][row]);
        }
    }
    return rows;
}

/// One line for each value of the column of the lines, in the order of x; what is wrong goes to `reason`.
std::vector<ChartLine> LinesOf(const ChartRows& rows, const PlotRequest& plot, const std::string& unit,
                               std::string& reason) {
    std::map<double, ChartLine> lines;
    for (std::size_t i = 0; i < rows.X.size(); ++i) {
        ChartLine& line = lines[plot.Lines.empty() ? 0 : rows.Lines[i]];
        line.Name = plot.Lines.empty() ? "" : design::ShortestText(rows.Lines[i]) + unit;
        line.Points.emplace_back(rows.X[i], rows.Y[i]);
    }
    if (lines.size() > MostChartLines) {
        reason = plot.Lines + " has " + std::to_string(lines.size()) + " values, and a chart at most 12 lines";
        return {};
    }
    std::vector<ChartLine> sorted;
    for (auto& [value, line] : lines) {
        std::stable_sort(line.Points.begin(), line.Points.end(),
                         [](const auto& a, const auto& b) { return a.first < b.first; });
        for (std::size_t i = 1; i < line.Points.size(); ++i) {
            if (line.Points[i].first == line.Points[i - 1].first) {
                reason = "several rows have " + plot.X + " = " + design::ShortestText(line.Points[i].first) +
                         ": hold the other parameters with --where, or make lines of one with --lines";
                return {};
            }
        }
        sorted.push_back(std::move(line));
    }
    return sorted;
}

}  // namespace

std::string ReasonAgainstChart(const study::Study& study, const PlotRequest& plot) {
    if (plot.Picture.empty()) {
        return "";
    }
    std::vector<std::string> names{plot.X, plot.Y, plot.Lines};
    for (const auto& [column, value] : plot.Where) {
        names.push_back(column);
    }
    for (const std::string& name : names) {
        if (!name.empty() && LabelOf(study, name).empty()) {
            return name + " is no column of this study; there are " + ColumnsText(study);
        }
    }
    return "";
}

ExitCode DrawStudyChart(const study::Study& study, const std::string& memory, const PlotRequest& plot,
                        Console& console) {
    ChartRows rows;
    try {
        rows = RowsOf(memory, plot);
    } catch (const study::FileError& error) {
        console.Complain("", error.Text());
        return ExitCode::BadInput;
    }
    Chart chart;
    chart.LogX = plot.LogX;
    chart.LogY = plot.LogY;
    chart.XLabel = LabelOf(study, plot.X.empty() ? plot.Y : plot.X);
    for (const auto& [column, value] : plot.Where) {
        chart.Title.append(chart.Title.empty() ? "" : ", ").append(column + " = " + design::ShortestText(value));
        chart.Title.append(UnitIn(LabelOf(study, column)));
    }
    std::string reason = rows.X.empty() ? "no row fits --where" : "";
    if (plot.X.empty()) {
        chart.YLabel = "rows";
        chart.Bars = BarsOf(rows.Y, plot.Bins, plot.LogX);
    } else {
        chart.YLabel = LabelOf(study, plot.Y);
        chart.LinesLabel = plot.Lines;
        chart.Lines = LinesOf(rows, plot, UnitIn(LabelOf(study, plot.Lines)), reason);
    }
    if (reason.empty() && !CanBeDrawn(chart)) {
        reason = "none of the values can stand on these axes";
    }
    if (!reason.empty()) {
        console.Complain(plot.Picture, reason);
        return ExitCode::BadInput;
    }
    try {
        return WriteChartPicture(plot, chart, console);
    } catch (const RuntimeFault& caught) {
        console.Complain(plot.Picture, "cannot be written: " + FaultText(caught));
        return ExitCode::BadInput;
    }
}

}  // namespace zirvo::batch
