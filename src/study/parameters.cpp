// Names of what varies, see parameters.h.
#include "study/parameters.h"

#include <array>
#include <charconv>
#include <cmath>
#include <vector>

namespace zirvo::study {
namespace {

using solver::Layer;
using solver::Load;

constexpr std::array LayerFields{std::pair{"modulus", &Layer::Modulus}, std::pair{"poisson", &Layer::PoissonRatio},
                                 std::pair{"thickness", &Layer::Thickness}, std::pair{"slip", &Layer::SlipRate}};
constexpr std::array LoadFields{std::pair{"vertical", &Load::Vertical},
                                std::pair{"radius", &Load::Radius},
                                std::pair{"x", &Load::X},
                                std::pair{"y", &Load::Y},
                                std::pair{"horizontal", &Load::Horizontal},
                                std::pair{"angle", &Load::Angle}};
constexpr const char* Grammar =
    "; a parameter is \"layer N modulus|poisson|thickness|slip\", \"load N|all vertical|radius|x|y|horizontal|angle\" "
    "or "
    "\"loads total\"";

std::vector<std::string_view> WordsOf(std::string_view text) {
    std::vector<std::string_view> words;
    for (std::size_t from = text.find_first_not_of(' '); from != std::string_view::npos;) {
        const std::size_t end = std::min(text.find(' ', from), text.size());
        words.push_back(text.substr(from, end - from));
        from = text.find_first_not_of(' ', end);
    }
    return words;
}

/// A number from 1; 0 for anything else.
int NumberOf(std::string_view word) {
    int number = 0;
    const auto [stop, error] = std::from_chars(word.data(), word.data() + word.size(), number);
    return error == std::errc() && stop == word.data() + word.size() && number > 0 ? number : 0;
}

template <class Fields>
auto FieldOf(const Fields& fields, std::string_view word) {
    auto member = fields[0].second;
    member = nullptr;
    for (const auto& [name, field] : fields) {
        if (word == name) {
            member = field;
        }
    }
    return member;
}

std::string NoSuchRow(const char* what, std::size_t count) {
    return std::string("names no ") + what + ": there are " + std::to_string(count);
}

double TotalOf(const solver::Problem& problem) {
    double total = 0;
    for (const Load& load : problem.Loads) {
        total += load.Vertical;
    }
    return total;
}

std::variant<Parameter, std::string> LayerParameter(Parameter parameter, int row, std::string_view field,
                                                    const solver::Problem& base) {
    const std::size_t count = base.Layers.size();
    parameter.LayerField = FieldOf(LayerFields, field);
    parameter.Row = row;
    if (parameter.LayerField == nullptr || row == 0) {
        return parameter.Name + " is no parameter" + Grammar;
    }
    if (static_cast<std::size_t>(row) > count) {
        return NoSuchRow("layer", count);
    }
    if (static_cast<std::size_t>(row) == count && (field == "thickness" || field == "slip")) {
        return "the last layer has no " + std::string(field);
    }
    return parameter;
}

std::variant<Parameter, std::string> LoadParameter(Parameter parameter, std::string_view row, std::string_view field,
                                                   const solver::Problem& base) {
    parameter.What = Parameter::Kind::OfLoad;
    parameter.LoadField = FieldOf(LoadFields, field);
    parameter.Row = NumberOf(row);
    if (parameter.LoadField == nullptr || (parameter.Row == 0 && row != "all")) {
        return parameter.Name + " is no parameter" + Grammar;
    }
    if (static_cast<std::size_t>(parameter.Row) > base.Loads.size()) {
        return NoSuchRow("load", base.Loads.size());
    }
    return parameter;
}

}  // namespace

std::variant<Parameter, std::string> ParameterOf(std::string_view name, const solver::Problem& base) {
    Parameter parameter;
    const std::vector<std::string_view> words = WordsOf(name);
    for (const std::string_view word : words) {
        parameter.Name.append(parameter.Name.empty() ? "" : " ").append(word);
    }
    if (parameter.Name == "loads total") {
        parameter.What = Parameter::Kind::TotalLoad;
        if (!(TotalOf(base) > 0)) {
            return "the vertical loads do not sum up to a number above 0 that could be scaled";
        }
        return parameter;
    }
    if (words.size() == 3 && words[0] == "layer") {
        return LayerParameter(std::move(parameter), NumberOf(words[1]), words[2], base);
    }
    if (words.size() == 3 && words[0] == "load") {
        return LoadParameter(std::move(parameter), words[1], words[2], base);
    }
    return "\"" + parameter.Name + "\" is no parameter" + Grammar;
}

void SetParameter(const Parameter& parameter, double value, solver::Problem& problem) {
    switch (parameter.What) {
        case Parameter::Kind::OfLayer:
            problem.Layers[static_cast<std::size_t>(parameter.Row) - 1].*parameter.LayerField = value;
            break;
        case Parameter::Kind::OfLoad:
            for (std::size_t i = 0; i < problem.Loads.size(); ++i) {
                if (parameter.Row == 0 || static_cast<std::size_t>(parameter.Row) == i + 1) {
                    problem.Loads[i].*parameter.LoadField = value;
                }
            }
            break;
        case Parameter::Kind::TotalLoad: {
            const double factor = value / TotalOf(problem);
            for (Load& load : problem.Loads) {
                load.Vertical *= factor;
                load.Horizontal *= factor;
            }
            break;
        }
    }
}

std::string ReasonAgainst(const Parameter& parameter, double value) {
    if (!std::isfinite(value)) {
        return "is no finite number";
    }
    const bool slip = parameter.LayerField == &Layer::SlipRate;
    const bool positive = (parameter.What == Parameter::Kind::OfLayer && !slip) ||
                          parameter.LoadField == &Load::Radius || parameter.What == Parameter::Kind::TotalLoad;
    if (positive && !(value > 0)) {
        return "is not above 0";
    }
    if (parameter.LayerField == &Layer::PoissonRatio && value > 0.5) {
        return "is above 0.5";
    }
    if (slip && value < 0) {
        return "is below 0";
    }
    return slip && value > 0.99 ? "is above 0.99" : "";
}

std::string UnitOf(const Parameter& parameter, solver::UnitSystem units) {
    if (parameter.What == Parameter::Kind::TotalLoad || parameter.LoadField == &Load::Vertical ||
        parameter.LoadField == &Load::Horizontal) {
        return std::string(solver::ForceUnit(units));
    }
    if (parameter.What == Parameter::Kind::OfLoad) {
        return parameter.LoadField == &Load::Angle ? "degrees" : "cm";
    }
    if (parameter.LayerField == &Layer::Modulus) {
        return std::string(solver::InputStressUnit(units));
    }
    return parameter.LayerField == &Layer::Thickness ? "cm" : "";
}

}  // namespace zirvo::study
