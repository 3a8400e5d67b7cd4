// The road of a section's numbers: the solver's report to the comma file, and the comma file to the data of a map. The
// first bytes choose the section, the rest is a report or a comma file.
#include <algorithm>
#include <cmath>
#include <optional>
#include <sstream>
#include <string>

#include "graphics/point_grid.h"
#include "graphics/result_conversion.h"
#include "graphics/result_data.h"
#include "graphics/run_input.h"
#include "support/byte_source.h"
#include "support/fuzzing.h"
#include "support/work_folder.h"
#include "text/file_helpers.h"

namespace zirvo::fuzz {
namespace {

GraphicsInputData SomePavement(ByteSource& source) {
    GraphicsInputData data;
    data.LayerCount = static_cast<Int16>(source.Between(1, 3));
    data.LoadCount = static_cast<Int16>(source.Between(1, 2));
    for (int i = 1; i <= data.LayerCount; ++i) {
        data.Layers[i] = {.Modulus = 100, .PoissonRatio = 0.35, .Thickness = source.Byte() * 0.25 + 0.01};
    }
    for (int i = 1; i <= data.LoadCount; ++i) {
        data.Loads[i] = {.VerticalLoad = 49, .Radius = source.Byte() * 0.5 + 0.01, .LoadX = source.Byte() - 128.0};
    }
    return data;
}

/// Faults that the readers of both files are told to have.
bool IsTold(int number) {
    return number == fault::InputPastEnd || number == fault::TypeMismatch || number == fault::SubscriptOutOfRange ||
           number == fault::InvalidCall;
}

void RunData(const std::string& bytes, SectionKind kind, const CoarseGrid& grid) {
    std::istringstream stream(bytes);
    ResultDataSet data;
    if (const std::optional<int> fault = FaultOf([&] { data = ReadResultData(stream, kind, grid); })) {
        Require(IsTold(*fault), "a comma file that does not read is one of the faults told");
        return;
    }
    for (const double value : data.PointValue) {
        Require(std::isfinite(value), "a number text is a finite number");
    }
    Require(data.Map.Field.Values.LastX() < 0 || data.Map.Field.FineCountX() == data.Map.Field.Values.LastX(),
            "each column of the matrix has its place on the axis");
    Require(data.Map.Field.FineCountY() <= std::max(data.Map.Field.Values.LastY(), 0), "no row has a place of none");
    ReadOuts texts;
    if (const std::optional<int> fault = FaultOf([&] { texts = TakeReadOuts(data); })) {
        Require(*fault == fault::Overflow, "read-outs of numbers that are too large are fault 6");
        return;
    }
    Require(!texts.ValueMin.empty() && !texts.AxisMax2.empty(), "each read-out has a text");
}

void RunReport(const std::string& bytes, const ConversionRequest& request, SectionKind kind, const CoarseGrid& grid) {
    PutFile(SectionReportName, bytes);
    PutFile(SectionCsvName, "earlier");
    const bool stamped = IsStamped(SectionReportName);
    if (const std::optional<int> fault = FaultOf([&] { ConvertResultsToCsv(request); })) {
        Require(IsTold(*fault), "a report that does not read is one of the faults told");
        RequireEqual(BytesOf(SectionReportName).value_or("gone"), bytes, "a fault leaves the report as it was");
        RequireEqual(BytesOf(SectionCsvName).value_or("gone"), "earlier", "a fault leaves the comma file as it was");
        return;
    }
    Require(AllFiles().size() == 2, "no other file is left behind");
    Require(IsStamped(SectionReportName), "a report that was converted has its stamp");
    const std::string after = BytesOf(SectionReportName).value_or("gone");
    Require(!stamped || after == bytes, "a report is stamped once");
    const std::string csv = BytesOf(SectionCsvName).value_or("gone");
    Require(csv.empty() == (request.OutputComponent != ComponentEpsX && request.OutputComponent != ComponentEpsZ),
            "either strain has its comma file");
    Require(!FaultOf([&] { ConvertResultsToCsv(request); }), "a stamped report is converted again");
    RequireEqual(BytesOf(SectionReportName).value_or("gone"), after, "and is not changed by that");
    RequireEqual(BytesOf(SectionCsvName).value_or("gone"), csv, "and gives the same comma file");
    std::istringstream stream(csv);
    Require(!FaultOf([&] { ReadResultData(stream, kind, grid); }), "what was converted is read");
    RunData(csv, kind, grid);
}

}  // namespace

const int LongestRun = 1;

void RunInput(std::string_view input) {
    EmptyWorkFolder();
    ByteSource source(input);
    const bool isReport = !source.Flag();
    const SectionKind kind = source.Flag() ? SectionKind::XZ : SectionKind::XY;
    const ConversionRequest request{.ReportPath = SectionReportName,
                                    .CsvPath = SectionCsvName,
                                    .Language = static_cast<Int16>(source.Between(1, 2)),
                                    .Units = static_cast<UnitSystem>(source.Between(0, 3)),
                                    .LayerCount = source.Between(0, 5),
                                    .PointCount = source.Between(0, 300),
                                    .OutputComponent = static_cast<Int16>(source.Between(0, 2))};
    CoarseGrid grid;
    const GraphicsInputData pavement = SomePavement(source);
    grid = BuildSectionGrid(pavement, kind);
    const std::string bytes(source.Rest());
    if (isReport) {
        RunReport(bytes, request, kind, grid);
    } else {
        RunData(bytes, kind, grid);
    }
}

}  // namespace zirvo::fuzz
