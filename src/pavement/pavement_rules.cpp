// The rules on pavement data, see pavement_rules.h.
#include "pavement/pavement_rules.h"

#include <sstream>

#include "platform/code_page.h"
#include "platform/files.h"
#include "text/number_text.h"
#include "text/text_fields.h"

namespace zirvo {

namespace {

Refusal JudgePositive(double value) {
    return value > 0 ? Refusal::None : Refusal::NotPositive;
}

Refusal JudgePoissonRatio(double value) {
    if (!(value > 0)) {
        return Refusal::NotPositive;
    }
    return value <= HighestPoissonRatio ? Refusal::None : Refusal::AbovePoissonLimit;
}

Refusal JudgeSlipRate(double value) {
    if (!(value >= 0)) {
        return Refusal::Negative;
    }
    return value <= HighestSlipRate ? Refusal::None : Refusal::AboveSlipLimit;
}

PavementLayer LayerFromTexts(const LayerTexts& cells, bool last) {
    PavementLayer layer{ParseNumberPrefix(cells[0]), ParseNumberPrefix(cells[1]), 0, 0};
    if (!last) {
        layer.Thickness = ParseNumberPrefix(cells[2]);
        layer.SlipRate = ParseNumberPrefix(cells[3]);
    }
    return layer;
}

SurfaceLoad LoadFromTexts(const LoadTexts& cells) {
    return {ParseNumberPrefix(cells[0]), ParseNumberPrefix(cells[1]), ParseNumberPrefix(cells[2]),
            ParseNumberPrefix(cells[3]), ParseNumberPrefix(cells[4]), ParseNumberPrefix(cells[5])};
}

InterestPoint PointFromTexts(const PointTexts& cells) {
    return {RoundToInt16(ParseNumberPrefix(cells[0])), ParseNumberPrefix(cells[1]), ParseNumberPrefix(cells[2]),
            ParseNumberPrefix(cells[3])};
}

/// The texts of row i; a grid that has fewer rows than its count says is a bound passed.
template <class Cells>
const Cells& RowAt(std::span<const Cells> rows, int i) {
    if (i < 0 || static_cast<std::size_t>(i) >= rows.size()) {
        throw RuntimeFault(fault::SubscriptOutOfRange);
    }
    return rows[static_cast<std::size_t>(i)];
}

template <std::size_t Columns>
void RefuseEmptyCells(const std::array<std::string, Columns>& cells, std::size_t used, RowRefusals<Columns>& row) {
    for (std::size_t c = 0; c < used; ++c) {
        if (cells[c].empty()) {
            row[c] = Refusal::Empty;
        }
    }
}

/// The rows of layers and loads that the counts of the model say.
void TakeRows(const LoadedPavementTexts& texts, LoadedPavement& model) {
    for (int i = 1; i <= model.LayerCount; ++i) {
        model.Layers[i] = LayerFromTexts(RowAt<LayerTexts>(texts.Layers, i), i == model.LayerCount);
    }
    for (int i = 1; i <= model.LoadCount; ++i) {
        model.Loads[i] = LoadFromTexts(RowAt<LoadTexts>(texts.Loads, i));
    }
}

bool AnyEmpty(std::span<const std::string_view> texts) {
    return std::any_of(texts.begin(), texts.end(), [](std::string_view text) { return text.empty(); });
}

/// The rules that both paths share, in their order: on all counts, on all names, on layers, on loads.
DataRule FirstRefusing(const LoadedPavementTexts& texts, std::span<const std::string_view> counts, bool namesPass) {
    if (!ValidateCounts(counts)) {
        return DataRule::Counts;
    }
    if (!namesPass) {
        return DataRule::FileNames;
    }
    if (!ValidateLayers(texts.Layers, CountOf(texts.LayerCount))) {
        return DataRule::Layers;
    }
    if (!ValidateLoads(texts.Loads, CountOf(texts.LoadCount))) {
        return DataRule::Loads;
    }
    return DataRule::None;
}

}  // namespace

RowRefusals<LayerColumns> JudgeLayer(const PavementLayer& layer, bool last) {
    RowRefusals<LayerColumns> row{};
    row[0] = JudgePositive(layer.Modulus);
    row[1] = JudgePoissonRatio(layer.PoissonRatio);
    if (!last) {
        row[2] = JudgePositive(layer.Thickness);
        row[3] = JudgeSlipRate(layer.SlipRate);
    }
    return row;
}

RowRefusals<LoadColumns> JudgeLoad(const SurfaceLoad& load) {
    RowRefusals<LoadColumns> row{};
    if (load.VerticalLoad == 0 && load.HorizontalLoad == 0) {
        row[0] = Refusal::NoLoad;
    }
    row[1] = JudgePositive(load.Radius);
    return row;
}

Refusal JudgePointDepth(const InterestPoint& point, const LayerTops& tops, int layerCount) {
    if (layerCount > MaximumLayers) {
        throw RuntimeFault(fault::SubscriptOutOfRange);
    }
    const int layer = point.LayerNumber;
    if (layer < 0 || layer > layerCount) {
        return Refusal::NoSuchLayer;
    }
    const auto own = static_cast<std::size_t>(layer);
    // The two sums stand exactly so: z - T < -e would round differently at depths near the tolerance.
    if (tops[own] - DepthTolerance > point.PointZ) {
        return Refusal::AboveItsLayer;
    }
    const bool lowest = layerCount == 1 || layer >= layerCount;
    if (!lowest && tops[own + 1] + DepthTolerance < point.PointZ) {
        return Refusal::BelowItsLayer;
    }
    return Refusal::None;
}

bool ValidatePointDepths(std::span<const InterestPoint> points, const LayerTops& tops, int layerCount) {
    for (std::size_t i = 1; i < points.size(); ++i) {
        if (JudgePointDepth(points[i], tops, layerCount) != Refusal::None) {
            return false;
        }
    }
    return true;
}

Refusal JudgeReportName(std::string_view name, std::string_view extension) {
    if (name.empty()) {
        return Refusal::Empty;
    }
    const std::size_t point = name.find('.');
    if (point == std::string_view::npos) {
        return Refusal::NoPoint;
    }
    return name.substr(point) == extension ? Refusal::None : Refusal::WrongExtension;
}

RowRefusals<LayerColumns> JudgeLayerTexts(const LayerTexts& cells, bool last) {
    RowRefusals<LayerColumns> row = JudgeLayer(LayerFromTexts(cells, last), last);
    RefuseEmptyCells(cells, FieldsOfLayer(last), row);  // whatever stands in the other cells of the last layer
    return row;
}

RowRefusals<LoadColumns> JudgeLoadTexts(const LoadTexts& cells) {
    RowRefusals<LoadColumns> row = JudgeLoad(LoadFromTexts(cells));
    RefuseEmptyCells(cells, LoadColumns, row);
    return row;
}

RowRefusals<PointColumns> JudgePointTexts(const PointTexts& cells) {
    RowRefusals<PointColumns> row{};
    try {
        if (StrictInt16(cells[0]) < 0) {
            row[0] = Refusal::Negative;
        }
    } catch (const RuntimeFault& caught) {
        // A number that 16 bits cannot hold is wrong data, as a number below 0 is; what is no number ends the program.
        if (caught.Number() != fault::Overflow) {
            throw;
        }
        row[0] = Refusal::OutsideSixteenBits;
    }
    if (ParseNumberPrefix(cells[3]) < 0) {
        row[3] = Refusal::Negative;
    }
    RefuseEmptyCells(cells, PointColumns, row);
    return row;
}

Int16 CountOf(std::string_view caption) {
    return RoundToInt16(ParseNumberPrefix(caption));
}

bool ValidateCounts(std::span<const std::string_view> captions) {
    return !AnyEmpty(captions) && std::none_of(captions.begin(), captions.end(),
                                               [](std::string_view caption) { return CountOf(caption) == 0; });
}

bool ValidateFileNames(std::span<const std::string_view> names) {
    return !AnyEmpty(names);
}

bool SurvivesInFile(std::string_view name) {
    const auto isControl = [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7F'; };
    if (name.empty() || name.front() == ' ' || std::any_of(name.begin(), name.end(), isControl) ||
        FileNameOf(std::string(name)) != name) {
        return false;
    }
    std::istringstream line(EncodeName(name));
    TextStream stream(line);
    return DecodeName(ReadTextFieldBytes(stream)) == name;
}

bool ValidateLayers(std::span<const LayerTexts> rows, int count) {
    for (int i = 1; i <= count; ++i) {
        if (!Passes(JudgeLayerTexts(RowAt(rows, i), i == count))) {
            return false;
        }
    }
    return true;
}

bool ValidateLoads(std::span<const LoadTexts> rows, int count) {
    for (int i = 1; i <= count; ++i) {
        if (!Passes(JudgeLoadTexts(RowAt(rows, i)))) {
            return false;
        }
    }
    return true;
}

bool ValidatePoints(std::span<const PointTexts> rows, int count) {
    for (int i = 1; i <= count; ++i) {
        const PointTexts& row = RowAt(rows, i);
        try {
            if (!Passes(JudgePointTexts(row))) {
                return false;
            }
        } catch (RuntimeFault& caught) {
            caught.SayAbout(FaultMatter::LayerCell, std::to_string(i));
            throw;
        }
    }
    return true;
}

std::string NormaliseFileName(std::string_view name, std::string_view extension) {
    std::string result(name);
    const std::size_t point = name.find('.');
    if (point != std::string_view::npos && name.substr(point) == extension) {
        return result;
    }
    std::replace(result.begin(), result.end(), '.', '_');
    return result.append(extension);
}

PavementModel ModelFromTexts(const PavementTexts& texts) {
    PavementModel model;
    model.LayerCount = CountOf(texts.LayerCount);
    model.LoadCount = CountOf(texts.LoadCount);
    model.PointCount = CountOf(texts.PointCount);
    TakeRows(texts, model);
    for (int i = 1; i <= model.PointCount; ++i) {
        model.Points[i] = PointFromTexts(RowAt<PointTexts>(texts.Points, i));
    }
    model.InputFileName = texts.InputFileName;
    model.ResultFileName = texts.ResultFileName;
    model.PrincipalFileName = texts.PrincipalFileName;
    return model;
}

LoadedPavement LoadedPavementFromTexts(const LoadedPavementTexts& texts) {
    LoadedPavement model;
    model.LayerCount = CountOf(texts.LayerCount);
    model.LoadCount = CountOf(texts.LoadCount);
    TakeRows(texts, model);
    return model;
}

DataRule ValidateLoadedPavement(const LoadedPavementTexts& texts) {
    const std::array<std::string_view, 2> captions{texts.LayerCount, texts.LoadCount};
    const std::array<std::string_view, 1> names{texts.InputFileName};
    return FirstRefusing(texts, captions, ValidateFileNames(names));
}

DataRule ValidateData(const PavementTexts& texts) {
    const std::array<std::string_view, 3> captions{texts.LayerCount, texts.LoadCount, texts.PointCount};
    const std::array<std::string_view, 3> names{texts.InputFileName, texts.ResultFileName, texts.PrincipalFileName};
    // What goes into the file is the name with its extension.
    const bool namesPass = ValidateFileNames(names) && SurvivesInFile(NormaliseFileName(names[0], ".eva")) &&
                           SurvivesInFile(NormaliseFileName(names[1], ".bre")) &&
                           SurvivesInFile(NormaliseFileName(names[2], ".san"));
    if (const DataRule failed = FirstRefusing(texts, captions, namesPass); failed != DataRule::None) {
        return failed;
    }
    if (!ValidatePoints(texts.Points, CountOf(texts.PointCount))) {
        return DataRule::Points;
    }
    const PavementModel model = ModelFromTexts(texts);
    const LayerTops tops = ComputeLayerTops(model.Layers.UpTo(model.LayerCount));
    if (!ValidatePointDepths(model.Points.UpTo(model.PointCount), tops, model.LayerCount)) {
        return DataRule::PointDepths;
    }
    return DataRule::None;
}

Int16 MessageOf(DataRule rule) {
    switch (rule) {
        case DataRule::Counts:
            return 58;
        case DataRule::FileNames:
            return 63;
        case DataRule::Layers:
            return 59;
        case DataRule::Loads:
            return 60;
        case DataRule::Points:
        case DataRule::PointDepths:
            return 61;
        case DataRule::None:
            break;
    }
    return 0;
}

}  // namespace zirvo
