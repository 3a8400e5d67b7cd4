// Options of the lives command, see lives_command.h.
#include <variant>

#include <CLI/CLI.hpp>

#include "batch/lives_command.h"
#include "batch/option_texts.h"
#include "solver/io/report_names.h"
#include "solver/io/solver_input.h"

namespace zirvo::batch {
namespace {

constexpr double MostPercent = 100;

/// The points behind the last colon, or why the text is no life.
std::variant<LifeAtPoints, std::string> LifeOfText(const std::string& text) {
    const std::size_t colon = text.rfind(':');
    if (colon == std::string::npos) {
        return text + " names no points; like ai-fatigue:2 or ai-rutting:4,5";
    }
    auto function = design::TransferFunctionOf(text.substr(0, colon));
    if (auto* reason = std::get_if<std::string>(&function)) {
        return std::move(*reason);
    }
    LifeAtPoints life{std::get<design::TransferFunction>(std::move(function)), {}};
    for (std::size_t from = colon + 1; from <= text.size();) {
        const std::size_t end = std::min(text.find(',', from), text.size());
        const int point =
            CountOf(std::string_view(text).substr(from, end - from), solver::AnalysisFormat.HighestPointCount);
        if (point == 0) {
            return text + ": the points behind the colon are numbers from 1 to 10000";
        }
        life.Points.push_back(point);
        from = end + 1;
    }
    return life;
}

std::string JudgeLife(const std::string& text) {
    auto life = LifeOfText(text);
    return life.index() == 0 ? "" : std::get<std::string>(life);
}

}  // namespace

void LivesOptions::AddTo(CLI::App& command) {
    command.add_option("FILE", file_, "Analysis input file (.eva)")->type_name("");
    command.add_flag("--list", list_, "Name the transfer functions that there are, with their sources");
    command.add_option("--units", units_, "Units of the file: 1 and 2 kgf, kgf/cm2, cm; 3 kN, MPa, cm")
        ->check(CLI::IsMember({"1", "2", "3"}).description(""))
        ->type_name("1|2|3");
    command
        .add_option("--life", lives_,
                    "A transfer function (see --list), or fatigue=K1/K2/K3 with the modulus in MPa, or rutting=K1/K2, "
                    "and the numbers of the points that it is for: ai-fatigue:2. May be given more than once")
        ->check(JudgeLife)
        ->allow_extra_args(false)
        ->type_name("NAME:POINTS");
    command.add_option("--c", mixFactor_, "Mix factor C of fatigue; 1 if not given")
        ->check(JudgeNumber)
        ->type_name("C");
    command.add_option("--voids", airVoids_, "Air voids in percent of the volume, which with --binder give C")
        ->check(JudgeNumber)
        ->type_name("PERCENT");
    command.add_option("--binder", binder_, "Binder in percent of the volume")
        ->check(JudgeNumber)
        ->type_name("PERCENT");
    command
        .add_option("--axles", axleFile_,
                    "Table load,repetitions of axle loads: the loads of the file are scaled so that their sum is each "
                    "of them, and damages add up (Miner)")
        ->type_name("AXLES.csv");
    command.add_option("--keep", keep_, "What an axle of another load keeps; radius if not given")
        ->check(CLI::IsMember({"radius", "pressure"}).description(""))
        ->type_name("radius|pressure");
    command.add_option("--csv", csvFile_, "File for the rows, in place of standard output")->type_name("OUT.csv");
}

std::string LivesOptions::Contradiction() const {
    if (list_) {
        return "";
    }
    if (file_.empty()) {
        return "FILE is required";
    }
    if (units_.empty()) {
        return "--units is required";
    }
    if (lives_.empty()) {
        return "--life is required";
    }
    if (airVoids_.empty() != binder_.empty() || (!mixFactor_.empty() && !binder_.empty())) {
        return "--c, --voids, --binder: either C, or both of the others";
    }
    if (!mixFactor_.empty() && !(*design::NumberOfText(mixFactor_) > 0)) {
        return "--c: " + mixFactor_ + " is not above 0";
    }
    if (!binder_.empty()) {
        const double voids = *design::NumberOfText(airVoids_);
        const double binder = *design::NumberOfText(binder_);
        if (!(voids >= 0 && binder > 0 && voids + binder <= MostPercent)) {
            return "--voids, --binder: must be above 0 and together at most 100";
        }
    }
    if (keep_ == "pressure" && axleFile_.empty()) {
        return "--keep: only an axle of a table (--axles) has another load";
    }
    for (const std::string& input : {file_, axleFile_}) {
        if (!csvFile_.empty() && !input.empty() && solver::IsSameFile(csvFile_, input)) {
            return "--csv: " + input + " is the input, and would be lost";
        }
    }
    return "";
}

LivesRequest LivesOptions::Read() const {
    LivesRequest request;
    request.List = list_;
    request.File = file_;
    request.Units = solver::UnitSystemOf(CountOf(units_, 3)).value_or(solver::UnitSystem::KnToMpa);
    for (const std::string& text : lives_) {
        auto life = LifeOfText(text);
        if (auto* good = std::get_if<LifeAtPoints>(&life)) {
            request.Lives.push_back(std::move(*good));
        }
    }
    request.MixFactor = design::NumberOfText(mixFactor_).value_or(1);
    if (!binder_.empty()) {
        request.MixFactor = design::MixFactor(*design::NumberOfText(airVoids_), *design::NumberOfText(binder_));
    }
    request.AxleFile = axleFile_;
    request.KeepsPressure = keep_ == "pressure";
    request.CsvFile = csvFile_;
    return request;
}

}  // namespace zirvo::batch
