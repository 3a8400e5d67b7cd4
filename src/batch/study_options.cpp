// Options of the study command, see study_command.h.
#include <optional>

#include <CLI/CLI.hpp>

#include "batch/option_texts.h"
#include "batch/study_command.h"
#include "design/number_table.h"
#include "platform/files.h"
#include "text/file_helpers.h"

namespace zirvo::batch {
namespace {

constexpr int MostParts = 100000;
constexpr int MostBins = 1000;

std::string JudgeBins(const std::string& text) {
    return CountOf(text, MostBins) > 0 ? "" : text + " is no number from 1 to 1000";
}

/// I/N with I from 1 to N; 0 and 0 where the text is none.
std::pair<int, int> PartOf(std::string_view text) {
    const std::size_t slash = text.find('/');
    if (slash == std::string_view::npos) {
        return {};
    }
    const int parts = CountOf(text.substr(slash + 1), MostParts);
    const int part = CountOf(text.substr(0, slash), parts);
    return part > 0 ? std::pair(part, parts) : std::pair(0, 0);
}

std::string JudgePart(const std::string& text) {
    return PartOf(text).first > 0 ? "" : text + " is no part like 2/4";
}

std::optional<std::pair<std::string, double>> WhereOf(const std::string& text) {
    const std::size_t sign = text.rfind('=');
    if (sign == std::string::npos) {
        return std::nullopt;
    }
    const auto value = design::NumberOfText(std::string_view(text).substr(sign + 1));
    return value ? std::optional(std::pair(text.substr(0, sign), *value)) : std::nullopt;
}

std::string JudgeWhere(const std::string& text) {
    return WhereOf(text) ? "" : text + " is no condition like \"layer 1 thickness=15\"";
}

std::string JudgeChartFile(const std::string& file) {
    return HasExtension(file, ".svg") || HasExtension(file, ".png") ? "" : file + " is no picture file (.svg, .png)";
}

std::string JudgeChartSize(const std::string& text) {
    return SizeOf(text).first > 0 ? "" : text + " is no size in pixels like 800x560, each side from 100 to 8000";
}

constexpr const char* StudyFile = R"(A study file:
  base = "road.eva"                  # the pavement, beside the study
  units = 3
  [[vary]]                           # once for each parameter: "layer N modulus|poisson|thickness|slip",
  what = "layer 1 thickness"         # "load N|all vertical|radius|x|y|horizontal|angle", "loads total"
  from = 10                          # or values = [10, 20]
  to = 30
  step = 2                           # or count = 11
  [[keep]]
  value = "EPSx"                     # U to GAMzx, as "zirvo-batch solve" names them
  point = 2                          # or points = [2, 5] and over = "largest", "smallest", "largest size"
  [[keep]]
  name = "fatigue"
  life = "ai-fatigue"                # see "zirvo-batch lives --list"; or "fatigue=K1/K2/K3", "rutting=K1/K2"
  point = 2                          # c = 1, or voids = 5 and binder = 11, for the mix
In place of values a sample: rows = 2000 and seed = 1 at the top, and under [[vary]] distribution = "uniform" (from, to),
"triangular" (from, mode, to), "normal" or "lognormal" (mean, deviation, and lower, upper if wanted). In place of [[vary]]
a table at the top: table = "rows.csv", whose headings are parameters.)";

}  // namespace

void StudyOptions::AddTo(CLI::App& command) {
    command.footer(StudyFile);
    command.add_option("STUDY", file_, "Study file (.toml): a pavement, what varies, what is kept")
        ->required()
        ->type_name("");
    command
        .add_option("-o,--output", output_,
                    "Name of the results without its end: NAME.csv, NAME.sqlite, NAME_bad.csv; that of the study with "
                    "_results, beside it, if not given")
        ->type_name("NAME");
    command.add_option("--threads", threads_, "Number of threads; all that the machine has if not given")
        ->check(JudgeThreads)
        ->type_name("N");
    command.add_option("--part", part_, "Only the share I of N of the rows, for several machines")
        ->check(JudgePart)
        ->type_name("I/N");
    command.add_flag("--merge", merge_, "Join the parts that lie in the folder to the results of the whole");
    command.add_option("--plot", picture_, "Draw a chart of the results, by its extension .svg or .png")
        ->check(JudgeChartFile)
        ->type_name("FILE");
    command.add_option("--x", x_, "Column of the chart's horizontal axis")->type_name("COLUMN");
    command.add_option("--y", y_, "Column of its vertical axis")->type_name("COLUMN");
    command.add_option("--lines", lines_, "Column with a line for each of its values")->type_name("COLUMN");
    command.add_option("--histogram", histogram_, "In place of --x and --y: how often which value of a column comes")
        ->type_name("COLUMN");
    command.add_option("--bins", bins_, "Bars of a histogram")->check(JudgeBins)->type_name("N");
    command.add_option("--where", where_, "Only rows with a value in a column. May be given more than once")
        ->check(JudgeWhere)
        ->allow_extra_args(false)
        ->type_name("COLUMN=V");
    command.add_option("--log", log_, "Axes that are logarithmic")
        ->check(CLI::IsMember({"x", "y", "xy"}).description(""))
        ->type_name("x|y|xy");
    command.add_option("--size", size_, "Size of the chart in pixels; 800x560 if not given")
        ->check(JudgeChartSize)
        ->type_name("WxH");
}

std::string StudyOptions::Contradiction() const {
    if (merge_ && !part_.empty()) {
        return "--part, --merge: a part is run, or all are joined";
    }
    const bool chart = !x_.empty() || !y_.empty() || !lines_.empty() || !histogram_.empty() || !bins_.empty() ||
                       !where_.empty() || !log_.empty();
    if (picture_.empty()) {
        return chart ? "--plot is required with the options of a chart" : "";
    }
    if (!part_.empty()) {
        return "--plot: a part has no chart; join the parts first";
    }
    if (histogram_.empty() ? (x_.empty() || y_.empty()) : !(x_.empty() && y_.empty() && lines_.empty())) {
        return "--plot: either --x and --y, or --histogram";
    }
    if (!bins_.empty() && histogram_.empty()) {
        return "--bins: belongs to a histogram";
    }
    return !histogram_.empty() && log_.find('y') != std::string::npos ? "--log: the bars of a histogram count from 0"
                                                                      : "";
}

StudyRequest StudyOptions::Read() const {
    StudyRequest request;
    request.File = file_;
    request.Output = output_;
    if (output_.empty()) {
        const std::string name = FileNameOf(file_);
        const std::string stem = name.substr(0, name.rfind('.')) + "_results";
        const std::string folder = FolderOf(file_);
        request.Output = folder.empty() ? stem : JoinPath(folder, stem);
    }
    request.Threads = CountOf(threads_, HighestThreadCount);
    std::tie(request.Part, request.Parts) = PartOf(part_);
    request.Merge = merge_;
    PlotRequest& plot = request.Plot;
    plot.Picture = picture_;
    plot.X = x_;
    plot.Y = histogram_.empty() ? y_ : histogram_;
    plot.Lines = lines_;
    for (const std::string& text : where_) {
        plot.Where.push_back(WhereOf(text).value_or(std::pair(std::string(), 0.0)));
    }
    plot.LogX = log_.find('x') != std::string::npos;
    plot.LogY = log_.find('y') != std::string::npos;
    plot.Bins = CountOf(bins_, MostBins);
    std::tie(plot.PixelsWide, plot.PixelsHigh) = SizeOf(size_);
    return request;
}

}  // namespace zirvo::batch
