// The worked example of the manual: what it tells the reader to type is the sample, and what it promises comes out.
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <sstream>

#include "batch/work_folder.h"
#include "graphics/section_plot.h"
#include "help/manual.h"
#include "pavement/analysis_input.h"
#include "pavement/graphics_input.h"
#include "platform/files.h"
#include "text/catalogue.h"
#include "text/number_text.h"

namespace zirvo::test {
namespace {

/// The folder that a test works in, and back again.
class InFolder {
public:
    explicit InFolder(const std::string& folder) { ChangeFolder(folder); }
    ~InFolder() { ChangeFolder(before_); }
    InFolder(const InFolder&) = delete;
    InFolder& operator=(const InFolder&) = delete;

private:
    std::string before_ = CurrentFolder();
};

/// The number behind the "=": 45 of "Z = 45, layer 3".
double PositionIn(const std::string& text) {
    return ParseNumberPrefix(text.substr(text.find('=') + 1));
}

class WorkedExample : public testing::TestWithParam<Int16> {
protected:
    const Manual& Pages() const { return ManualOf(GetParam()); }

    /// The read-outs of a map of samples/road.ven.
    ReadOuts MapOf(const SectionDefinition& section) const {
        const TemporaryFolder folder;
        const InFolder inFolder(folder.Path());
        SectionPlot plot;
        plot.Units = UnitSystem::KnToMPa;
        plot.LanguageBase = GetParam();
        plot.Section = section;
        const GraphicsInputResult road = ReadGraphicsInput(ZIRVO_SAMPLES "/road.ven");
        EXPECT_EQ(StartSection(plot, *road), SectionInputStatus::Written);
        SolveSection(plot, ZIRVO_BIN, *MakeProcessService(), {});
        ConvertSection(plot);
        return LoadSection(plot);
    }
};

TEST_P(WorkedExample, TellsToTypeTheSample) {
    const AnalysisInputResult sample = ReadAnalysisInput(ZIRVO_SAMPLES "/road.eva");
    ASSERT_TRUE(sample.Passed());
    const PavementModel& road = *sample;
    const std::vector<TableRow> layers = Pages().Page.TableBehind("exanalysis");
    ASSERT_EQ(static_cast<int>(layers.size()), road.LayerCount);
    for (std::size_t i = 0; i < layers.size(); ++i) {
        const PavementLayer& layer = road.Layers[static_cast<int>(i) + 1];
        EXPECT_EQ(layers[i][1], FormatNumberText(layer.Modulus));
        EXPECT_EQ(layers[i][2], FormatNumberText(layer.PoissonRatio));
        const bool last = i + 1 == layers.size();
        EXPECT_EQ(layers[i][3], last ? "" : FormatNumberText(layer.Thickness));
        EXPECT_EQ(layers[i][4], last ? "" : FormatNumberText(layer.SlipRate));
    }
    std::ostringstream points;
    for (int i = 1; i <= road.PointCount; ++i) {
        const InterestPoint& point = road.Points[i];
        points << (i > 1 ? ";" : "") << point.LayerNumber << "," << FormatNumberText(point.PointX) << ","
               << FormatNumberText(point.PointY) << "," << FormatNumberText(point.PointZ);
    }
    EXPECT_NE(WithoutBlanks(Pages().Page.TextBetween("exanalysis", "exvalues")).find(points.str()), std::string::npos)
        << points.str();
}

TEST_P(WorkedExample, ValuesAreThoseOfTheReport) {
    const WorkFolder folder;
    folder.PutSample("road.eva");
    ASSERT_EQ(folder.Batch({"analyze", "road.eva", "--units", "3", "--language", Pages().BatchWord}).Code, 0);
    const std::vector<std::string> lines = LinesOf(folder.Get("road_bre.csv"));
    // The copy's heading of components is the one that begins with the layer, which differs with the language.
    const auto heading = std::find_if(lines.begin(), lines.end(), [](const std::string& line) {
        return line.find(",X,Y,Z,U,V,W,SIGx") != std::string::npos;
    });
    ASSERT_NE(heading, lines.end());
    const std::vector<std::string> names = FieldsOf(*heading);
    const std::vector<TableRow> rows = Pages().Page.TableBehind("exvalues");
    ASSERT_GE(rows.size(), 5U);
    for (const TableRow& row : rows) {
        ASSERT_EQ(row.size(), 8U);
        const auto name = std::find(names.begin(), names.end(), row[4]);
        ASSERT_NE(name, names.end()) << row[4];
        const auto line = std::find_if(heading + 1, lines.end(), [&row](const std::string& one) {
            const std::vector<std::string> fields = FieldsOf(one);
            return fields.size() > 4 && fields[0] == row[0] && fields[1] == row[1] + ".000" &&
                   fields[2] == row[2] + ".000" && fields[3] == row[3] + ".000";
        });
        ASSERT_NE(line, lines.end()) << "no such point: " << row[0] << " " << row[1] << " " << row[3];
        EXPECT_EQ(row[5], FieldsOf(*line)[static_cast<std::size_t>(name - names.begin())]) << row[4];
    }
}

TEST_P(WorkedExample, LargestBoundIsThatOfTheReport) {
    const WorkFolder folder;
    folder.PutSample("road.eva");
    ASSERT_EQ(folder.Batch({"analyze", "road.eva", "--units", "3", "--language", "en"}).Code, 0);
    const std::string report = folder.Get("road.bre");
    const std::string words = "LARGEST BOUND OF THE RELATIVE ERROR: ";
    const std::size_t at = report.find(words);
    ASSERT_NE(at, std::string::npos);
    const std::string bound = report.substr(at + words.size(), std::string("6.8E-14").size());
    // Its last digit is a matter of the machine's vector registers; its size is what the manual tells.
    EXPECT_EQ(bound.substr(3), "E-14") << bound;
    EXPECT_NE(Pages().Page.TextBetween("accuracy", "sources").find("E-14"), std::string::npos);
}

TEST_P(WorkedExample, RangesOfTheMapsAreThoseOfTheScreen) {
    const std::vector<TableRow> rows = Pages().Page.TableBehind("exranges");
    ASSERT_EQ(rows.size(), 3U);
    for (const TableRow& row : rows) {
        ASSERT_EQ(row.size(), 5U);
        SectionDefinition section;
        section.OutputComponent = row[0] == Message(Pages(), 83) ? ComponentEpsX : ComponentEpsZ;
        EXPECT_EQ(row[0], Message(Pages(), section.OutputComponent == ComponentEpsX ? Int16{83} : Int16{84}));
        section.Kind = row[1] == "X-Y" ? SectionKind::XY : SectionKind::XZ;
        section.SectionPosition = PositionIn(row[2]);
        section.LayerOfInterest = section.Kind == SectionKind::XY ? Int16{3} : Int16{0};
        const ReadOuts shown = MapOf(section);
        EXPECT_EQ(row[3], shown.ValueMin) << row[0] << " " << row[1];
        EXPECT_EQ(row[4], shown.ValueMax) << row[0] << " " << row[1];
    }
}

TEST_P(WorkedExample, ReachOfTheMapIsThatOfTheScreen) {
    const ReadOuts shown = MapOf({ComponentEpsX, SectionKind::XZ, 0, 0});
    const std::string text = Pages().Page.TextBetween("exranges", "theory");
    for (const std::string& end : {shown.AxisMin1, shown.AxisMax1, shown.AxisMin2, shown.AxisMax2}) {
        EXPECT_NE(text.find(end), std::string::npos) << end;
    }
}

INSTANTIATE_TEST_SUITE_P(Languages, WorkedExample, testing::Values(JapaneseBase, EnglishBase));

}  // namespace
}  // namespace zirvo::test
