// `zirvo-batch map`, see map_command.h.
#include "batch/map_command.h"

#include <filesystem>
#include <numeric>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/fault_words.h"
#include "batch/check_command.h"
#include "batch/map_picture.h"
#include "batch/solver_signs.h"
#include "batch/temporary_folder.h"
#include "contour/number_format.h"
#include "graphics/section_plot.h"
#include "platform/code_page.h"
#include "platform/files.h"
#include "text/catalogue.h"
#include "text/file_helpers.h"
#include "text/number_text.h"

namespace zirvo::batch {
namespace {

class Mapping {
public:
    Mapping(const MapRequest& request, Console& console) : request_(request), console_(console) {
        plot_.Units = request.Units;
        plot_.LanguageBase = request.LanguageBase;
        plot_.Section = request.Section;
        plot_.PositionText = request.PositionText;
    }

    ExitCode Run();

private:
    const MapRequest& request_;
    Console& console_;
    GraphicsInputData model_;
    SectionPlot plot_;

    bool Refuse(const std::string& reason) {
        console_.Complain(request_.File, reason);
        return false;
    }
    bool ReadModel();
    bool FindLayer();
    bool FillPlot();
    bool Start();
    bool Solve();
    bool TakeRange();
};

std::string Centimetres(double length) {
    return FormatNumberText(length) + " cm";
}

bool Mapping::ReadModel() {
    if (TellFindings(request_.File, CheckGraphicsInput(request_.File), console_)) {
        return false;
    }
    GraphicsInputResult read = ReadGraphicsInput(request_.File);
    if (!read.Passed()) {  // changed by someone else since the lines above
        TellFindings(request_.File, {read.Failure().First}, console_);
        return false;
    }
    model_ = *std::move(read);
    return true;
}

/// The layer of an X-Y section. Where the screen asks for one of two layers the option answers; elsewhere it may only
/// agree.
bool Mapping::FindLayer() {
    if (request_.Section.Kind != SectionKind::XY) {
        return true;
    }
    const Int16 named = request_.Section.LayerOfInterest;
    const double depth = request_.Section.SectionPosition;
    std::vector<Int16> asked;
    const std::optional<Int16> layer =
        ResolveLayerOfInterest(depth, ThicknessesOf(model_), model_.LayerCount, request_.LanguageBase,
                               [&](Int16 neighbour, std::string_view /*title*/) {
                                   asked.push_back(neighbour);
                                   return neighbour == named;
                               });
    if (!layer) {
        const std::string above = std::to_string(asked.at(asked.size() - 2));
        const std::string below = std::to_string(asked.back());
        return Refuse("depth " + Centimetres(depth) + " is the interface of layers " + above + " and " + below +
                      ": --layer " + above + " or --layer " + below + " decides");
    }
    if (named != 0 && named != *layer) {
        return Refuse("depth " + Centimetres(depth) + " lies in layer " + std::to_string(*layer) + ", not in layer " +
                      std::to_string(named));
    }
    plot_.Section.LayerOfInterest = *layer;
    if (depth < 0) {
        console_.Note(request_.File, "depth " + Centimetres(depth) +
                                         " lies above the pavement and is taken, as on the screen, in layer " +
                                         std::to_string(*layer) + ", at its top");
    }
    return true;
}

bool Mapping::Start() {
    switch (StartSection(plot_, model_)) {
        case SectionInputStatus::Written:
            return true;
        case SectionInputStatus::TooManyPoints:
            return Refuse("the loads make a grid of " + std::to_string(PointCountOf(plot_.Input.Grid)) +
                          " points, more than " + std::to_string(PointLimit));
        default:
            break;
    }
    const std::vector<double> thicknesses = ThicknessesOf(model_);
    const double top = std::accumulate(thicknesses.begin(), thicknesses.end(), 0.0);
    return Refuse("layer " + std::to_string(model_.LayerCount) + ": its top at " + Centimetres(top) +
                  ", rounded to 2 decimals, lies in the layer above");
}

bool Mapping::Solve() {
    const std::string solver = JoinPath(ProgramFolder(), GraphicsSolverName);
    if (!FileExists(solver)) {
        return Refuse(solver + " is missing");
    }
    console_.Progress(request_.File + ": " + std::string(GetMessage(request_.LanguageBase, MessageComputing)));
    SolveSection(plot_, ProgramFolder(), *MakeProcessService(), {});
    if (!FileExists(SectionReportName)) {
        if (!plot_.SolverNotStarted.empty()) {
            return Refuse(solver + " cannot be started");
        }
        return Refuse("the solver left no report");
    }
    const std::string report = ReadFileBytes(SectionReportName);
    if (report.find(MarkerLine) == std::string::npos) {
        Refuse("the solver gave no results; its report says:");
        console_.Complain("", DecodeText(report));
        return false;
    }
    return true;
}

/// Everything that has work files.
bool Mapping::FillPlot() {
    const TemporaryFolder folder;
    if (!Start() || !Solve()) {
        return false;
    }
    console_.Progress(request_.File + ": drawing");
    ConvertSection(plot_);
    LoadSection(plot_);
    return true;
}

bool Mapping::TakeRange() {
    ContourMap& map = plot_.Data.Map;
    const auto text = [](double value) { return FormatNumber(value, NumberFormat::Exponent2); };
    const std::string smallest = text(map.ValueMin);
    const std::string largest = text(map.ValueMax);
    map.ValueMin = request_.Lowest.value_or(map.ValueMin);
    map.ValueMax = request_.Highest.value_or(map.ValueMax);
    if (map.ValueMin <= map.ValueMax) {
        return true;
    }
    return Refuse(request_.Lowest ? "--min is above the largest value, " + largest
                                  : "--max is below the smallest value, " + smallest);
}

ExitCode Mapping::Run() {
    console_.Progress("reading " + request_.File);
    if (!ReadModel() || !FindLayer()) {
        return ExitCode::BadInput;
    }
    try {
        if (!FillPlot() || !TakeRange()) {
            return ExitCode::BadInput;
        }
    } catch (const RuntimeFault& caught) {
        // The work files lie in a folder that is gone by now: their names would tell nothing.
        const FaultMatter matter = caught.About().Matter;
        const bool words = matter == FaultMatter::LoadPositions || matter == FaultMatter::Thicknesses;
        const std::string about =
            words ? FaultExplanation(caught, FaultLanguage::English) : "in the work files of the section";
        Refuse(FaultText(caught) + " (" + about + ")");
        return ExitCode::BadInput;
    } catch (const std::filesystem::filesystem_error& failure) {
        Refuse("no temporary folder can be made: " + failure.code().message());
        return ExitCode::BadInput;
    }
    try {
        return WriteMapPicture(request_, plot_, console_);
    } catch (const RuntimeFault& caught) {
        console_.Complain(request_.PictureFile, "cannot be written: " + FaultText(caught));
        return ExitCode::BadInput;
    }
}

}  // namespace

ExitCode RunMap(const MapRequest& request, Console& console) {
    return Mapping(request, console).Run();
}

}  // namespace zirvo::batch
