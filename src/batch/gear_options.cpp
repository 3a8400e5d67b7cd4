// Options of the gear command, see gear_command.h.
#include <array>
#include <optional>

#include <CLI/CLI.hpp>

#include "batch/gear_command.h"
#include "batch/option_texts.h"
#include "solver/io/report_names.h"
#include "text/catalogue.h"
#include "text/file_helpers.h"

namespace zirvo::batch {
namespace {

/// X and Y with a comma between them.
std::optional<std::pair<double, double>> PlaceOf(const std::string& text) {
    const std::size_t comma = text.find(',');
    if (comma == std::string::npos) {
        return std::nullopt;
    }
    const auto x = design::NumberOfText(text.substr(0, comma));
    const auto y = design::NumberOfText(text.substr(comma + 1));
    return x && y ? std::optional(std::pair(*x, *y)) : std::nullopt;
}

std::string JudgePlace(const std::string& text) {
    return PlaceOf(text) ? "" : text + " is no place like 0,150";
}

std::string JudgeFile(const std::string& file) {
    return HasExtension(file, ".eva") || HasExtension(file, ".ven")
               ? ""
               : file + " is neither an analysis input file (.eva) nor a graphics input file (.ven)";
}

}  // namespace

void GearOptions::AddTo(CLI::App& command) {
    const auto number = [&](const char* name, std::string& text, const char* help, const char* type) {
        command.add_option(name, text, help)->check(JudgeNumber)->type_name(type);
    };
    command.add_option("NAME", name_, "Name of a gear, see --list")->type_name("");
    command.add_flag("--list", list_, "Name the axles and gears that there are, with their sources");
    command.add_option("--file", ownFile_, "A gear of one's own: a table x,y or x,y,share of its wheels, in cm")
        ->type_name("WHEELS.csv");
    command
        .add_option("--units", units_,
                    "Units of the numbers: 1 and 2 kgf, kgf/cm2, cm; 3 kN, MPa, cm. Needed but for --list")
        ->check(CLI::IsMember({"1", "2", "3"}).description(""))
        ->type_name("1|2|3");
    number("--load", load_, "Load of all wheels together; any two of load, pressure and radius give the third", "F");
    number("--pressure", pressure_, "Pressure between wheel and pavement", "P");
    number("--radius", radius_, "Radius of the circle of a wheel, in cm", "CM");
    number("--spacing", spacing_, "Distance of neighbouring wheels, centre to centre, in cm", "CM");
    number("--axle-spacing", axleSpacing_, "Distance of axles behind one another, in cm", "CM");
    number("--track", track_, "Distance of both ends of an axle, middle to middle, in cm", "CM");
    command.add_option("--at", at_, "Position of the middle of the gear, in cm; 0,0 if not given")
        ->check(JudgePlace)
        ->type_name("X,Y");
    number("--angle", angle_, "Turns the gear from X towards Y, in degrees", "DEG");
    command.add_option("--into", into_, "A file (.eva or .ven) that takes these loads in place of its own")
        ->check(JudgeFile)
        ->type_name("FILE");
    command.add_option("-o,--output", output_, "With --into: the file to write, of the same kind")
        ->check(JudgeFile)
        ->type_name("FILE");
    command.add_option("--language", language_, "With --into: language of the headings; en if not given")
        ->check(CLI::IsMember({"ja", "en"}).description(""))
        ->type_name("ja|en");
}

std::string GearOptions::Contradiction() const {
    if (list_) {
        return "";
    }
    if (name_.empty() == ownFile_.empty()) {
        return "gear: either a NAME or --file is wanted; gear --list names the gears that there are";
    }
    if (!name_.empty() && design::FindGear(name_) == nullptr) {
        return name_ + " is no gear; gear --list names those that there are";
    }
    if (units_.empty()) {
        return "--units is required";
    }
    if (into_.empty() != output_.empty()) {
        return "--into and --output go together";
    }
    if (into_.empty() && language_ == "ja") {
        return "--language: only a file (--into) has headings";
    }
    if (!into_.empty() && HasExtension(into_, ".ven") != HasExtension(output_, ".ven")) {
        return "--output: " + output_ + " is of another kind than " + into_;
    }
    if (!into_.empty() && solver::IsSameFile(into_, output_)) {
        return "--output: " + into_ + " is the input, and would be lost";
    }
    return "";
}

GearRequest GearOptions::Read() const {
    const auto optional = [](const std::string& text) { return design::NumberOfText(text); };
    GearRequest request;
    request.List = list_;
    request.Name = name_;
    request.OwnFile = ownFile_;
    const auto [x, y] = PlaceOf(at_).value_or(std::pair(0.0, 0.0));
    request.Fit = {optional(load_),
                   optional(pressure_),
                   optional(radius_),
                   optional(spacing_),
                   optional(axleSpacing_),
                   optional(track_),
                   x,
                   y,
                   optional(angle_).value_or(0)};
    request.Units = solver::UnitSystemOf(CountOf(units_, 3)).value_or(solver::UnitSystem::KnToMpa);
    request.Into = into_;
    request.Output = output_;
    request.LanguageBase = language_ == "ja" ? JapaneseBase : EnglishBase;
    return request;
}

}  // namespace zirvo::batch
