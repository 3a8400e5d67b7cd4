// Gears as loads, see gears.h.
#include "design/gears.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace zirvo::design {
namespace {

constexpr double KgfPerKn = 1000 / 9.80665;
constexpr double Decimals = 1e6;
constexpr double Largest = 1e6;  // of any number here: what is larger would not stand in its column
constexpr double Smallest = 1e-5;

double Rounded(double x) {
    return std::round(x * Decimals) / Decimals + 0.0;
}

/// Whether the option is left out or a size that a column can hold; what is wrong goes to `reason`.
bool IsSize(const char* option, const std::optional<double>& value, std::string& reason) {
    if (value && !(*value >= Smallest && *value <= Largest)) {
        reason = std::string(option) + ": " + ShortestText(*value) + " is not from 1E-5 to 1E6";
        return false;
    }
    return true;
}

std::string ReasonAgainst(const GearFit& fit) {
    std::string reason;
    if (!(IsSize("--load", fit.Load, reason) && IsSize("--pressure", fit.Pressure, reason) &&
          IsSize("--radius", fit.Radius, reason) && IsSize("--spacing", fit.Spacing, reason) &&
          IsSize("--axle-spacing", fit.AxleSpacing, reason) && IsSize("--track", fit.Track, reason))) {
        return reason;
    }
    if (fit.Load && fit.Pressure && fit.Radius) {
        return "--load, --pressure, --radius: two of them decide the third";
    }
    for (const double position : {fit.X, fit.Y, fit.Angle}) {
        if (!(std::fabs(position) <= Largest)) {
            return "--at, --angle: " + ShortestText(position) + " is farther out than 1E6";
        }
    }
    return "";
}

std::string ReasonAgainst(const GearPattern& pattern, const GearFit& fit) {
    if (fit.Spacing && pattern.Wheels == 1) {
        return "--spacing: this gear has one wheel on each end of an axle";
    }
    if (fit.AxleSpacing && pattern.Axles == 1) {
        return "--axle-spacing: this gear has one axle";
    }
    if (fit.Track && pattern.Sides == 1) {
        return "--track: this is one side of an axle";
    }
    return "";
}

std::vector<Wheel> WheelsOf(const GearPattern& pattern) {
    std::vector<Wheel> wheels;
    const auto place = [](int i, int count, double spacing) { return (i - (count - 1) / 2.0) * spacing; };
    for (int axle = 0; axle < pattern.Axles; ++axle) {
        for (int side = 0; side < pattern.Sides; ++side) {
            for (int wheel = 0; wheel < pattern.Wheels; ++wheel) {
                wheels.push_back(
                    {place(side, pattern.Sides, pattern.Track) + place(wheel, pattern.Wheels, pattern.Spacing),
                     place(axle, pattern.Axles, pattern.AxleSpacing), 1});
            }
        }
    }
    return wheels;
}

/// The wheels under load; two of load, pressure and radius are there.
std::vector<solver::Load> LoadsOf(const std::vector<Wheel>& wheels, const GearFit& fit, solver::UnitSystem units) {
    double shares = 0;
    for (const Wheel& wheel : wheels) {
        shares += wheel.Share;
    }
    const double stressPerForce = units == solver::UnitSystem::KnToMpa ? solver::MpaCm2PerKn : 1;
    const double angle = fit.Angle * std::numbers::pi / 180;
    std::vector<solver::Load> loads;
    for (const Wheel& wheel : wheels) {
        solver::Load load;
        if (fit.Load) {
            load.Vertical = *fit.Load * wheel.Share / shares;
            load.Radius = fit.Radius.value_or(0);
        } else {
            load.Radius = *fit.Radius;
            load.Vertical = *fit.Pressure * std::numbers::pi * *fit.Radius * *fit.Radius / stressPerForce;
        }
        if (!fit.Radius) {
            load.Radius = std::sqrt(load.Vertical * stressPerForce / (std::numbers::pi * *fit.Pressure));
        }
        load.Vertical = Rounded(load.Vertical);
        load.Radius = Rounded(load.Radius);
        load.X = Rounded(fit.X + wheel.X * std::cos(angle) - wheel.Y * std::sin(angle));
        load.Y = Rounded(fit.Y + wheel.X * std::sin(angle) + wheel.Y * std::cos(angle));
        loads.push_back(load);
    }
    return loads;
}

std::variant<std::vector<solver::Load>, std::string> Judged(std::vector<solver::Load> loads) {
    for (const solver::Load& load : loads) {
        if (!(load.Vertical > 0 && load.Vertical <= Largest && load.Radius > 0 && load.Radius <= Largest)) {
            return "load, pressure and radius give a wheel of " + ShortestText(load.Vertical) + " on a circle of " +
                   ShortestText(load.Radius) + " cm, which no file can hold";
        }
    }
    return loads;
}

}  // namespace

const StandardGear* FindGear(std::string_view name) {
    const auto& all = GearCatalogue();
    const auto found = std::find_if(all.begin(), all.end(), [&](const StandardGear& g) { return g.Name == name; });
    return found == all.end() ? nullptr : &*found;
}

std::variant<std::vector<solver::Load>, std::string> LoadsOfGear(const StandardGear& gear, const GearFit& fit,
                                                                 solver::UnitSystem units) {
    for (const std::string& reason : {ReasonAgainst(fit), ReasonAgainst(gear.Pattern, fit)}) {
        if (!reason.empty()) {
            return reason;
        }
    }
    const bool newtons = units == solver::UnitSystem::KnToMpa;
    GearFit whole = fit;
    const int given = (fit.Load ? 1 : 0) + (fit.Pressure ? 1 : 0) + (fit.Radius ? 1 : 0);
    if (given < 2 && !fit.Load) {
        whole.Load = newtons ? gear.Load : gear.Load * KgfPerKn;
    }
    if (given < 2 && !fit.Radius && !fit.Pressure) {
        whole.Pressure = newtons ? gear.Pressure : gear.Pressure / solver::MpaPerKgf;
    }
    GearPattern pattern = gear.Pattern;
    pattern.Spacing = fit.Spacing.value_or(pattern.Spacing);
    pattern.AxleSpacing = fit.AxleSpacing.value_or(pattern.AxleSpacing);
    pattern.Track = fit.Track.value_or(pattern.Track);
    return Judged(LoadsOf(WheelsOf(pattern), whole, units));
}

std::variant<std::vector<solver::Load>, std::string> LoadsOfWheels(const std::vector<Wheel>& wheels, const GearFit& fit,
                                                                   solver::UnitSystem units) {
    if (const std::string reason = ReasonAgainst(fit); !reason.empty()) {
        return reason;
    }
    if ((fit.Load ? 1 : 0) + (fit.Pressure ? 1 : 0) + (fit.Radius ? 1 : 0) < 2) {
        return "--load, --pressure, --radius: a gear of one's own needs two of them";
    }
    if (fit.Spacing || fit.AxleSpacing || fit.Track) {
        return "--spacing, --axle-spacing, --track: the wheels of a gear of one's own stand in its file";
    }
    const bool even = std::all_of(wheels.begin(), wheels.end(),
                                  [&](const Wheel& wheel) { return wheel.Share == wheels.front().Share; });
    if (!fit.Load && !even) {
        return "--load: pressure and radius give each wheel the same load, and the shares of this gear differ";
    }
    return Judged(LoadsOf(wheels, fit, units));
}

}  // namespace zirvo::design
