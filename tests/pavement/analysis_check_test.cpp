// The check: every failing row and value, in the words of the check tool.
#include <gtest/gtest.h>

#include <sstream>

#include "pavement/analysis_input.h"
#include "pavement/support.h"

namespace zirvo {
namespace {

using test::ExampleFile;
using test::Replaced;

std::vector<std::string> CheckAnalysis(const std::string& bytes) {
    std::istringstream stream(bytes);
    std::vector<std::string> lines;
    for (const Finding& finding : CheckAnalysisInput(stream)) {
        lines.push_back(FindingText(finding));
    }
    return lines;
}

std::string FileOf(const std::string& names, const std::string& counts, const std::string& layers,
                   const std::string& loads, const std::string& points) {
    return "heading\n" + names + "\n\nheading\n" + counts + "\n\nheading\nheading\n" + layers + "\nheading\nheading\n" +
           loads + "\nheading\nheading\n" + points;
}

using Lines = std::vector<std::string>;

TEST(CheckAnalysisInput, FindsNothingInAFileThatPasses) {
    EXPECT_EQ(CheckAnalysis(ExampleFile()), Lines{});
}

TEST(CheckAnalysisInput, NamesEveryFailingValueOfEveryRow) {
    EXPECT_EQ(CheckAnalysis(FileOf("a.txt\nb", "3 2 1", "0 0.6 -1 1\n1000 0.3 10 -0.5\n-5 0\n",
                                   "0 0 0 0 0 0\n49 -1 0 0 0 0\n", "9 0 0 0\n")),
              (Lines{
                  "report names, ResultFileName a.txt: has another extension",
                  "report names, PrincipalFileName b: has no point, so no extension",
                  "layer 1, Modulus 0: is not above 0",
                  "layer 1, PoissonRatio 0.6: is above 0.5",
                  "layer 1, Thickness -1: is not above 0",
                  "layer 1, SlipRate 1: is above 0.99",
                  "layer 2, SlipRate -0.5: is below 0",
                  "layer 3, Modulus -5: is not above 0",
                  "layer 3, PoissonRatio 0: is not above 0",
                  "load 1, VerticalLoad 0: is 0, and so is HorizontalLoad: the load does nothing",
                  "load 1, Radius 0: is not above 0",
                  "load 2, Radius -1: is not above 0",
                  "point 1, LayerNumber 9: names no layer: there are 3",
              }));
}

TEST(CheckAnalysisInput, NamesEveryPointOutsideItsLayer) {
    EXPECT_EQ(CheckAnalysis(FileOf("a.bre\nb.san", "2 1 4", "1000 0.3 10 0\n100 0.4\n", "49 15 0 0 0 0\n",
                                   "1 0 0 12.5\n2 0 0 12.5\n2 0 0 7\n-1 0 0 7\n")),
              (Lines{
                  "point 1, PointZ 12.5: lies below the bottom of layer 1 at 10 cm",
                  "point 3, PointZ 7: lies above the top of layer 2 at 10 cm",
                  "point 4, LayerNumber -1: names no layer: there are 2",
              }));
}

TEST(CheckAnalysisInput, JudgesNoDepthsWhileALayerIsRefused) {
    // With the thickness of layer 1 wrong, every depth below it would be called wrong too.
    EXPECT_EQ(CheckAnalysis(FileOf("a.bre\nb.san", "2 1 2", "1000 0.3 -10 0\n100 0.4\n", "49 15 0 0 0 0\n",
                                   "1 0 0 12.5\n3 0 0 1\n")),
              (Lines{
                  "layer 1, Thickness -10: is not above 0",
                  "point 2, LayerNumber 3: names no layer: there are 2",
              }));
}

TEST(CheckAnalysisInput, StopsWhereTheRestOfTheFileCannotBeToldApart) {
    EXPECT_EQ(CheckAnalysis(FileOf("a.bre\nb.san", "2 0 0", "1000 0.7 10 0\n100 0.4\n", "", "")),
              (Lines{
                  "counts, LoadCount 0: is 0",
                  "counts, PointCount 0: is 0",
                  "layer 1, PoissonRatio 0.7: is above 0.5",
              }));
    EXPECT_EQ(CheckAnalysis(FileOf("a.bre\nb.san", "1 0 1", "100 0.4\n", "49 15 0 0 0 0\n", "9 0 0 0\n")),
              (Lines{"counts, LoadCount 0: is 0"}));
    EXPECT_EQ(CheckAnalysis(FileOf("a.bre\nb.san", "0 1 1", "rubbish\n", "", "")),
              (Lines{"counts, LayerCount 0: is 0"}));
    EXPECT_EQ(CheckAnalysis(FileOf("a.bre\nb.san", "1 1 0", "100 0.4\n", "49 0 0 0 0 0\n", "")),
              (Lines{"counts, PointCount 0: is 0", "load 1, Radius 0: is not above 0"}));
}

TEST(CheckAnalysisInput, TellsThePlaceWhereTheReadEnded) {
    EXPECT_EQ(CheckAnalysis(FileOf("a.bre\nb.san", "2 1 1", "0 0.3 10 0\n100 x\n", "", "")),
              (Lines{
                  "layer 1, Modulus 0: is not above 0",
                  "layer 2, PoissonRatio: is not a number of the kind that belongs here, or two numbers touch",
              }));
    EXPECT_EQ(CheckAnalysis(FileOf("a.bre\nb.san", "1 1 2", "100 0.4\n", "49 15 0 0 0 0\n", "1 0 0 1\n1 0\n")),
              (Lines{"point 2, PointY: the file ends here"}));
    EXPECT_EQ(CheckAnalysis(FileOf("a.bre\nb.san", "1 -3 2", "", "", "")), (Lines{"counts, LoadCount -3: is below 0"}));
}

TEST(CheckAnalysisInput, JudgesThePointsBeforeThePlaceWhereTheReadEnded) {
    EXPECT_EQ(CheckAnalysis(FileOf("a.bre\nb.san", "2 1 4", "1000 0.3 10 0\n100 0.4\n", "49 15 0 0 0 0\n",
                                   "1 0 0 12.5\n3 0 0 7\n1 0 0 5\n1 0\n")),
              (Lines{
                  "point 4, PointY: the file ends here",
                  "point 1, PointZ 12.5: lies below the bottom of layer 1 at 10 cm",
                  "point 2, LayerNumber 3: names no layer: there are 2",
              }));
    std::string points = "1 0 0 99\n";
    for (int i = 2; i <= 10001; ++i) {
        points += "1 0 0 0\n";
    }
    EXPECT_EQ(CheckAnalysis(FileOf("a.bre\nb.san", "2 1 10001", "1000 0.3 10 0\n100 0.4\n", "49 15 0 0 0 0\n", points)),
              (Lines{
                  "point 10001: more rows than an analysis can have",
                  "point 1, PointZ 99: lies below the bottom of layer 1 at 10 cm",
              }));
}

TEST(CheckAnalysisInput, TheFirstFindingIsTheOneThatTheImportStopsAt) {
    for (const auto& [from, to] : {std::pair<const char*, const char*>{"Untitled.bre", ""},
                                   {"Untitled.bre", "Untitled"},
                                   {"Untitled.san", "x.bre"},
                                   {"  2         1", "  0         0"},
                                   {"0.35", "0.51"},
                                   {"0.4", "0"},
                                   {"49", " 0"},
                                   {"    1               0", "    3               0"},
                                   {"    1               0", "    x               0"}}) {
        const std::string bytes = Replaced(ExampleFile(), from, to);
        std::istringstream once(bytes);
        std::istringstream again(bytes);
        const std::vector<Finding> findings = CheckAnalysisInput(once);
        ASSERT_FALSE(findings.empty()) << from;
        EXPECT_EQ(findings.front(), ReadAnalysisInput(again).Failure().First);
    }
}

TEST(FindingText, EveryReasonHasWords) {
    for (int refusal = 1; refusal <= static_cast<int>(Refusal::Zero); ++refusal) {
        EXPECT_NE(ReasonOf(static_cast<Refusal>(refusal)), ReasonOf(Refusal::None)) << refusal;
    }
}

}  // namespace
}  // namespace zirvo
