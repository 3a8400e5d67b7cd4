// Writing the analysis input file, see analysis_input.h.
#include "pavement/analysis_input.h"

#include "pavement/pavement_blocks.h"
#include "platform/code_page.h"

namespace zirvo {

namespace {

// Widths that put the numbers roughly beneath the words of the headings.
constexpr std::size_t PointCountWidth = 11;
constexpr std::size_t LayerNumberWidth = 5;
constexpr std::size_t PointXWidth = 16;
constexpr std::size_t PointYWidth = 13;
constexpr std::size_t PointZWidth = 13;

void AppendNames(std::string& out, const PavementModel& model, Int16 languageBase) {
    AppendHeading(out, languageBase, 66);
    AppendLine(out, EncodeName(model.ResultFileName));
    AppendLine(out, EncodeName(model.PrincipalFileName));
    AppendLine(out, "");
}

void AppendCounts(std::string& out, const PavementModel& model, Int16 languageBase) {
    AppendHeading(out, languageBase, 67);
    AppendColumn(out, model.LayerCount, LayerCountWidth);
    AppendColumn(out, model.LoadCount, LoadCountWidth);
    AppendColumn(out, model.PointCount, PointCountWidth);
    AppendLine(out, "");
    AppendLine(out, "");
}

void AppendPointBlock(std::string& out, std::span<const InterestPoint> points, Int16 languageBase) {
    // The title has the higher number of the two.
    AppendHeading(out, languageBase, 75);
    AppendHeading(out, languageBase, 74);
    for (const InterestPoint& point : points.subspan(1)) {
        AppendColumn(out, point.LayerNumber, LayerNumberWidth);
        AppendColumn(out, point.PointX, PointXWidth);
        AppendColumn(out, point.PointY, PointYWidth);
        AppendColumn(out, point.PointZ, PointZWidth);
        AppendLine(out, "");
    }
}

}  // namespace

std::string WriteAnalysisInput(const PavementModel& model, UnitSystem unitSystem, Int16 languageBase) {
    std::string out;
    AppendNames(out, model, languageBase);
    AppendCounts(out, model, languageBase);
    AppendLayerBlock(out, model.Layers.UpTo(model.LayerCount), unitSystem, languageBase);
    AppendLine(out, "");
    AppendLoadBlock(out, model.Loads.UpTo(model.LoadCount), unitSystem, languageBase);
    AppendLine(out, "");
    AppendPointBlock(out, model.Points.UpTo(model.PointCount), languageBase);
    return out;
}

}  // namespace zirvo
