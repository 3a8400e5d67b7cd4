// The generated input of a section, see run_input.h.
#include "graphics/run_input.h"

#include <array>
#include <vector>

#include "base/runtime_fault.h"
#include "contour/rounding.h"
#include "pavement/pavement_blocks.h"
#include "pavement/pavement_rules.h"
#include "platform/files.h"
#include "text/number_text.h"

namespace zirvo {

namespace {

constexpr std::size_t LoadCountWidthXZ = 8;
constexpr std::size_t PointCountWidth = 11;
constexpr std::array<std::size_t, LoadColumns> LoadWidths{10, 15, 15, 15, 15, 19};
constexpr std::array<std::size_t, PointColumns> PointWidths{5, 16, 13, 13};
constexpr Int16 PositionDecimals = 2;

std::string CountText(long long count, std::size_t columns) {
    return PadLeft(std::to_string(count), columns);
}

void AppendHead(std::string& out, const GraphicsInputData& model, SectionKind kind, const CoarseGrid& grid,
                Int16 languageBase) {
    AppendHeading(out, languageBase, 66);
    AppendLine(out, SectionReportName);
    AppendLine(out, "");
    AppendHeading(out, languageBase, 67);
    AppendLine(out, CountText(model.LayerCount, LayerCountWidth) +
                        CountText(model.LoadCount, kind == SectionKind::XY ? LoadCountWidth : LoadCountWidthXZ) +
                        CountText(PointCountOf(grid), PointCountWidth));
    AppendLine(out, "");
}

/// The load block of the analysis input file in narrower columns.
void AppendLoads(std::string& out, const GraphicsInputData& model, UnitSystem units, Int16 languageBase) {
    AppendHeading(out, languageBase, 71);
    AppendHeading(out, languageBase, LoadFileHeading(units));
    for (const SurfaceLoad& load : model.Loads.UpTo(model.LoadCount).subspan(1)) {
        const std::array<double, LoadColumns> values{load.VerticalLoad, load.Radius,         load.LoadX,
                                                     load.LoadY,        load.HorizontalLoad, load.AngleFromX};
        for (std::size_t c = 0; c < LoadColumns; ++c) {
            AppendColumn(out, values[c], LoadWidths[c]);
        }
        AppendLine(out, "");
    }
}

/// The positions with 2 decimals as texts, which many points share.
std::vector<std::string> PositionTexts(const std::vector<FixedPoint4>& positions, std::size_t columns) {
    std::vector<std::string> texts;
    texts.reserve(positions.size());
    for (const FixedPoint4 position : positions) {
        texts.push_back(PadLeft(FormatNumberText(Round(position, PositionDecimals)), columns));
    }
    return texts;
}

void AppendPoints(std::string& out, const SectionDefinition& section, const CoarseGrid& grid) {
    const bool flat = section.Kind == SectionKind::XY;
    const std::vector<std::string> x = PositionTexts(grid.GridX, PointWidths[1]);
    const std::vector<std::string> second = PositionTexts(grid.GridY, PointWidths[flat ? 2 : 3]);
    const std::string plane = PadLeft(FormatNumberText(section.SectionPosition), PointWidths[flat ? 3 : 2]);
    for (std::size_t j = 1; j < second.size(); ++j) {
        const int layer = flat ? section.LayerOfInterest : LayerOfLevel(static_cast<int>(j));
        const std::string front = CountText(layer, PointWidths[0]);
        for (std::size_t i = 1; i < x.size(); ++i) {
            out.append(front).append(x[i]).append(flat ? second[j] : plane);
            AppendLine(out, flat ? plane : second[j]);
        }
    }
}

void RequireSectionKind(SectionKind kind) {
    if (kind == SectionKind::YZ) {
        throw RuntimeFault(fault::InvalidCall);
    }
}

}  // namespace

std::string WriteGraphicsRunInput(const GraphicsInputData& model, const SectionDefinition& section,
                                  const CoarseGrid& grid, UnitSystem unitSystem, Int16 languageBase) {
    RequireSectionKind(section.Kind);
    if (PointCountOf(grid) > PointLimit) {
        throw RuntimeFault(fault::SubscriptOutOfRange);
    }
    std::string out;
    AppendHead(out, model, section.Kind, grid, languageBase);
    AppendLayerBlock(out, model.Layers.UpTo(model.LayerCount), unitSystem, languageBase);
    AppendLine(out, "");
    AppendLoads(out, model, unitSystem, languageBase);
    AppendLine(out, "");
    // The title has the higher number of the two.
    AppendHeading(out, languageBase, 75);
    AppendHeading(out, languageBase, 74);
    AppendPoints(out, section, grid);
    return out;
}

bool ValidateSectionDepths(const GraphicsInputData& model, SectionKind kind, const CoarseGrid& grid) {
    RequireSectionKind(kind);
    if (kind == SectionKind::XY) {
        return true;
    }
    // Each layer is tested in the rows of the one before it, so that only the last one remains in the end.
    std::vector<InterestPoint> points{InterestPoint()};
    for (int level = grid.GridCountY() - SubDivisionsY; level <= grid.GridCountY(); ++level) {
        InterestPoint point;
        point.LayerNumber = model.LayerCount;
        point.PointZ = grid.GridY.at(static_cast<std::size_t>(level)).ToDouble();
        points.push_back(point);
    }
    return ValidatePointDepths(points, ComputeLayerTops(model.Layers.UpTo(model.LayerCount)), model.LayerCount);
}

SectionInput PrepareSectionInput(const GraphicsInputData& model, const SectionDefinition& section,
                                 UnitSystem unitSystem, Int16 languageBase) {
    SectionInput input;
    input.Grid = BuildSectionGrid(model, section.Kind);
    const long long points = PointCountOf(input.Grid);
    if (points > PointLimit) {
        return input;
    }
    input.PointCount = static_cast<int>(points);
    WriteWholeFile(SectionInputName, WriteGraphicsRunInput(model, section, input.Grid, unitSystem, languageBase),
                   Flush::ToSystem);
    input.Status = ValidateSectionDepths(model, section.Kind, input.Grid) ? SectionInputStatus::Written
                                                                          : SectionInputStatus::DepthInvalid;
    return input;
}

}  // namespace zirvo
