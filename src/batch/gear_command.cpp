// `zirvo-batch gear`, see gear_command.h.
#include "batch/gear_command.h"

#include <cmath>

#include "batch/check_command.h"
#include "pavement/analysis_input.h"
#include "pavement/graphics_input.h"
#include "pavement/pavement_blocks.h"
#include "platform/files.h"
#include "text/file_helpers.h"

namespace zirvo::batch {
namespace {

using Loads = std::vector<solver::Load>;

ExitCode PrintCatalogue(Console& console) {
    std::string out;
    for (const design::StandardGear& gear : design::GearCatalogue()) {
        const design::GearPattern& pattern = gear.Pattern;
        const int wheels = pattern.Sides * pattern.Wheels * pattern.Axles;
        out.append(gear.Name).append(": ").append(gear.What).append("\n    ");
        out.append(std::to_string(wheels)).append(wheels == 1 ? " wheel, " : " wheels, ");
        const auto number = [&](double x, const char* unit) {
            out.append(design::ShortestText(std::round(x * 1000) / 1000)).append(unit);
        };
        number(gear.Load, " kN, ");
        number(gear.Pressure, " MPa\n    ");
        out.append(gear.Source).append("\n");
    }
    return console.Output(out.append("\n").append(design::GearCaution).append("\n"));
}

SurfaceLoad RowOf(const solver::Load& load) {
    return {load.Vertical, load.Radius, load.X, load.Y, load.Horizontal, load.Angle};
}

void Replace(LoadedPavement& pavement, const Loads& loads) {
    pavement.LoadCount = 0;
    for (const solver::Load& load : loads) {
        pavement.Loads[++pavement.LoadCount] = RowOf(load);
    }
}

template <class Data>
ExitCode WriteInto(const GearRequest& request, const Loads& loads, InputResult<Data> read,
                   std::string (*write)(const Data&, zirvo::UnitSystem, Int16), Console& console) {
    if (!read.Passed()) {
        TellFindings(request.Into, {read.Failure().First}, console);
        return ExitCode::BadInput;
    }
    Replace(*read, loads);
    try {
        WriteWholeFile(request.Output,
                       write(*read, zirvo::UnitSystemOf(static_cast<int>(request.Units)), request.LanguageBase));
        return ExitCode::Done;
    } catch (const RuntimeFault& caught) {
        console.Complain(request.Output, "cannot be written: " + FaultText(caught));
        return ExitCode::BadInput;
    }
}

/// The loads, or nothing where that is told.
std::variant<Loads, ExitCode> LoadsOf(const GearRequest& request, Console& console) {
    std::variant<Loads, std::string> loads;
    if (request.OwnFile.empty()) {
        loads = design::LoadsOfGear(*design::FindGear(request.Name), request.Fit, request.Units);
    } else {
        const auto wheels = design::ReadGearFile(request.OwnFile);
        if (const auto* error = std::get_if<design::FileError>(&wheels)) {
            console.Complain("", error->Text());
            return ExitCode::BadInput;
        }
        loads = design::LoadsOfWheels(std::get<std::vector<design::Wheel>>(wheels), request.Fit, request.Units);
    }
    if (const auto* reason = std::get_if<std::string>(&loads)) {
        console.Complain("", *reason);
        return ExitCode::WrongUsage;
    }
    return std::get<Loads>(loads);
}

}  // namespace

ExitCode RunGear(const GearRequest& request, Console& console) {
    if (request.List) {
        return PrintCatalogue(console);
    }
    const auto made = LoadsOf(request, console);
    if (const auto* code = std::get_if<ExitCode>(&made)) {
        return *code;
    }
    const Loads& loads = std::get<Loads>(made);
    if (request.Into.empty()) {
        std::string lines;
        for (const solver::Load& load : loads) {
            AppendLoadRow(lines, RowOf(load));
        }
        return console.Output(lines);
    }
    if (HasExtension(request.Into, ".ven")) {
        return WriteInto<GraphicsInputData>(request, loads, ReadGraphicsInput(request.Into), WriteGraphicsInput,
                                            console);
    }
    return WriteInto<PavementModel>(request, loads, ReadAnalysisInput(request.Into), WriteAnalysisInput, console);
}

}  // namespace zirvo::batch
