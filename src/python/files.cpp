// Files of pavements, see files.h.
#include "python/files.h"

#include <cmath>
#include <sstream>

#include "pavement/analysis_input.h"
#include "pavement/graphics_input.h"
#include "platform/files.h"
#include "text/catalogue.h"
#include "text/number_grammar.h"
#include "text/number_text.h"

namespace zirvo::python {
namespace {

namespace py = pybind11;

[[noreturn]] void Refuse(const std::string& path, const std::vector<Finding>& findings) {
    Refused refused;
    for (const Finding& finding : findings) {
        refused.Faults.push_back(FindingText(finding));
    }
    refused.Message = path + ": " + refused.Faults.front();
    throw refused;
}

template <class Row, std::size_t Columns, class Field>
py::array_t<double> ArrayOf(std::span<const Row> rows, const std::array<Field, Columns>& fields) {
    const auto count = static_cast<py::ssize_t>(rows.size()) - 1;  // row 0 is unused
    py::array_t<double> array({count, static_cast<py::ssize_t>(Columns)});
    double* value = array.mutable_data();
    for (const Row& row : rows.subspan(1)) {
        for (const Field field : fields) {
            *value++ = row.*field;
        }
    }
    return array;
}

py::array_t<double> LayersOf(const LoadedPavement& data) {
    return ArrayOf(data.Layers.UpTo(data.LayerCount), LayerFields);
}

py::array_t<double> LoadsOf(const LoadedPavement& data) {
    return ArrayOf(data.Loads.UpTo(data.LoadCount), LoadFields);
}

py::array_t<double> PointsOf(const PavementModel& model) {
    py::array_t<double> array({py::ssize_t{model.PointCount}, py::ssize_t{4}});
    double* value = array.mutable_data();
    for (const InterestPoint& point : model.Points.UpTo(model.PointCount).subspan(1)) {
        for (const double x :
             {double{static_cast<double>(point.LayerNumber)}, point.PointX, point.PointY, point.PointZ}) {
            *value++ = x;
        }
    }
    return array;
}

void RequireCount(std::size_t count, int highest, const char* what) {
    if (count > static_cast<std::size_t>(highest)) {
        throw Refused{
            "counts, " + std::string(what) + " " + std::to_string(count) + ": is above " + std::to_string(highest), {}};
    }
}

void Fill(LoadedPavement& data, const solver::Problem& problem) {
    RequireCount(problem.Layers.size(), MaximumLayers, "LayerCount");
    RequireCount(problem.Loads.size(), MaximumLoads, "LoadCount");
    for (const solver::Layer& layer : problem.Layers) {
        data.Layers[++data.LayerCount] = {layer.Modulus, layer.PoissonRatio, layer.Thickness, layer.SlipRate};
    }
    for (const solver::Load& load : problem.Loads) {
        data.Loads[++data.LoadCount] = {load.Vertical, load.Radius, load.X, load.Y, load.Horizontal, load.Angle};
    }
}

Int16 LanguageOf(const std::string& language) {
    if (language != "ja" && language != "en") {
        throw Refused{"language " + language + ": must be ja or en", {}};
    }
    return language == "ja" ? JapaneseBase : EnglishBase;
}

/// Numbers that touch in the columns of the format would not be read again as they are.
template <class Result, class Data>
void RequireReadsBack(const std::string& path, const Result& read, const Data& data) {
    if (!read.Passed()) {
        Refuse(path, {read.Failure().First});
    }
    if (!(*read == data)) {
        throw Refused{
            path + ": numbers with more digits than 15 or than the format's columns hold would be read otherwise", {}};
    }
}

void Write(const std::string& path, const std::string& bytes) {
    try {
        WriteWholeFile(path, bytes);
    } catch (const RuntimeFault& caught) {
        throw Refused{path + ": cannot be written: " + caught.what(), {}};
    }
}

/// 15 digits, as the format has them, whatever the locale that Python has set. What is no finite number stays for the
/// rules to refuse.
double AsWritten(double x) {
    double written = x;
    if (std::isfinite(x)) {
        ReadWholeNumber(FormatNumberText(x), written);
    }
    return written;
}

Rows Rounded(const Rows& rows) {
    Rows copy(std::vector<py::ssize_t>(rows.shape(), rows.shape() + rows.ndim()));
    std::transform(rows.data(), rows.data() + rows.size(), copy.mutable_data(), AsWritten);
    return copy;
}

}  // namespace

py::tuple ReadEva(const std::string& path) {
    const AnalysisInputResult read = ReadAnalysisInput(path);
    if (!read.Passed()) {
        Refuse(path, CheckAnalysisInput(path));
    }
    return py::make_tuple(LayersOf(*read), LoadsOf(*read), PointsOf(*read), read->ResultFileName,
                          read->PrincipalFileName);
}

py::tuple ReadVen(const std::string& path) {
    const GraphicsInputResult read = ReadGraphicsInput(path);
    if (!read.Passed()) {
        Refuse(path, CheckGraphicsInput(path));
    }
    return py::make_tuple(LayersOf(*read), LoadsOf(*read));
}

void WriteEva(const std::string& path, const Rows& layers, const Rows& loads, const Rows& points, int units,
              const std::string& language, const std::string& result, const std::string& principal) {
    solver::Problem problem = ProblemOf(Rounded(layers), Rounded(loads), Rounded(points));
    RequireGood(problem);
    RequireCount(problem.Points.size(), MaximumPoints, "PointCount");
    PavementModel model;
    Fill(model, problem);
    for (const solver::Point& point : problem.Points) {
        model.Points[++model.PointCount] = {static_cast<Int16>(point.Layer), point.X, point.Y, AsWritten(point.Z)};
    }
    model.ResultFileName = result;
    model.PrincipalFileName = principal;
    const std::string bytes =
        WriteAnalysisInput(model, zirvo::UnitSystemOf(static_cast<int>(UnitsOf(units))), LanguageOf(language));
    std::istringstream stream(bytes);
    RequireReadsBack(path, ReadAnalysisInput(stream), model);
    Write(path, bytes);
}

void WriteVen(const std::string& path, const Rows& layers, const Rows& loads, int units, const std::string& language) {
    const Rows none(std::vector<py::ssize_t>{0, 4});
    solver::Problem problem = ProblemOf(Rounded(layers), Rounded(loads), none);
    RequireGood(problem);
    GraphicsInputData data;
    Fill(data, problem);
    const std::string bytes =
        WriteGraphicsInput(data, zirvo::UnitSystemOf(static_cast<int>(UnitsOf(units))), LanguageOf(language));
    std::istringstream stream(bytes);
    RequireReadsBack(path, ReadGraphicsInput(stream), data);
    Write(path, bytes);
}

}  // namespace zirvo::python
