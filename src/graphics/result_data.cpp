// Reading the data of a map, see result_data.h.
#include "graphics/result_data.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <span>
#include <string_view>

#include "base/runtime_fault.h"
#include "contour/depth_bands.h"
#include "contour/number_format.h"
#include "contour/numeric_helpers.h"
#include "contour/refinement.h"
#include "graphics/point_grid.h"
#include "platform/fault_subject.h"
#include "platform/open_file.h"
#include "text/number_text.h"
#include "text/text_fields.h"

namespace zirvo {

namespace {

constexpr std::size_t LineFields = 4;

/// X, Y, Z and the value of a data line.
std::array<double, LineFields> SplitLine(std::string_view line) {
    std::array<double, LineFields> fields{};
    for (std::size_t i = 0; i < LineFields; ++i) {
        const std::size_t end = line.find(',');
        if (end == std::string_view::npos && i + 1 < LineFields) {
            throw RuntimeFault(fault::SubscriptOutOfRange);
        }
        fields[i] = ParseNumberPrefix(line.substr(0, end));
        line.remove_prefix(end == std::string_view::npos ? line.size() : end + 1);
    }
    return fields;
}

/// Which two fields of a line are the axes of the section.
struct AxisFields {
    std::size_t First;
    std::size_t Second;
};

constexpr AxisFields AxisFieldsOf(SectionKind kind) {
    switch (kind) {
        case SectionKind::XY:
            return {0, 1};
        case SectionKind::XZ:
            return {0, 2};
        case SectionKind::YZ:
            break;
    }
    return {1, 2};
}

/// The data lines. All arrays are 1-based.
struct DataLines {
    std::vector<double> Axis1Values{0.0};
    std::vector<double> Axis2Values{0.0};
    std::vector<double> Values{0.0};
};

constexpr std::size_t LinesBetweenTicks = 1000;  // a hundredth of a second

/// @param expected  number of data lines, for the progress alone
DataLines ReadLines(TextStream& stream, SectionKind kind, long long expected, const Progress& progress) {
    const AxisFields axes = AxisFieldsOf(kind);
    DataLines lines;
    while (stream.Peek() != TextStream::End) {
        const std::string line = ReadLineBytes(stream);
        if (!line.empty() && line.front() == '#') {
            continue;
        }
        if (lines.Values.size() > PointLimit) {
            throw RuntimeFault(fault::SubscriptOutOfRange);
        }
        const std::array<double, LineFields> fields = SplitLine(line);
        lines.Axis1Values.push_back(fields[axes.First]);
        lines.Axis2Values.push_back(fields[axes.Second]);
        lines.Values.push_back(fields[LineFields - 1]);
        const std::size_t read = lines.Values.size() - 1;
        if (progress && read % LinesBetweenTicks == 0) {
            progress(std::min(1.0, static_cast<double>(read) / static_cast<double>(std::max(1LL, expected))));
        }
    }
    return lines;
}

/// Smallest and largest; both 0 where there is no line.
ValueRange RangeOf(const std::vector<double>& values) {
    return values.size() < 2 ? ValueRange() : ArrayRange(values, static_cast<int>(values.size()) - 1);
}

/// Hands out the values of the points one after the other.
class PointValues {
public:
    explicit PointValues(std::span<const double> values) : values_(values) {}

    double Next() { return ++taken_ < values_.size() ? values_[taken_] : 0; }

private:
    std::span<const double> values_;
    std::size_t taken_ = 0;
};

/// Fills the coarse nodes of one row of the fine matrix.
void TakeRow(PointValues& points, const CoarseGrid& grid, int row, ValueMatrix& matrix) {
    for (int i = 1; i <= grid.GridCountX(); ++i) {
        matrix.At((i - 1) * RefineFactor + 1, row) = points.Next();
    }
}

void PlaceXY(PointValues points, const CoarseGrid& grid, ContourField& field) {
    field.FineAxis2 = BuildFineAxis(grid.GridY);
    for (int j = 1; j <= grid.GridCountY(); ++j) {
        TakeRow(points, grid, (j - 1) * RefineFactor + 1, field.Values);
    }
}

void PlaceXZ(PointValues points, const CoarseGrid& grid, ContourField& field) {
    std::vector<double>& axis = field.FineAxis2;
    VisitDepthBands(grid, HasRoomForRows, [&](const DepthBand& band) {
        if (!band.HasRows) {
            return;
        }
        const double step = (band.Depths.Bottom - band.Depths.Top) / RefineFactor;
        for (int k = band.OpensLayer ? 0 : 1; k <= RefineFactor; ++k) {
            axis.push_back(k * step + band.Depths.Top);
        }
        if (band.OpensLayer) {  // top and first level below it are taken in together
            TakeRow(points, grid, band.FirstRow, field.Values);
        }
        TakeRow(points, grid, band.LastRow, field.Values);
    });
}

/// Axes and matrix. A Y-Z section has its columns in the file, but no grid.
ContourField FieldOf(const std::vector<double>& values, SectionKind kind, const CoarseGrid& grid) {
    ContourField field;
    if (kind == SectionKind::YZ || grid.GridCountX() < 1 || grid.GridCountY() < 1) {
        return field;
    }
    field.Values = ValueMatrix((grid.GridCountX() - 1) * RefineFactor + 1, (grid.GridCountY() - 1) * RefineFactor + 1);
    field.FineAxis1 = BuildFineAxis(grid.GridX);
    if (kind == SectionKind::XY) {
        PlaceXY(PointValues(values), grid, field);
        RefineMatrixXY(field, grid);
    } else {
        PlaceXZ(PointValues(values), grid, field);
        RefineMatrixXZ(field, grid);
    }
    return field;
}

}  // namespace

ResultDataSet ReadResultData(const std::string& path, SectionKind kind, const CoarseGrid& grid,
                             const Progress& progress) {
    std::ifstream file = OpenForReading(path);
    return Naming(FaultMatter::File, path, [&] { return ReadResultData(file, kind, grid, progress); });
}

ResultDataSet ReadResultData(std::istream& input, SectionKind kind, const CoarseGrid& grid, const Progress& progress) {
    TextStream stream(input);
    DataLines lines = ReadLines(stream, kind, PointCountOf(grid), progress);
    const ValueRange first = RangeOf(lines.Axis1Values);
    const ValueRange second = RangeOf(lines.Axis2Values);
    const ValueRange values = RangeOf(lines.Values);
    ResultDataSet data;
    data.PointValue = std::move(lines.Values);
    data.Map.Kind = kind;
    data.Map.Grid = grid;
    data.Map.Field = FieldOf(data.PointValue, kind, grid);
    data.Map.Extent = {first.Smallest, first.Largest, second.Smallest, second.Largest};
    data.Map.ValueMin = values.Smallest;
    data.Map.ValueMax = values.Largest;
    return data;
}

ReadOuts TakeReadOuts(ResultDataSet& data) {
    const MapExtent& extent = data.Map.Extent;
    ReadOuts texts;
    texts.AxisMin1 = FormatNumber(extent.AxisMin1, NumberFormat::Fixed2);
    texts.AxisMax1 = FormatNumber(extent.AxisMax1, NumberFormat::Fixed2);
    texts.AxisMin2 = FormatNumber(extent.AxisMin2, NumberFormat::Fixed2);
    texts.AxisMax2 = FormatNumber(extent.AxisMax2, NumberFormat::Fixed2);
    texts.ValueMin = FormatNumber(data.Map.ValueMin, NumberFormat::Exponent2);
    texts.ValueMax = FormatNumber(data.Map.ValueMax, NumberFormat::Exponent2);
    data.ContourMin = ParseNumberPrefix(texts.ValueMin);
    data.ContourMax = ParseNumberPrefix(texts.ValueMax);
    data.Map.ValueMin = data.ContourMin;
    data.Map.ValueMax = data.ContourMax;
    return texts;
}

}  // namespace zirvo
