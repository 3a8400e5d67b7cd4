// The reader of the solver input: see its header. Inside, an InputError is thrown at the first finding and caught at
// the two public steps.
#include "solver/io/solver_input.h"

#include <optional>
#include <span>

#include "base/runtime_fault.h"
#include "platform/code_page.h"
#include "solver/io/report_columns.h"
#include "solver/io/row_reader.h"
#include "text/number_text.h"

namespace zirvo::solver {
namespace {

/// Rounding of the sums of thicknesses that is no depth outside a layer [cm].
constexpr double DepthRounding = 1e-9;

/// More of a field than this is not shown [bytes].
constexpr std::size_t LongestQuotedField = 200;

/// A field as a message shows it.
std::string Quoted(std::string_view field) {
    return DecodeText(field.substr(0, LongestQuotedField));
}

using Names = std::span<const Word>;
constexpr std::array CountNames{Word::LayerCount, Word::LoadCount, Word::PointCount};
constexpr std::array LayerNames{Word::Modulus, Word::PoissonRatio, Word::Thickness, Word::SlipRate};
constexpr std::array LoadNames{Word::VerticalLoad, Word::Radius,         Word::LoadX,
                               Word::LoadY,        Word::HorizontalLoad, Word::Angle};
constexpr std::array PointNames{Word::LayerNumber, Word::PointX, Word::PointY, Word::PointZ};
constexpr std::array ReportNameWords{Word::ResultName, Word::PrincipalName};

}  // namespace

class InputReader::Work {
public:
    Work(std::istream& input, const InputFormat& format) : rows_(input), format_(format) {}

    void ReadNames(std::vector<std::string>& names);
    void ReadProblem(SolverInput& result);

private:
    RowReader rows_;
    const InputFormat& format_;
    Word row_ = Word::None;  // what is being read, for the messages
    int rowNumber_ = 0;

    [[noreturn]] void Fail(Word reason, Word value = Word::None, std::string text = "",
                           std::vector<std::string> arguments = {}) const;
    void SkipHeadings(int count);
    void BeginRow(Word row, int number, std::span<const std::size_t> widths);
    std::string_view Field(Names names, std::size_t column);
    double Number(Names names, std::size_t column);
    long long Integer(Names names, std::size_t column);
    int Count(std::size_t column, int highest);
    void RequireAbove(double value, double limit, Word name) const;
    void RequireAtMost(double value, double limit, Word name) const;
    void RequireUpTo(double value, double highest, Word name) const;
    Layer ReadLayer(int number, bool last);
    Load ReadLoad(int number);
    Point ReadPoint(int number, const std::vector<double>& tops, bool& moved);
    double DepthInLayer(double z, int layer, const std::vector<double>& tops, bool& moved) const;
};

void InputReader::Work::Fail(Word reason, Word value, std::string text, std::vector<std::string> arguments) const {
    InputError error;
    error.Reason = reason;
    error.Arguments = std::move(arguments);
    error.Row = row_;
    error.RowNumber = rowNumber_;
    error.Line = rows_.Line();
    error.Value = value;
    error.Text = std::move(text);
    throw error;
}

void InputReader::Work::SkipHeadings(int count) {
    row_ = Word::RowHeading;
    rowNumber_ = 0;
    for (int i = 0; i < count; ++i) {
        if (rows_.SkipTextField() != RowReader::Status::Read) {
            Fail(Word::EndsEarly);
        }
    }
}

void InputReader::Work::ReadNames(std::vector<std::string>& names) {
    // The names are lines 2 and 3, whatever the first line holds: a comma there must not make a name of its rest.
    row_ = Word::RowHeading;
    if (rows_.SkipLine() != RowReader::Status::Read) {
        Fail(Word::EndsEarly);
    }
    row_ = Word::RowNames;
    for (std::size_t i = 0; i < format_.ReportNames; ++i) {
        std::string bytes;
        const RowReader::Status status = rows_.ReadNameLine(bytes);
        if (status != RowReader::Status::Read) {
            Fail(status == RowReader::Status::End ? Word::EndsEarly : Word::TextTooLong, ReportNameWords[i]);
        }
        names.push_back(DecodeName(bytes));
    }
}

void InputReader::Work::BeginRow(Word row, int number, std::span<const std::size_t> widths) {
    row_ = row;
    rowNumber_ = number;
    rows_.BeginRow(widths);
}

std::string_view InputReader::Work::Field(Names names, std::size_t column) {
    std::string_view field;
    switch (rows_.NextField(field)) {
        case RowReader::Status::Read:
            return field;
        case RowReader::Status::End:
            Fail(Word::EndsEarly, names[column]);
        case RowReader::Status::TooLong:
            Fail(Word::TextTooLong, names[column]);
        case RowReader::Status::Touching:
            Fail(Word::NumbersTouch, names[rows_.TouchingField()], Quoted(field));
    }
    return field;
}

double InputReader::Work::Number(Names names, std::size_t column) {
    const std::string_view field = Field(names, column);
    double value = 0;
    if (!ReadNumber(field, value)) {
        Fail(Word::NotANumber, names[column], Quoted(field));
    }
    return value;
}

long long InputReader::Work::Integer(Names names, std::size_t column) {
    const std::string_view field = Field(names, column);
    long long value = 0;
    if (!ReadInteger(field, value)) {
        Fail(Word::NotAnInteger, names[column], Quoted(field));
    }
    return value;
}

int InputReader::Work::Count(std::size_t column, int highest) {
    const long long value = Integer(CountNames, column);
    if (value < 1 || value > highest) {
        Fail(Word::OutsideRange, CountNames[column], std::to_string(value), {"1", std::to_string(highest)});
    }
    return static_cast<int>(value);
}

void InputReader::Work::RequireAbove(double value, double limit, Word name) const {
    if (!(value > limit)) {
        Fail(Word::MustBeAbove, name, FormatNumberText(value), {FormatNumberText(limit)});
    }
}

void InputReader::Work::RequireAtMost(double value, double limit, Word name) const {
    if (!(value <= limit)) {
        Fail(Word::MustBeAtMost, name, FormatNumberText(value), {FormatNumberText(limit)});
    }
}

void InputReader::Work::RequireUpTo(double value, double highest, Word name) const {
    if (!(value >= 0 && value <= highest)) {
        Fail(Word::OutsideRange, name, FormatNumberText(value), {"0", FormatNumberText(highest)});
    }
}

Layer InputReader::Work::ReadLayer(int number, bool last) {
    const std::span<const std::size_t> widths(format_.LayerWidths);
    BeginRow(Word::RowLayer, number, last ? widths.first(2) : widths);
    Layer layer;
    layer.Modulus = Number(LayerNames, 0);
    layer.PoissonRatio = Number(LayerNames, 1);
    if (!last) {
        layer.Thickness = Number(LayerNames, 2);
        layer.SlipRate = Number(LayerNames, 3);
    }
    RequireAbove(layer.Modulus, 0, Word::Modulus);
    RequireAbove(layer.PoissonRatio, 0, Word::PoissonRatio);
    RequireAtMost(layer.PoissonRatio, HighestPoissonRatio, Word::PoissonRatio);
    if (!last) {
        RequireAbove(layer.Thickness, 0, Word::Thickness);
        RequireUpTo(layer.SlipRate, HighestSlipRate, Word::SlipRate);
    }
    return layer;
}

Load InputReader::Work::ReadLoad(int number) {
    BeginRow(Word::RowLoad, number, format_.LoadWidths);
    Load load;
    load.Vertical = Number(LoadNames, 0);
    load.Radius = Number(LoadNames, 1);
    load.X = Number(LoadNames, 2);
    load.Y = Number(LoadNames, 3);
    load.Horizontal = Number(LoadNames, 4);
    load.Angle = Number(LoadNames, 5);
    RequireAbove(load.Radius, 0, Word::Radius);
    if (load.Vertical == 0 && load.Horizontal == 0) {
        Fail(Word::NoLoadAtAll);
    }
    return load;
}

/// The depth to use: z, or the layer's boundary where z lies outside by no more than the format's slack.
/// @param tops  depth of the top of each layer [cm], entry 0 that of layer 1
double InputReader::Work::DepthInLayer(double z, int layer, const std::vector<double>& tops, bool& moved) const {
    const auto index = static_cast<std::size_t>(layer) - 1;
    const bool last = index + 1 == tops.size();
    const bool above = z < tops[index];
    if (!above && (last || z <= tops[index + 1])) {
        return z;
    }
    const double boundary = above ? tops[index] : tops[index + 1];
    const double outside = above ? boundary - z : z - boundary;
    if (outside > format_.DepthSlack + DepthRounding) {
        Fail(above ? Word::AboveItsLayer : Word::BelowItsLayer, Word::PointZ, FormatNumberText(z),
             {std::to_string(layer), FormatNumberText(boundary)});
    }
    moved = outside > DepthRounding;
    return boundary;
}

Point InputReader::Work::ReadPoint(int number, const std::vector<double>& tops, bool& moved) {
    BeginRow(Word::RowPoint, number, format_.PointWidths);
    const long long layer = Integer(PointNames, 0);
    Point point;
    point.X = Number(PointNames, 1);
    point.Y = Number(PointNames, 2);
    point.Z = Number(PointNames, 3);
    if (layer < 0 || layer > static_cast<long long>(tops.size())) {
        Fail(Word::OutsideRange, Word::LayerNumber, std::to_string(layer), {"0", std::to_string(tops.size())});
    }
    point.Layer = layer == 0 ? 1 : static_cast<int>(layer);
    point.Z = DepthInLayer(point.Z, point.Layer, tops, moved);
    for (const auto& [value, name] :
         {std::pair(point.X, Word::PointX), std::pair(point.Y, Word::PointY), std::pair(point.Z, Word::PointZ)}) {
        if (format_.CoordinatesInColumns && !FitsCoordinateColumn(value)) {
            Fail(Word::DoesNotFit, name, FormatNumberText(value));
        }
    }
    return point;
}

void InputReader::Work::ReadProblem(SolverInput& result) {
    SkipHeadings(2);
    BeginRow(Word::RowCounts, 0, format_.CountWidths);
    const int layers = Count(0, HighestLayerCount);
    const int loads = Count(1, HighestLoadCount);
    const int points = Count(2, format_.HighestPointCount);
    SkipHeadings(3);
    std::vector<double> tops{0};
    for (int i = 1; i <= layers; ++i) {
        result.Typed.Layers.push_back(ReadLayer(i, i == layers));
        if (i < layers) {
            tops.push_back(tops.back() + result.Typed.Layers.back().Thickness);
        }
    }
    SkipHeadings(3);
    for (int i = 1; i <= loads; ++i) {
        result.Typed.Loads.push_back(ReadLoad(i));
    }
    SkipHeadings(3);
    for (int i = 1; i <= points; ++i) {
        bool moved = false;
        result.Typed.Points.push_back(ReadPoint(i, tops, moved));
        result.MovedPoints += moved ? 1 : 0;
    }
}

InputReader::InputReader(std::istream& input, const InputFormat& format)
    : work_(std::make_unique<Work>(input, format)) {}

InputReader::~InputReader() = default;

namespace {

/// Runs one step of the reader and gives what it threw.
template <class Step>
InputError Caught(Step step) {
    try {
        step();
        return {};
    } catch (const InputError& error) {
        return error;
    } catch (const RuntimeFault&) {  // the device gave up
        InputError error;
        error.Reason = Word::FileUnreadable;
        return error;
    }
}

}  // namespace

InputError InputReader::ReadNames(std::vector<std::string>& names) {
    return Caught([&] { work_->ReadNames(names); });
}

InputError InputReader::ReadProblem(SolverInput& result) {
    return Caught([&] { work_->ReadProblem(result); });
}

std::variant<SolverInput, InputError> ReadSolverInput(std::istream& input, const InputFormat& format) {
    InputReader reader(input, format);
    SolverInput result;
    InputError error = reader.ReadNames(result.ReportNames);
    if (error.Reason == Word::None) {
        error = reader.ReadProblem(result);
    }
    if (error.Reason != Word::None) {
        return error;
    }
    return result;
}

}  // namespace zirvo::solver
