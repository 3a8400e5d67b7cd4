// Options of the map command, see map_options.h.
#include "batch/map_options.h"

#include <array>
#include <limits>
#include <string_view>
#include <utility>

#include <CLI/CLI.hpp>

#include "batch/option_texts.h"
#include "contour/display_rules.h"
#include "solver/io/report_names.h"
#include "text/file_helpers.h"
#include "text/number_grammar.h"

namespace zirvo::batch {
namespace {

constexpr int MostContourLines = std::numeric_limits<Int16>::max();

constexpr std::array<std::pair<std::string_view, bool DisplayItems::*>, 5> ItemNames{
    std::pair{"fill", &DisplayItems::ColorFill}, std::pair{"lines", &DisplayItems::ContourLines},
    std::pair{"legend", &DisplayItems::Legend}, std::pair{"points", &DisplayItems::AnalyticalPoints},
    std::pair{"values", &DisplayItems::AnalyticalResults}};

constexpr std::array Formats{std::pair{".png", PictureFormat::Png}, std::pair{".bmp", PictureFormat::Bmp},
                             std::pair{".svg", PictureFormat::Svg}, std::pair{".pdf", PictureFormat::Pdf}};

std::optional<double> NumberOf(const std::string& text) {
    double value = 0;
    return ReadWholeNumber(text, value) ? std::optional(value) : std::nullopt;
}

std::string JudgeMapNumber(const std::string& text) {
    return NumberOf(text) ? "" : text + " is no number";
}

std::string JudgeLayer(const std::string& text) {
    return CountOf(text, MaximumLayers) > 0 ? "" : text + " is no number from 1 to " + std::to_string(MaximumLayers);
}

std::string JudgeLines(const std::string& text) {
    return CountOf(text, MostContourLines) >= LeastContourLineCount
               ? ""
               : text + " is no number from " + std::to_string(LeastContourLineCount) + " to " +
                     std::to_string(MostContourLines);
}

/// The items named, with commas between them; nothing if one is unknown.
std::optional<DisplayItems> ItemsOf(std::string_view text) {
    DisplayItems items{false, false, false, false, false};
    for (std::size_t from = 0; from <= text.size();) {
        const std::size_t end = std::min(text.find(',', from), text.size());
        const auto* found = std::find_if(ItemNames.begin(), ItemNames.end(),
                                         [&](const auto& item) { return item.first == text.substr(from, end - from); });
        if (found == ItemNames.end()) {
            return std::nullopt;
        }
        items.*(found->second) = true;
        from = end + 1;
    }
    return items;
}

std::string JudgeItems(const std::string& text) {
    return ItemsOf(text) ? "" : text + " is no list of fill, lines, legend, points, values with commas between them";
}

std::string JudgeMapSize(const std::string& text) {
    return SizeOf(text).first > 0 ? ""
                                  : text + " is no size in pixels like 529x540, each side from " +
                                        std::to_string(SmallestPicture) + " to " + std::to_string(LargestPicture);
}

std::optional<PictureFormat> FormatOf(const std::string& file) {
    for (const auto& [extension, format] : Formats) {
        if (HasExtension(file, extension)) {
            return format;
        }
    }
    return std::nullopt;
}

std::string JudgeMapFile(const std::string& file) {
    return FormatOf(file) ? "" : file + " is no picture file (.png, .bmp, .svg, .pdf)";
}

}  // namespace

void MapOptions::AddTo(CLI::App& command) {
    command.add_option("--section", section_, "Plane of the map: xy at a depth, or xz at a Y")
        ->required()
        ->check(CLI::IsMember({"xy", "xz"}).description(""))
        ->type_name("xy|xz");
    command.add_option("--position", position_, "Depth Z of an xy section, or Y of an xz section, in cm")
        ->required()
        ->check(JudgeMapNumber)
        ->type_name("CM");
    command.add_option("--layer", layer_, "Which of the two layers an xy section on their interface belongs to")
        ->check(JudgeLayer)
        ->type_name("I");
    command.add_option("--component", component_, "Strain that is shown, in micro")
        ->required()
        ->check(CLI::IsMember({"EPSx", "EPSz"}).description(""))
        ->type_name("EPSx|EPSz");
    command.add_option("--lines", lines_, "Number of contour lines, 5 or more; 20 if not given")
        ->check(JudgeLines)
        ->type_name("N");
    command
        .add_option("--items", items_,
                    "What is shown: any of fill, lines, legend, points, values, with commas between them; fill,legend "
                    "if not given. Values come with their points and without the legend")
        ->check(JudgeItems)
        ->type_name("LIST");
    command.add_option("--min", lowest_, "Lower end of the value range; the smallest value if not given")
        ->check(JudgeMapNumber)
        ->type_name("V");
    command.add_option("--max", highest_, "Upper end of the value range; the largest value if not given")
        ->check(JudgeMapNumber)
        ->type_name("V");
    command.add_option("--size", size_, "Size in pixels; 529x540 if not given")->check(JudgeMapSize)->type_name("WxH");
    command.add_option("-o,--output", pictureFile_, "Picture file, by its extension .png, .bmp, .svg or .pdf")
        ->required()
        ->check(JudgeMapFile)
        ->type_name("FILE");
}

std::string MapOptions::Contradiction(const std::string& file) const {
    if (!layer_.empty() && section_ != "xy") {
        return "--layer: only an xy section lies in a layer";
    }
    const MapRequest request = Read();
    if (request.Lowest && request.Highest && *request.Lowest > *request.Highest) {
        return "--min: " + lowest_ + " is above --max " + highest_;
    }
    if (solver::IsSameFile(pictureFile_, file)) {
        return "--output: " + file + " is the input, and would be lost";
    }
    return "";
}

MapRequest MapOptions::Read() const {
    MapRequest request;
    request.Section.Kind = section_ == "xy" ? SectionKind::XY : SectionKind::XZ;
    request.Section.OutputComponent = component_ == "EPSx" ? ComponentEpsX : ComponentEpsZ;
    request.Section.SectionPosition = NumberOf(position_).value_or(0);
    request.Section.LayerOfInterest = static_cast<Int16>(CountOf(layer_, MaximumLayers));
    request.PositionText = position_;
    request.Items = ItemsOf(items_).value_or(DisplayItems());
    request.ContourLineCount = static_cast<Int16>(CountOf(lines_, MostContourLines));
    request.Lowest = NumberOf(lowest_);
    request.Highest = NumberOf(highest_);
    std::tie(request.PixelsWide, request.PixelsHigh) = SizeOf(size_);
    request.PictureFile = pictureFile_;
    request.Format = FormatOf(pictureFile_).value_or(PictureFormat::Png);
    return request;
}

}  // namespace zirvo::batch
