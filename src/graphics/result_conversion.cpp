// Conversion of a section's report, see result_conversion.h.
#include "graphics/result_conversion.h"

#include <array>
#include <cmath>
#include <fstream>
#include <vector>

#include "base/runtime_fault.h"
#include "graphics/point_grid.h"
#include "pavement/pavement_blocks.h"
#include "pavement/report_reason.h"
#include "platform/fault_subject.h"
#include "platform/files.h"
#include "platform/open_file.h"
#include "text/file_helpers.h"
#include "text/number_text.h"
#include "text/text_fields.h"
#include "text/version_stamp.h"

namespace zirvo {

namespace {

// Columns of the report, from 1.
constexpr int ReportColumns = 18;
constexpr int ColumnX = 1;
constexpr int ColumnY = 2;
constexpr int ColumnZ = 3;
constexpr int ColumnEpsX = 13;
constexpr int ColumnEpsZ = 15;

constexpr Int16 English = 2;
constexpr int HeadFields = 5;
constexpr int FieldsBehindLayers = 4;

/// What a map needs of a row of the report: X, Y, Z [cm] and both strains [micro].
struct ResultRow {
    double X = 0;
    double Y = 0;
    double Z = 0;
    double EpsX = 0;
    double EpsZ = 0;
};

ResultRow ReadRow(TextStream& stream) {
    std::array<double, ReportColumns + 1> numbers{};
    for (int column = 1; column <= ReportColumns; ++column) {
        numbers[static_cast<std::size_t>(column)] = ReadNumberField(stream);
    }
    return {numbers[ColumnX], numbers[ColumnY], numbers[ColumnZ], numbers[ColumnEpsX], numbers[ColumnEpsZ]};
}

// Reading 18 numbers of a row takes so much of the time that it takes to write four of them again.
constexpr double ShareOfReading = 0.75;
constexpr int RowsBetweenTicks = 200;  // a hundredth of a second

/// Tells of every so many rows of all.
void Tick(const Progress& progress, std::size_t row, std::size_t all) {
    if (progress && row % RowsBetweenTicks == 0) {
        progress(static_cast<double>(row) / static_cast<double>(all));
    }
}

std::vector<ResultRow> ReadRows(const ConversionRequest& request, bool stamped, const Progress& progress) {
    std::ifstream file = OpenForReading(request.ReportPath);
    TextStream stream(file);
    SkipTextFields(stream,
                   HeadFieldCount(stamped, request.Language, request.Units) + request.LayerCount + FieldsBehindLayers);
    std::vector<ResultRow> rows;
    for (int i = 1; i <= request.PointCount; ++i) {
        if (i > PointLimit) {
            throw RuntimeFault(fault::SubscriptOutOfRange);
        }
        rows.push_back(ReadRow(stream));
        Tick(progress, rows.size(), static_cast<std::size_t>(request.PointCount));
    }
    return rows;
}

/// The same; a fault tells of the report, and why the solver has left it so.
std::vector<ResultRow> ReadReport(const ConversionRequest& request, bool& stamped, const Progress& progress) {
    try {
        return Naming(FaultMatter::File, request.ReportPath, [&] {
            stamped = IsStamped(request.ReportPath);
            return ReadRows(request, stamped, progress);
        });
    } catch (RuntimeFault& caught) {
        if (caught.Number() == fault::FileNotFound) {
            caught.SayInstead(FaultMatter::Report, FullPath(request.ReportPath));
        }
        caught.GiveReason(ReasonInReport(request.ReportPath));
        throw;
    }
}

/// A blank in front unless the value is negative, and one behind, also behind the last number of a line.
void AppendPrinted(std::string& out, double value) {
    const std::string text = FormatNumberText(value);
    out.append(text.front() == '-' ? "" : " ").append(text).append(" ");
}

std::string CsvBytes(const std::vector<ResultRow>& rows, Int16 component, const Progress& progress) {
    std::string out;
    if (component != ComponentEpsX && component != ComponentEpsZ) {
        return out;
    }
    AppendLine(out, "# " + MakeVersionStamp(3));
    AppendLine(out, component == ComponentEpsX ? "# X,Y,Z,EPSx" : "# X,Y,Z,EPSz");
    AppendLine(out, "# (cm),(cm),(cm),micro");
    std::size_t written = 0;
    for (const ResultRow& row : rows) {
        Tick(progress, ++written, rows.size());
        for (const double coordinate : {row.X, row.Y, row.Z}) {
            AppendPrinted(out, coordinate);
            out += ',';
        }
        AppendPrinted(out, component == ComponentEpsX ? row.EpsX : row.EpsZ);
        AppendLine(out, "");
    }
    return out;
}

}  // namespace

int HeadFieldCount(bool alreadyStamped, Int16 language, UnitSystem units) {
    const bool comma = language == English && units == UnitSystem::KgfToKgf;
    return HeadFields + (comma ? 1 : 0) + (alreadyStamped ? 1 : 0);
}

void ConvertResultsToCsv(const ConversionRequest& request, const Progress& progress) {
    bool stamped = false;
    const std::vector<ResultRow> rows = ReadReport(request, stamped, PartOf(progress, 0, ShareOfReading));
    if (!stamped) {
        MakeStampedCopy(request.ReportPath, StampTemporaryName);
    }
    const std::string bytes = CsvBytes(rows, request.OutputComponent, PartOf(progress, ShareOfReading, 1));
    WriteWholeFile(request.CsvPath, bytes, Flush::ToSystem);
}

}  // namespace zirvo
